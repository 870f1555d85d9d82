// The captions of service numbers. ANSI; the texts live as long as the process; empty for a number
// without a row. Any thread.
#pragma once

#include <string_view>

namespace quorvi {

[[nodiscard]] std::string_view ThreeDigitService(int number);
[[nodiscard]] std::string_view FiveDigitService(int number);
[[nodiscard]] std::string_view TenDigitService(std::string_view number);

}  // namespace quorvi
