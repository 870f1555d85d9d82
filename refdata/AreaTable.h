// From a telephone area code to its place and its postal code.
#pragma once

#include <string_view>

namespace quorvi {

// The plain city for the four municipalities and for Guangzhou, province and city otherwise;
// "没有记录" for a code without a row, "未知地区" for 1234. ANSI; the text lives as long as the
// process. Any thread.
[[nodiscard]] std::string_view AreaName(int code);

// "没有找到" for a code without a row, 1234 included. ANSI; the text lives as long as the process.
// Any thread.
[[nodiscard]] std::string_view PostalCode(int code);

// Whether the code has a row.
[[nodiscard]] bool HasArea(int code);

}  // namespace quorvi
