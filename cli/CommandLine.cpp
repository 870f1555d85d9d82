#include "cli/CommandLine.h"

#include <algorithm>
#include <charconv>
#include <utility>

#include "base/Text.h"
#include "cli/CommandTable.h"

namespace quorvi::cli {
namespace {

// The command whose words the line starts with, and how many words that takes.
std::pair<const Command*, std::size_t> FindCommand(std::span<const std::string> words,
                                                   std::span<const Command> commands) {
    const std::string& one = words[0];
    const std::string two = words.size() > 1 ? words[0] + " " + words[1] : std::string();
    for (const Command& command : commands) {
        if (command.words == two) {
            return {&command, 2};
        }
        if (command.words == one) {
            return {&command, 1};
        }
    }
    return {nullptr, 0};
}

UsageError Refuse(const Command& command, std::u8string_view why, std::string_view what = {}) {
    return {Ansi(why) + ToAnsi(what) + "\n" + UsageOf(command)};
}

// "-" alone stands for standard input, and a minus sign before a digit for a number.
bool IsOption(std::string_view word) {
    return word.size() > 1 && word[0] == '-' && !(word[1] >= '0' && word[1] <= '9');
}

bool IsOneOf(std::span<const std::string_view> options, std::string_view option) {
    return !option.empty() && std::find(options.begin(), options.end(), option) != options.end();
}

std::variant<Call, HelpWanted, VersionWanted, UsageError> ReadArguments(
    const Command& command, std::span<const std::string> words) {
    Call call{&command, {}, false};
    bool options = true;
    for (std::size_t i = 0; i < words.size(); ++i) {
        const std::string& word = words[i];
        if (!options || !IsOption(word)) {
            call.arguments.operands.push_back(word);
        } else if (word == "--") {
            options = false;
        } else if (word == "--help" || word == "-h") {
            return HelpWanted{};
        } else if (word == "--json") {
            call.json = true;
        } else {
            const std::size_t equals = word.find('=');
            const std::string name = word.substr(0, equals);
            const bool inside = equals != std::string::npos;
            if (IsOneOf(command.flags, name)) {
                if (inside) {
                    return Refuse(command, u8"选项不带值: ", name);
                }
                call.arguments.options[name] = {};
                continue;
            }
            if (!IsOneOf(command.options, name)) {
                return Refuse(command, u8"未知选项 ", name);
            }
            if (!inside && i + 1 == words.size()) {
                return Refuse(command, u8"选项缺少值: ", name);
            }
            call.arguments.options[name] = inside ? word.substr(equals + 1) : words[++i];
        }
    }
    if (call.arguments.operands.size() < command.fewest) {
        return Refuse(command, u8"参数太少");
    }
    if (call.arguments.operands.size() > command.most) {
        return Refuse(command, u8"多余的参数 ", call.arguments.operands[command.most]);
    }
    return call;
}

}  // namespace

std::variant<Call, HelpWanted, VersionWanted, UsageError> ReadCommandLine(
    std::span<const std::string> words, std::span<const Command> commands) {
    if (words.empty()) {
        return UsageError{Ansi(u8"缺少命令，--help 列出所有命令")};
    }
    if (words[0] == "--help" || words[0] == "-h" || words[0] == "help") {
        return HelpWanted{};
    }
    if (words[0] == "--version") {
        return VersionWanted{};
    }
    const auto [command, count] = FindCommand(words, commands);
    if (command == nullptr) {
        return UsageError{Ansi(u8"未知命令 ") + ToAnsi(words[0]) + Ansi(u8"，--help 列出所有命令")};
    }
    return ReadArguments(*command, words.subspan(count));
}

std::optional<std::uint32_t> ReadId(std::string_view operand) {
    std::uint32_t id = 0;
    const char* end = operand.data() + operand.size();
    const auto [stop, error] = std::from_chars(operand.data(), end, id);
    return error == std::errc() && stop == end ? std::optional(id) : std::nullopt;
}

}  // namespace quorvi::cli
