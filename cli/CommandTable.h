// All commands of quorvictl.
#pragma once

#include <span>
#include <string>

#include "cli/Command.h"

namespace quorvi::cli {

[[nodiscard]] std::span<const Command> AllCommands();

// How the program is called, a line a command. ANSI.
[[nodiscard]] std::string HelpText();
[[nodiscard]] std::string UsageOf(const Command& command);

}  // namespace quorvi::cli
