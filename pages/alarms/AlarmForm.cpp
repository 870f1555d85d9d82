#include "pages/alarms/AlarmForm.h"

#include "pages/alarms/AlarmDays.h"

namespace quorvi {
namespace {

constexpr std::uint32_t kHalfDayHours = 12;
constexpr int kAfternoon = 1;

// The combo's index, or kNoEntry where it has no such entry.
int EntryOf(std::int64_t index, int entries) {
    return index >= 0 && index < entries ? static_cast<int>(index) : kNoEntry;
}

void AddFields(RequestBuilder& request, const AlarmSettings& settings) {
    request.AddUInt32(settings.hour)
        .AddUInt32(settings.minute)
        .AddUInt32(settings.days)
        .AddUInt64(0)  // alert time
        .AddUInt32(settings.enabled ? 1 : 0)
        .AddUInt32(settings.vibrate ? 1 : 0)
        .AddText(settings.label)
        .AddText(settings.alert);
}

}  // namespace

AlarmForm FormOf(const AlarmRow& row) {
    AlarmForm form;
    form.halfDay = row.hour > kHalfDayHours ? kAfternoon : 0;
    const std::uint32_t hour = form.halfDay == kAfternoon ? row.hour - kHalfDayHours : row.hour;
    form.hourEntry = EntryOf(std::int64_t{hour} - 1, kAlarmHourEntries);
    form.minuteEntry = EntryOf(row.minute, kAlarmMinuteEntries);
    form.days = row.days & kEveryAlarmDay;
    form.enabled = row.enabled;
    form.vibrate = row.vibrate;
    form.label = row.label;
    form.alert = row.alert;
    return form;
}

AlarmSettings SettingsOf(const AlarmForm& form) {
    const auto hour = static_cast<std::uint32_t>(form.hourEntry + 1);
    return {
        .hour = form.halfDay == kAfternoon ? hour + kHalfDayHours : hour,
        .minute = static_cast<std::uint32_t>(form.minuteEntry),
        .days = form.days,
        .enabled = form.enabled,
        .vibrate = form.vibrate,
        .label = form.label,
        .alert = form.alert,
    };
}

bool CanBeSent(const AlarmSettings& settings) {
    return !settings.label.empty() && !settings.alert.empty();
}

Bytes AddAlarmRequest(const AlarmSettings& settings) {
    RequestBuilder request(AgentCommand::addAlarm);
    AddFields(request.BeginItem(), settings);
    return request.Take();
}

Bytes UpdateAlarmRequest(std::uint32_t id, const AlarmSettings& settings) {
    RequestBuilder request(AgentCommand::updateAlarm);
    AddFields(request.BeginItem().AddUInt32(id), settings);
    return request.Take();
}

}  // namespace quorvi
