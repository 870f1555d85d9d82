// What the program takes from its command line.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace quorvi {

// The whole text of a command line: the arguments behind the program's name, blanks between them.
[[nodiscard]] std::string CommandText(const std::vector<std::string>& arguments);

// Whether a command line starts the program hidden: the part after its last "/" is "hide", in any
// mix of case. A plain "/hide" does, and so does a link that ends in /hide; the rest of a link is
// ignored. "hide" without a "/" is a normal start.
[[nodiscard]] bool StartsHidden(std::string_view commandText);

}  // namespace quorvi
