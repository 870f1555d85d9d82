// What starts on which event: the list.
#include <array>

#include "phone/agent/AgentData.h"
#include "phone/agent/Commands.h"

namespace quorvi::phone {
namespace {

constexpr std::uint32_t kReserved = 0;

void ListAutoStart(Exchange& exchange) {
    for (const AutoStart& start : exchange.data.autoStarts) {
        exchange.reply.UInt32(start.event).Text(start.name).Text(start.package).UInt32(kReserved);
    }
}

constexpr std::array kRows{
    AgentCommandRow{AgentCommand::listAutoStart, "listAutoStart", RequestForm::bare, ListAutoStart},
};

}  // namespace

std::span<const AgentCommandRow> AutoStartCommands() {
    return kRows;
}

}  // namespace quorvi::phone
