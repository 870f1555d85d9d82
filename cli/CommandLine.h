// From the words of a command line to a command and its arguments.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <variant>

#include "cli/Command.h"

namespace quorvi::cli {

struct Call {
    const Command* command = nullptr;
    Arguments arguments;
    bool json = false;
};
struct HelpWanted {};
struct VersionWanted {};
// Why the line is no call of a command, for people. ANSI.
struct UsageError {
    std::string text;
};

// `words` without the program's name. Options may stand anywhere behind the command's words, as
// "--name value" or "--name=value", one that takes no value as "--name"; "--" ends them, and "-" is
// an operand.
[[nodiscard]] std::variant<Call, HelpWanted, VersionWanted, UsageError> ReadCommandLine(
    std::span<const std::string> words, std::span<const Command> commands);

// An operand that is an id: decimal digits alone, within 32 bits; else nothing.
[[nodiscard]] std::optional<std::uint32_t> ReadId(std::string_view operand);

}  // namespace quorvi::cli
