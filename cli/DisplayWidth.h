// How much room a text takes on a terminal.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace quorvi::cli {

// Cells of a terminal: 2 for a wide character such as a Chinese one, 0 for a combining one, else 1.
[[nodiscard]] std::size_t DisplayWidth(std::string_view utf8);

// `utf8` with a blank for each control character, so that what a phone sends cannot steer the
// terminal, and without blanks at its end.
[[nodiscard]] std::string OneLine(std::string_view utf8);

}  // namespace quorvi::cli
