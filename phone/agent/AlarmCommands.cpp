// The alarms: listing, adding, changing, deleting.
#include <fmt/format.h>

#include <array>

#include "phone/agent/AgentData.h"
#include "phone/agent/Commands.h"

namespace quorvi::phone {
namespace {

void ListAlarms(Exchange& exchange) {
    for (const Alarm& alarm : exchange.data.clock.alarms) {
        exchange.reply.UInt64(alarm.id)
            .UInt32(alarm.hour)
            .UInt32(alarm.minute)
            .UInt32(alarm.days)
            .UInt32(alarm.enabled)
            .UInt32(alarm.vibrate)
            .Text(alarm.label);
        const std::string tone = ToneTitle(alarm.alert);
        tone.empty() ? exchange.reply.AbsentText() : exchange.reply.Text(tone);
        exchange.reply.UInt64(alarm.alertTime).Text(alarm.alert);
    }
}

// The fields that a new and a changed alarm have in common; names what no clock can be set to.
Alarm ReadAlarm(Exchange& exchange) {
    RequestReader& request = exchange.request;
    Alarm alarm;
    alarm.hour = request.UInt32();
    alarm.minute = request.UInt32();
    alarm.days = request.UInt32();
    alarm.alertTime = request.UInt64();
    alarm.enabled = request.UInt32();
    alarm.vibrate = request.UInt32();
    alarm.label = request.Text();
    alarm.alert = request.Text();
    if (alarm.alertTime != 0) {
        exchange.Deviate(fmt::format("alert time {}", alarm.alertTime));
    }
    if (alarm.enabled > 1 || alarm.vibrate > 1) {
        exchange.Deviate(fmt::format("switches {} and {}", alarm.enabled, alarm.vibrate));
    }
    return alarm;
}

std::string NoteOf(std::uint64_t id, const Alarm& alarm) {
    return fmt::format("alarm {} {:02}:{:02} \"{}\"", id, alarm.hour, alarm.minute, alarm.label);
}

void AddAlarm(Exchange& exchange) {
    exchange.ExpectOneItem();
    exchange.reply.Word(1);
    Alarm alarm = ReadAlarm(exchange);
    if (!exchange.request.Overran()) {
        const Alarm& added = exchange.data.clock.Add(std::move(alarm));
        exchange.note = NoteOf(added.id, added);
    }
}

void UpdateAlarm(Exchange& exchange) {
    exchange.ExpectOneItem();
    exchange.reply.Word(1);
    const std::uint32_t id = exchange.request.UInt32();
    Alarm alarm = ReadAlarm(exchange);
    Alarm* known = exchange.data.clock.Find(id);
    exchange.note = NoteOf(id, alarm) + (known ? "" : ", unknown");
    if (known && !exchange.request.Overran()) {
        alarm.id = id;
        *known = std::move(alarm);
    }
}

void DeleteAlarms(Exchange& exchange) {
    exchange.reply.Word(1);
    exchange.note = "alarms";
    for (std::uint32_t i = 0; i < exchange.items && !exchange.request.Overran(); ++i) {
        const std::uint32_t id = exchange.request.UInt32();
        exchange.note += fmt::format(" {}", id);
        if (!exchange.request.Overran()) {
            std::erase_if(exchange.data.clock.alarms,
                          [&](const Alarm& alarm) { return alarm.id == id; });
        }
    }
}

constexpr std::array kRows{
    AgentCommandRow{AgentCommand::listAlarms, "listAlarms", RequestForm::bare, ListAlarms},
    AgentCommandRow{AgentCommand::addAlarm, "addAlarm", RequestForm::framed, AddAlarm},
    AgentCommandRow{AgentCommand::updateAlarm, "updateAlarm", RequestForm::framed, UpdateAlarm},
    AgentCommandRow{AgentCommand::deleteAlarms, "deleteAlarms", RequestForm::framed, DeleteAlarms},
};

}  // namespace

std::span<const AgentCommandRow> AlarmCommands() {
    return kRows;
}

}  // namespace quorvi::phone
