#include "cli/SerialOption.h"

#include <fmt/format.h>

#include <algorithm>
#include <string_view>

#include "agent/Wire.h"
#include "base/Text.h"
#include "link/AdbCapture.h"
#include "link/AdbCommand.h"
#include "link/DeviceList.h"

namespace quorvi::cli {
namespace {

// Of the phone to which the link forwards the agent's port; nothing when there is none.
std::optional<std::string> LinkedSerial() {
    const AdbCapture list = RunAdbCapture(ForwardListCommand({}));
    const std::string here = fmt::format("tcp:{}", AgentPort);
    for (const std::string_view line : SplitAt(list.text, '\n')) {
        const auto words = SplitAt(line, ' ');
        if (words.size() > 1 && words[1] == here) {
            return std::string(words[0]);
        }
    }
    return std::nullopt;
}

}  // namespace

Status FindSerial(const std::string& serial, Output& output) {
    const SerialList list = ListSerials();
    if (list.outcome == RunOutcome::started &&
        std::ranges::find(list.serials, serial) == list.serials.end()) {
        output.Complain(Ansi(u8"没有找到设备 ") + serial);
        return Status::notFound;
    }
    return Status::done;
}

Status FindPhone(const std::optional<std::string>& serial, Output& output) {
    if (serial) {
        return FindSerial(*serial, output);
    }
    const SerialList list = ListSerials();
    if (list.outcome == RunOutcome::started && list.serials.empty()) {
        output.Complain(Ansi(u8"没有找到手机，请检查数据线和 USB 调试"));
        return Status::noLink;
    }
    return Status::done;
}

ChosenPhone ChoosePhone() {
    const SerialList list = ListSerials();
    if (list.outcome != RunOutcome::started) {
        return {PhoneChoice::noServer};
    }
    if (list.serials.empty()) {
        return {PhoneChoice::noPhone};
    }
    if (list.serials.size() == 1) {
        return {PhoneChoice::made, list.serials.front()};
    }
    const auto linked = LinkedSerial();
    return linked ? ChosenPhone{PhoneChoice::made, *linked} : ChosenPhone{PhoneChoice::several};
}

}  // namespace quorvi::cli
