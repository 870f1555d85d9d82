// The product's own name, as the window, its balloons and its caption show it.
#pragma once

#include <string_view>

namespace quorvi {

inline constexpr std::u8string_view kProductName = u8"奎维掌上工坊";

}  // namespace quorvi
