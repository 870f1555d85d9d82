// The suite's own version.
#pragma once

#include <string_view>

namespace quorvi {

// As the build gives it: "1.0". ASCII.
[[nodiscard]] std::string_view ProductVersion();

}  // namespace quorvi
