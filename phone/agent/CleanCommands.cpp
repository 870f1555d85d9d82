// The cleaner: looking for caches, and cleaning.
#include <fmt/format.h>

#include <array>

#include "phone/agent/AgentData.h"
#include "phone/agent/Commands.h"

namespace quorvi::phone {
namespace {

void ScanForCleaning(Exchange& exchange) {
    for (const Cache& cache : exchange.data.cleaning.caches) {
        exchange.reply.UInt64(cache.bytes)
            .Text(cache.name)
            .Text(cache.package)
            .UInt64(cache.icon ? cache.icon->size() : 0);
        if (cache.icon) {
            exchange.reply.Raw(*cache.icon);
        }
    }
}

// A name without a cache is no deviation: the application may have emptied it. Nor is a request
// that names nothing, which the suite sends when nothing is chosen.
void Clean(Exchange& exchange) {
    exchange.reply.Word(1);
    exchange.note = "cleaned";
    for (std::size_t i = 0; i < kFixedCleanItems.size(); ++i) {
        const std::uint8_t flag = exchange.request.Byte();
        if (flag > 1) {
            exchange.Deviate(fmt::format("flag {} of {}", flag, kFixedCleanItems[i].option));
        }
        if (flag == 1) {
            exchange.note += fmt::format(" {}: {}", kFixedCleanItems[i].option,
                                         exchange.data.cleaning.Forget(i));
        }
    }
    for (std::uint32_t i = 0; i < exchange.items && !exchange.request.Overran(); ++i) {
        const std::string package = exchange.request.Text();
        if (!exchange.request.Overran()) {
            exchange.note += fmt::format(" {}: {}", package, exchange.data.cleaning.Clean(package));
        }
    }
}

constexpr std::array kRows{
    AgentCommandRow{AgentCommand::scanForCleaning, "scanForCleaning", RequestForm::bare,
                    ScanForCleaning},
    AgentCommandRow{AgentCommand::clean, "clean", RequestForm::clean, Clean},
};

}  // namespace

std::span<const AgentCommandRow> CleanCommands() {
    return kRows;
}

}  // namespace quorvi::phone
