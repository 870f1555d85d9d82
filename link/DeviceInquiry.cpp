#include "link/DeviceInquiry.h"

#include <algorithm>
#include <utility>

#include "link/AdbCommand.h"

namespace quorvi {

DeviceInquiry::DeviceInquiry(LinkEnvironment environment, Answer answer)
    : environment_(std::move(environment)), answer_(std::move(answer)) {}

bool DeviceInquiry::Ask(int round, std::string serial) {
    const std::lock_guard lock(asking_);
    pipe_.Stop();
    round_ = round;
    serial_ = std::move(serial);
    getprop_.clear();
    return pipe_.Start(GetpropCommand(environment_, serial_));
}

void DeviceInquiry::OnOutput(std::string_view text, AdbOutputKind kind) {
    if (kind == AdbOutputKind::data) {
        getprop_.append(text.substr(0, std::min(text.size(), kGetpropLimit - getprop_.size())));
    } else if (kind == AdbOutputKind::finished) {
        answer_(round_, MakeDeviceRow(serial_, getprop_));
    }
}

}  // namespace quorvi
