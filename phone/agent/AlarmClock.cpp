#include "phone/agent/AlarmClock.h"

#include <fmt/format.h>

#include <algorithm>
#include <utility>

#include "base/Utf8.h"
#include "phone/agent/HostileTexts.h"
#include "phone/agent/LocalTime.h"

namespace quorvi::phone {
namespace {

struct Tone {
    std::string_view alert;
    std::u8string_view title;
};
constexpr Tone kTones[] = {
    {"content://settings/system/alarm_alert", u8"默认铃声 (晨光)"},
    {"content://media/internal/audio/media/4", u8"晨光"},
    {"content://media/internal/audio/media/7", u8"布谷鸟"},
    {"content://media/internal/audio/media/11", u8"老式闹钟"},
    {"content://media/external/audio/media/238", u8"远山如黛"},
};

constexpr std::uint32_t kWorkdays = 0x1F;
constexpr std::uint32_t kWeekend = 0x60;
constexpr std::uint32_t kEveryDay = 0x7F;

struct DeliveredAlarm {
    std::uint32_t hour;
    std::uint32_t minute;
    std::uint32_t days;
    std::uint32_t enabled;
    std::uint32_t vibrate;
    std::u8string_view label;
    std::string_view alertTime;  // local; empty: none
    std::size_t tone;
};
constexpr DeliveredAlarm kAlarms[] = {
    {7, 5, kWorkdays, 1, 1, u8"起床上班", "2011-06-20 07:05:00", 1},
    {7, 15, kWorkdays, 1, 1, u8"真的该起了", "2011-06-20 07:15:00", 3},
    {9, 0, kWeekend, 0, 0, u8"周末懒觉", "", 2},
    {12, 30, kWorkdays, 1, 0, u8"午饭后给妈妈打电话", "2011-06-20 12:30:00", 0},
    {0, 0, 0, 0, 1, u8"抢火车票", "", 3},
    {21, 30, kEveryDay, 1, 1, u8"吃药", "2011-06-19 21:30:00", 0},
    {6, 10, 0x20, 1, 0, u8"徒步小队集合（西站南口）", "2011-06-25 06:10:00", 4},
    {18, 0, 0x09, 1, 1, u8"接孩子放学", "2011-06-20 18:00:00", 2},
    {23, 59, 0, 0, 0, u8"还信用卡", "", 0},
};

constexpr std::uint32_t kMinutesOfADay = 24 * 60;

}  // namespace

Alarm* AlarmClock::Find(std::uint64_t id) {
    const auto found = std::ranges::find(alarms, id, &Alarm::id);
    return found == alarms.end() ? nullptr : &*found;
}

Alarm& AlarmClock::Add(Alarm alarm) {
    alarm.id = ++lastId_;
    return alarms.emplace_back(std::move(alarm));
}

std::string ToneTitle(std::string_view alert) {
    const auto* found = std::ranges::find(kTones, alert, &Tone::alert);
    return found == std::end(kTones) ? std::string() : Utf8(found->title);
}

AlarmClock DeliveredAlarms() {
    AlarmClock clock;
    for (const auto& [hour, minute, days, enabled, vibrate, label, alertTime, tone] : kAlarms) {
        clock.Add({.hour = hour,
                   .minute = minute,
                   .days = days,
                   .enabled = enabled,
                   .vibrate = vibrate,
                   .label = Utf8(label),
                   .alertTime = alertTime.empty() ? 0 : LocalMilliseconds(alertTime),
                   .alert = std::string(kTones[tone].alert)});
    }
    return clock;
}

AlarmClock LargeAlarmClock(std::uint32_t count) {
    AlarmClock clock;
    clock.alarms.reserve(count);
    for (std::uint32_t i = 0; i < count; ++i) {
        const std::uint32_t minute = i * 7 % kMinutesOfADay;
        clock.Add({.hour = minute / 60,
                   .minute = minute % 60,
                   .days = i % (kEveryDay + 1),
                   .enabled = i % 3 == 0 ? 0u : 1u,
                   .vibrate = i % 2,
                   .label = fmt::format("{} {}", Utf8(u8"闹铃"), i + 1),
                   .alert = std::string(kTones[i % std::size(kTones)].alert)});
    }
    return clock;
}

void AddHostileAlarms(AlarmClock& clock) {
    for (const std::string& harm : HostileTexts()) {
        clock.Add({.hour = 25, .minute = 60, .days = 0xFF, .label = harm, .alert = harm});
    }
    clock.Add({.hour = UINT32_MAX,
               .minute = UINT32_MAX,
               .days = UINT32_MAX,
               .enabled = 2,
               .vibrate = UINT32_MAX,
               .label = "numbers that are none",
               .alertTime = UINT64_MAX,
               .alert = "x"});
}

}  // namespace quorvi::phone
