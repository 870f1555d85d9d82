// The phone's command line, as far as adb and its users ask for it.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "phone/Handset.h"

namespace quorvi::phone {

// Splits at blanks outside quotes; takes off single and double quotes and backslashes.
[[nodiscard]] std::vector<std::string> SplitCommand(std::string_view command);

// Runs one command line and returns what it prints, with the CR LF line ends of a phone's terminal.
// An unknown command prints "NAME: not found".
[[nodiscard]] std::string RunShell(Handset& handset, std::string_view command);

}  // namespace quorvi::phone
