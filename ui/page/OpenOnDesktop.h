// Has the desktop open what belongs to another program.
#pragma once

#include <QString>

namespace quorvi {

// Opens an address with the program that the desktop has for it: a browser for a web page. Starts
// that program and does not wait for it. An address without a scheme is taken as its user would
// type it. False when it is no address, or the desktop has no program for it. The window's thread.
bool OpenOnDesktop(const QString& address);

// The address at which the web is searched for a text.
[[nodiscard]] QString WebSearchAddress(const QString& text);

}  // namespace quorvi
