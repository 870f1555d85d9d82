// What the report tells of the suite's version and of the system under it.
#pragma once

#include <string>
#include <string_view>

#include "base/Places.h"

namespace quorvi {

// A text of the system's as the report shows it: at most 40 characters, ASCII letters, digits,
// blanks and ".:;_-+@" as they are, all others as '_'.
[[nodiscard]] std::string FactText(std::string_view text);

// "debian 12" of the system's file os-release: ID and VERSION_ID. Empty where it tells neither.
[[nodiscard]] std::string ParseOsRelease(std::string_view text);

// The versions of the suite and the system, the desktop, the language and the code page, a line
// each. ANSI.
[[nodiscard]] std::string SystemFactsText(const Environment& environment);

}  // namespace quorvi
