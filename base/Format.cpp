#include "base/Format.h"

#include <fmt/format.h>

#include <array>
#include <ctime>
#include <string_view>

#include "base/Text.h"

namespace quorvi {

std::string FormatDuration(std::uint32_t seconds) {
    return fmt::format("{:02}:{:02}:{:02}\n", seconds / 3600 % 24, seconds / 60 % 60, seconds % 60);
}

std::string FormatByteSize(std::uint64_t bytes) {
    constexpr std::array<std::string_view, 3> kUnits{"KB", "MB", "GB"};
    constexpr std::uint64_t kStep = 1024;
    const std::uint64_t size = static_cast<std::uint32_t>(bytes);
    if (size < kStep) {
        return std::to_string(size) + Ansi(u8" 字节");
    }
    std::size_t unit = 0;
    std::uint64_t one = kStep;
    // A whole part of four digits would be a fourth significant digit: 1000 KB shows as 0.97 MB.
    while (unit + 1 < kUnits.size() && size / one >= 1000) {
        one *= kStep;
        ++unit;
    }
    const std::uint64_t whole = size / one;
    const std::uint64_t hundredths = size % one * 100 / one;
    if (whole < 10) {
        return fmt::format("{}.{:02} {}", whole, hundredths, kUnits[unit]);
    }
    if (whole < 100) {
        return fmt::format("{}.{} {}", whole, hundredths / 10, kUnits[unit]);
    }
    return fmt::format("{} {}", whole, kUnits[unit]);
}

std::string FormatUnixTime(std::int64_t seconds) {
    const std::time_t time = static_cast<std::time_t>(seconds);
    std::tm local{};
    if (localtime_r(&time, &local) == nullptr) {
        local = {};
        local.tm_year = 70;
        local.tm_mday = 1;
    }
    // The year of a hostile time can stand at the end of int.
    const std::int64_t year = std::int64_t{local.tm_year} + 1900;
    return fmt::format("{:4}-{:02}-{:02} {:02}:{:02}:{:02}", year, local.tm_mon + 1, local.tm_mday,
                       local.tm_hour, local.tm_min, local.tm_sec);
}

}  // namespace quorvi
