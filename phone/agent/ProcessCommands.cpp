// The processes: the list, ending some, the free memory.
#include <fmt/format.h>

#include <array>

#include "phone/agent/AgentData.h"
#include "phone/agent/Commands.h"

namespace quorvi::phone {
namespace {

void ListProcesses(Exchange& exchange) {
    for (const Process& process : exchange.data.processes.running) {
        exchange.reply.UInt64(process.memory)
            .UInt32(process.importance)
            .UInt32(process.cpu)
            .UInt32(process.pid)
            .UInt32(process.system ? 1 : 0)
            .Text(process.name)
            .Text(process.package)
            .UInt64(process.icon ? process.icon->size() : 0);
        if (process.icon) {
            exchange.reply.Raw(*process.icon);
        }
    }
}

// A name of which nothing runs is no deviation: the process may have ended by itself. Nor is a
// count of 0, which the suite sends when nothing is chosen.
void EndProcesses(Exchange& exchange) {
    exchange.reply.Word(1);
    exchange.note = "processes";
    for (std::uint32_t i = 0; i < exchange.items && !exchange.request.Overran(); ++i) {
        const std::string package = exchange.request.Text();
        if (!exchange.request.Overran()) {
            exchange.note += fmt::format(" {}: {}", package, exchange.data.processes.End(package));
        }
    }
}

void FreeMemory(Exchange& exchange) {
    exchange.reply.Word(exchange.data.processes.freeMemory);
}

constexpr std::array kRows{
    AgentCommandRow{AgentCommand::listProcesses, "listProcesses", RequestForm::bare, ListProcesses},
    AgentCommandRow{AgentCommand::endProcesses, "endProcesses", RequestForm::framed, EndProcesses},
    AgentCommandRow{AgentCommand::freeMemory, "freeMemory", RequestForm::bare, FreeMemory},
};

}  // namespace

std::span<const AgentCommandRow> ProcessCommands() {
    return kRows;
}

}  // namespace quorvi::phone
