// The one border between text in memory (ANSI) and text in widgets (QString).
#pragma once

#include <QString>
#include <string>
#include <string_view>

namespace quorvi {

[[nodiscard]] QString ToQString(std::string_view ansi);
// A text of the program's own.
[[nodiscard]] QString ToQString(std::u8string_view text);
// The beginning of a text from a peer, as much as the cell of a list can show, and “…” where there
// is more: so a name of a megabyte is not converted at each painting.
[[nodiscard]] QString ToShownQString(std::string_view ansi);
[[nodiscard]] std::string FromQString(const QString& text);

// True when a text that was typed comes back from FromQString as it was: no character of it becomes
// '?' when it is saved or sent.
[[nodiscard]] bool FitsCodePage(const QString& text);

}  // namespace quorvi
