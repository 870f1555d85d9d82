#include "cli/SerialOption.h"

#include <algorithm>

#include "base/Text.h"
#include "link/DeviceList.h"

namespace quorvi::cli {

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

}  // namespace quorvi::cli
