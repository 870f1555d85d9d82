// Telling a simulated phone what to do, one line a command.
#pragma once

#include <string>
#include <string_view>

namespace quorvi::phone {

class Phone;

inline constexpr std::string_view kControlOk = "ok\n";

// Runs one command and returns its answer: lines of data if it has any, then "ok", or one line
// "error: …"; each line ends with a line feed. The loop's thread.
[[nodiscard]] std::string Control(Phone& phone, std::string_view line);

// The commands with what they do, for the program's help.
[[nodiscard]] std::string ControlHelp();

}  // namespace quorvi::phone
