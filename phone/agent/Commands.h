// The commands that the agent answers, one table; each feature group gives its rows.
//
// To add a group: write its data and handlers in a file of its own, declare its rows below, and
// name them in AllCommands.
#pragma once

#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

#include "agent/AgentCommand.h"
#include "phone/agent/Exchange.h"

namespace quorvi::phone {

// How a request's end is known, and where its items begin.
enum class RequestForm {
    bare,            // code
    framed,          // code, total, item count, items
    conversation,    // code, conversation id: 8 bytes
    runApplication,  // code, 1, total, name: the count in front of the total
    clean,           // code, total, count of names, three flag bytes, names
};

using Handler = void (*)(Exchange&);

struct AgentCommandRow {
    AgentCommand command;
    std::string_view name;
    RequestForm form;
    Handler handler;
};

[[nodiscard]] std::span<const AgentCommandRow> PhoneCommands();
[[nodiscard]] std::span<const AgentCommandRow> ContactCommands();
[[nodiscard]] std::span<const AgentCommandRow> GroupCommands();
[[nodiscard]] std::span<const AgentCommandRow> MessageCommands();
[[nodiscard]] std::span<const AgentCommandRow> CallCommands();
[[nodiscard]] std::span<const AgentCommandRow> AlarmCommands();
[[nodiscard]] std::span<const AgentCommandRow> BookmarkCommands();
[[nodiscard]] std::span<const AgentCommandRow> SettingCommands();
[[nodiscard]] std::span<const AgentCommandRow> ProcessCommands();
[[nodiscard]] std::span<const AgentCommandRow> AutoStartCommands();
[[nodiscard]] std::span<const AgentCommandRow> FileCommands();
[[nodiscard]] std::span<const AgentCommandRow> CleanCommands();
[[nodiscard]] std::span<const AgentCommandRow> AppCommands();

// Nothing for a code outside the table.
[[nodiscard]] const AgentCommandRow* FindCommand(std::uint32_t code);
// By its name or its code in digits, as people and scripts give it.
[[nodiscard]] const AgentCommandRow* FindCommand(std::string_view nameOrCode);

// Runs a command on a whole request of its form: every deviation of the frame from what the form
// asks is named in `deviations`.
struct Outcome {
    AgentReply reply;
    std::vector<std::string> deviations;
    std::string note;
};
[[nodiscard]] Outcome RunCommand(const AgentCommandRow& row, AgentData& data,
                                 std::span<const std::byte> request);

}  // namespace quorvi::phone
