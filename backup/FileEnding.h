// By what a file's format is known.
#pragma once

#include <string>
#include <string_view>

namespace quorvi {

// The ending of a file's name in lower case, without the dot; empty without one, and of a name that
// is nothing else.
[[nodiscard]] std::string EndingOf(std::string_view fileName);

}  // namespace quorvi
