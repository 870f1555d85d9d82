// The call log: the list, deleting some, deleting all.
#include <fmt/format.h>

#include <array>

#include "phone/agent/AgentData.h"
#include "phone/agent/Commands.h"

namespace quorvi::phone {
namespace {

void ListCalls(Exchange& exchange) {
    for (const Call& call : exchange.data.calls) {
        exchange.reply.UInt64(call.id)
            .Text(call.number)
            .UInt64(call.date)
            .UInt64(call.duration)
            .UInt32(call.type)
            .Text(call.name);
    }
}

void DeleteCalls(Exchange& exchange) {
    exchange.reply.Word(1);
    exchange.note = "calls";
    for (std::uint32_t i = 0; i < exchange.items && !exchange.request.Overran(); ++i) {
        const std::uint32_t id = exchange.request.UInt32();
        exchange.note += fmt::format(" {}", id);
        if (!exchange.request.Overran()) {
            std::erase_if(exchange.data.calls, [&](const Call& call) { return call.id == id; });
        }
    }
}

// The suite sends an item count of 1 and no item: kept on purpose, since agents expect that frame
// (CallCommands.DeletingAllSaysOneItemAndHasNone).
void DeleteAllCalls(Exchange& exchange) {
    exchange.ExpectOneItem();
    exchange.reply.Word(1);
    exchange.data.calls.clear();
}

constexpr std::array kRows{
    AgentCommandRow{AgentCommand::listCalls, "listCalls", RequestForm::bare, ListCalls},
    AgentCommandRow{AgentCommand::deleteCalls, "deleteCalls", RequestForm::framed, DeleteCalls},
    AgentCommandRow{AgentCommand::deleteAllCalls, "deleteAllCalls", RequestForm::framed,
                    DeleteAllCalls},
};

}  // namespace

std::span<const AgentCommandRow> CallCommands() {
    return kRows;
}

}  // namespace quorvi::phone
