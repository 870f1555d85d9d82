// Texts of files in whatever character set their writers chose, turned to UTF-8.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace quorvi {

// Puts a character, by its number in Unicode, behind `utf8`.
void AppendUtf8(char32_t character, std::string& utf8);

[[nodiscard]] bool IsWellFormedUtf8(std::string_view text);

// `text` with U+FFFD in the place of each sequence that is no UTF-8.
[[nodiscard]] std::string WellFormedUtf8(std::string text);

// `bytes` in the character set of this name ("GB2312", "iso-8859-1"; any name that mail and old
// phones use) as UTF-8, malformed sequences as U+FFFD. Nothing when no set has that name.
[[nodiscard]] std::optional<std::string> ToUtf8From(std::string_view charset,
                                                    std::string_view bytes);

// The same for a text that does not say its set: UTF-8 where it is that, else GB18030 where that
// has all of it, else Windows-1252.
[[nodiscard]] std::string GuessedToUtf8(std::string bytes);

}  // namespace quorvi
