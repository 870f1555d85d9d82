// What command 871602 cleans beside the caches of applications: one flag each. The one table of
// them: the page, the command line and the simulated phone go by it.
#pragma once

#include <array>
#include <cstddef>
#include <string_view>

namespace quorvi {

struct FixedCleanItem {
    std::u8string_view name;
    std::u8string_view explanation;
    std::u8string_view period;  // how often cleaning it is recommended
    std::string_view option;    // on the command line, and in logs
};

// In the order of their flags, which is that of the page's first rows.
inline constexpr std::array<FixedCleanItem, 3> kFixedCleanItems{{
    {u8"浏览器搜索", u8"删除系统自带浏览器的搜索记录", u8"随时", "browser-searches"},
    {u8"浏览器历史", u8"删除系统自带浏览器的历史记录", u8"随时", "browser-history"},
    {u8"Market搜索", u8"删除Android Market搜索记录", u8"每月", "market-searches"},
}};

// Which of them are to be cleaned.
using FixedCleanFlags = std::array<bool, kFixedCleanItems.size()>;

}  // namespace quorvi
