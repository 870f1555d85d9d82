// What a command of quorvictl is. To add one: a file that defines its function, and its row in
// CommandTable.cpp.
#pragma once

#include <array>
#include <cstddef>
#include <filesystem>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "agent/AgentAddress.h"
#include "base/Deployment.h"
#include "online/HttpTransfer.h"
#include "refdata/NumberAttribution.h"

namespace quorvi::cli {

class Output;

// The status that the program ends with.
enum class Status : int {
    done = 0,
    wrongUsage = 1,
    noLink = 2,         // no link, a connection error, no answer, or a refusal of the phone
    notFound = 3,       // what was named is not there
    interrupted = 130,  // by Ctrl+C; as a shell counts it
};

// What follows the command's words on the command line, in UTF-8 as it was typed.
struct Arguments {
    std::vector<std::string> operands;
    // "--serial" to its value; of one that takes none, to nothing.
    std::map<std::string, std::string, std::less<>> options;

    [[nodiscard]] std::optional<std::string> Option(std::string_view name) const {
        const auto found = options.find(name);
        return found == options.end() ? std::nullopt : std::optional(found->second);
    }
    [[nodiscard]] bool Has(std::string_view option) const { return options.contains(option); }
};

// No upper limit of operands.
inline constexpr std::size_t kAnyNumber = static_cast<std::size_t>(-1);

// What commands work with beside their arguments: made once, at the program's start.
struct Context {
    AgentAddress agent;
    AttributionOf attribution;
    Deployment deployment{};        // where the site is
    HttpLimits limits{};            // how long it is waited for
    std::filesystem::path tasks{};  // the table of the downloads
};

// One row of the table of commands.
struct Command {
    std::string_view words;                     // one word, or two as in "contacts show"
    std::string_view synopsis{};                // of the operands and options, as the help shows it
    std::u8string_view summary{};               // one line
    std::size_t fewest = 0;                     // operands
    std::size_t most = 0;                       // operands
    std::array<std::string_view, 6> options{};  // those that take a value; --json goes with all
    std::array<std::string_view, 4> flags{};    // those that take none
    Status (*run)(const Arguments& arguments, const Context& context, Output& output) = nullptr;
};

}  // namespace quorvi::cli
