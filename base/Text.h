// Text in memory is ANSI: bytes of the program's code page in std::string. UTF-8 exists only at the
// border (a socket, a JSON document, Config.db) and in the program's own literals, which are
// char8_t so that the compiler tells the two apart.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace quorvi {

// The code page that text in memory is in. GB18030 reads each GBK byte sequence alike and loses no
// character.
enum class CodePage { gbk, gb18030 };

// Chooses the program's code page. Called once at the start, before any other thread exists.
void SetCodePage(CodePage codePage);
[[nodiscard]] CodePage ActiveCodePage();

// Re-encodes text in place from UTF-8 to the program's code page. A character that the code page
// lacks, and each malformed sequence, becomes the default character '?'. Any thread.
void Utf8ToAnsi(std::string& text);
// Re-encodes text in place from the program's code page to UTF-8. A byte sequence that is no
// character becomes U+FFFD. Any thread.
void AnsiToUtf8(std::string& text);

// The same as values.
[[nodiscard]] std::string ToAnsi(std::string_view utf8);
[[nodiscard]] std::string ToUtf8(std::string_view ansi);

// True when a text comes back from the program's code page as it was: it holds no character that
// the code page lacks, and no malformed sequence. Any thread.
[[nodiscard]] bool FitsCodePage(std::string_view utf8);

// A text of the program's own, as it is kept in memory.
[[nodiscard]] std::string Ansi(std::u8string_view text);

// `text` cut into pieces at each occurrence of `separator`; n separators give n + 1 pieces.
[[nodiscard]] std::vector<std::string_view> SplitAt(std::string_view text, char separator);

// `text` without the blanks, tabs, carriage returns and line feeds at its ends.
[[nodiscard]] std::string_view Trim(std::string_view text);
[[nodiscard]] std::string_view TrimRight(std::string_view text);

// ASCII letters in lower case, all other bytes as they are.
[[nodiscard]] std::string ToLower(std::string_view text);

// Equality without regard to the case of ASCII letters.
[[nodiscard]] bool EqualsNoCase(std::string_view a, std::string_view b);

// `text` with each occurrence of `from` replaced by `to`. An empty `from` changes nothing.
[[nodiscard]] std::string ReplaceAll(std::string_view text, std::string_view from,
                                     std::string_view to);

// The number at the start of text as C's atoi reads it: leading blanks, a sign, digits; 0 where
// there is none. A number beyond 32 bits is held at the nearest end instead of overflowing.
[[nodiscard]] int ToInt(std::string_view text);

}  // namespace quorvi
