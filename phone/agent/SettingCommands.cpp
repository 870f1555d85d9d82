// The phone's settings: reading them all, writing one.
#include <fmt/format.h>

#include <array>

#include "phone/agent/AgentData.h"
#include "phone/agent/Commands.h"

namespace quorvi::phone {
namespace {

// What the agent acknowledges a change with.
constexpr std::uint32_t kDone = 1;
constexpr std::uint32_t kRefused = 0;

void ReadSettings(Exchange& exchange) {
    std::array<std::uint32_t, kPhoneSettings> fields{};
    for (const PhoneSettingRow& row : PhoneSettingTable()) {
        fields[row.place] = exchange.data.Setting(row.key);
    }
    for (const std::uint32_t field : fields) {
        exchange.reply.UInt32(field);
    }
}

// A key or a value that the phone does not know changes nothing.
void WriteSetting(Exchange& exchange) {
    exchange.ExpectOneItem();
    exchange.reply.Word(kRefused);
    const std::uint32_t key = exchange.request.UInt32();
    const std::uint32_t value = exchange.request.UInt32();
    if (exchange.request.Overran()) {
        return;
    }
    if (key >= kPhoneSettings) {
        exchange.Deviate(fmt::format("no setting {}", key));
        return;
    }
    const PhoneSettingRow& row = RowOf(PhoneSetting{key});
    exchange.note = fmt::format("{} {}", row.name, value);
    if (!CanBeWritten(row, value)) {
        exchange.Deviate(fmt::format("{} cannot be {}", row.name, value));
        return;
    }
    exchange.data.Setting(row.key) = value;
    exchange.reply.Word(kDone);
}

constexpr std::array kRows{
    AgentCommandRow{AgentCommand::readSettings, "readSettings", RequestForm::bare, ReadSettings},
    AgentCommandRow{AgentCommand::writeSetting, "writeSetting", RequestForm::framed, WriteSetting},
};

}  // namespace

std::span<const AgentCommandRow> SettingCommands() {
    return kRows;
}

}  // namespace quorvi::phone
