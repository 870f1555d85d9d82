// The one border between text in memory (ANSI) and text in widgets (QString).
#pragma once

#include <QString>
#include <string>
#include <string_view>

namespace quorvi {

[[nodiscard]] QString ToQString(std::string_view ansi);
// A text of the program's own.
[[nodiscard]] QString ToQString(std::u8string_view text);
// A text from a peer as a cell of a list shows it, in one line: a line break in it is a blank, and
// NUL is nothing. As much of it as a cell can show, and “…” where there is more: so a name of a
// megabyte is not converted at each painting.
[[nodiscard]] QString ToShownQString(std::string_view ansi);
[[nodiscard]] std::string FromQString(const QString& text);

// True when a text that was typed comes back from FromQString as it was: no character of it becomes
// '?' when it is saved or sent.
[[nodiscard]] bool FitsCodePage(const QString& text);

}  // namespace quorvi
