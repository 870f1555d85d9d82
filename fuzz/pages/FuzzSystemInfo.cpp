// Reads the system information out of any payload and shows it both ways.
#include <cstdlib>

#include "pages/phoneinfo/SystemInfo.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace quorvi;
    const auto reply = ReplyBuffer::Holding(std::as_bytes(std::span(data, size)));
    const auto info = ParseSystemInfo(reply);
    if (!info) {
        return 0;
    }
    const std::string list = DashboardList(*info).Html();
    if (SystemInfoTable(*info).front().text != info->model ||
        list.find(info->systemVersion) == std::string::npos) {
        std::abort();
    }
    return 0;
}
