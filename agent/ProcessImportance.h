// How important the phone takes a process to be, by the codes of its process manager, which command
// 871801 sends. The one table of them: the page, the command line and the simulated phone go by it.
#pragma once

#include <array>
#include <cstdint>
#include <string_view>

namespace quorvi {

struct ProcessImportance {
    std::uint32_t code;
    std::u8string_view text;
};

// 130 and 200 have the same text: kept on purpose, since a user sees both alike
// (ImportanceText.VisibleAndPerceptibleReadAlike).
inline constexpr std::array<ProcessImportance, 6> kProcessImportances{{
    {100, u8"前台"},
    {130, u8"可见"},
    {200, u8"可见"},
    {300, u8"服务"},
    {400, u8"后台"},
    {500, u8"置空"},
}};

// Of any other code.
inline constexpr std::u8string_view kUnknownImportance = u8"未知";

}  // namespace quorvi
