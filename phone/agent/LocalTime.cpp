#include "phone/agent/LocalTime.h"

#include <chrono>
#include <cstdio>
#include <ctime>
#include <string>

namespace quorvi::phone {

std::uint64_t LocalMilliseconds(std::string_view time) {
    std::tm parts{};
    if (std::sscanf(std::string(time).c_str(), "%d-%d-%d %d:%d:%d", &parts.tm_year, &parts.tm_mon,
                    &parts.tm_mday, &parts.tm_hour, &parts.tm_min, &parts.tm_sec) != 6) {
        return 0;
    }
    parts.tm_year -= 1900;
    parts.tm_mon -= 1;
    parts.tm_isdst = -1;
    return static_cast<std::uint64_t>(std::mktime(&parts)) * 1000;
}

std::uint64_t MillisecondsNow() {
    const auto now = std::chrono::system_clock::now().time_since_epoch();
    return static_cast<std::uint64_t>(
        std::chrono::duration_cast<std::chrono::milliseconds>(now).count());
}

}  // namespace quorvi::phone
