// The command line of a program that takes options alone, as a table of them.
#pragma once

#include <fmt/format.h>

#include <algorithm>
#include <charconv>
#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <system_error>
#include <type_traits>
#include <vector>

namespace quorvi {

// `Line` is what the program's words come to. It has `bool help` and `std::string error`.
template <typename Line>
struct ProgramOption {
    std::string_view name;   // with its hyphens
    std::string_view value;  // what the help calls its value; empty: takes none
    bool (*apply)(Line& line, const std::string& value);  // false where the value cannot be
    std::string_view help;
};

// A decimal number that is the whole of the text; false where it is none or does not fit.
template <typename Number>
[[nodiscard]] bool ReadNumber(const std::string& text, Number& number) {
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    return error == std::errc() && end == text.data() + text.size();
}

// Applies the options among the words, in their order. Ends at "--help" or "-h", which sets `help`,
// and at the first word that cannot be used, of which `error` says why. The program's name is not
// among the words.
template <typename Line>
void ReadOptions(const std::vector<std::string>& words,
                 std::type_identity_t<std::span<const ProgramOption<Line>>> options, Line& line) {
    for (std::size_t i = 0; i < words.size(); ++i) {
        if (words[i] == "--help" || words[i] == "-h") {
            line.help = true;
            return;
        }
        const auto option = std::ranges::find(options, words[i], &ProgramOption<Line>::name);
        if (option == options.end()) {
            line.error = fmt::format("unknown option {}", words[i]);
            return;
        }
        if (!option->value.empty() && i + 1 == words.size()) {
            line.error = fmt::format("{} needs {}", option->name, option->value);
            return;
        }
        const std::string value = option->value.empty() ? "" : words[++i];
        if (!option->apply(line, value)) {
            line.error = fmt::format("{} cannot be {}", option->name, value);
            return;
        }
    }
}

// A line for each, the options in a column of `width` bytes.
template <typename Line>
[[nodiscard]] std::string OptionsHelp(std::span<const ProgramOption<Line>> options, int width) {
    std::string lines;
    for (const ProgramOption<Line>& option : options) {
        lines += fmt::format("  {:<{}} {}\n", fmt::format("{} {}", option.name, option.value),
                             width, option.help);
    }
    return lines;
}

}  // namespace quorvi
