// What a user reads and types beside quorvictl, made from its table of commands, so that it is
// never behind it.
#pragma once

#include <span>
#include <string>
#include <string_view>

#include "cli/Command.h"

namespace quorvi::cli {

// The manual page of section 1, as the formatter of manual pages reads it; UTF-8.
[[nodiscard]] std::string ManualPage(std::span<const Command> commands, std::string_view version);

// A script for bash that completes a command's words, then its options, then names of files.
[[nodiscard]] std::string BashCompletion(std::span<const Command> commands);

}  // namespace quorvi::cli
