// The alarm editor's fields, and the requests of a save.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

#include "agent/Request.h"
#include "pages/alarms/AlarmList.h"

namespace quorvi {

// The ring tone of a new alarm: the one that the phone is set to.
inline constexpr std::string_view kDefaultAlarmAlert = "content://settings/system/alarm_alert";

// The entries of the editor's half-day combo. Those of the hour are "1" to "12", those of the
// minute "00" to "59".
inline constexpr std::array<std::u8string_view, 2> kAlarmHalfDays{u8"上午", u8"下午"};
inline constexpr int kAlarmHourEntries = 12;
inline constexpr int kAlarmMinuteEntries = 60;
// Of a combo that shows no entry.
inline constexpr int kNoEntry = -1;

// What a save sends of an alarm; texts are ANSI. At first what the editor for a new alarm saves
// when nothing but the label is filled in.
struct AlarmSettings {
    std::uint32_t hour = 8;
    std::uint32_t minute = 0;
    std::uint32_t days = 0;
    bool enabled = false;
    bool vibrate = false;
    std::string label;
    std::string alert{kDefaultAlarmAlert};

    bool operator==(const AlarmSettings&) const = default;
};

// The fields, ANSI, at first as the editor for a new alarm opens with them.
struct AlarmForm {
    int hourEntry = 7;  // index of the combo, or kNoEntry; so are the next two
    int minuteEntry = 0;
    int halfDay = 0;
    std::uint32_t days = 0;
    bool enabled = false;
    bool vibrate = false;
    std::string label;
    std::string alert{kDefaultAlarmAlert};

    bool operator==(const AlarmForm&) const = default;
};

// What the editor shows of an alarm. From 13 on the hour is one of the afternoon: 12 at noon shows
// as 12 of the morning. The hour 0, and any other for which there is no entry, shows none.
[[nodiscard]] AlarmForm FormOf(const AlarmRow& row);

// What a save of the fields sends: the hour is its entry's number, plus 12 in the afternoon, so
// that 12 of the afternoon gives 24 and 12 of the morning 12. Kept on purpose: noon has always been
// saved as 12 of the morning (tests AlarmForm.AnAlarmAtNoonIsSavedAsItWas and
// AlarmForm.TwelveOfTheAfternoonIsSavedAs24).
[[nodiscard]] AlarmSettings SettingsOf(const AlarmForm& form);

// False when a save sends nothing: the label or the ring tone is empty. Blanks are a text.
[[nodiscard]] bool CanBeSent(const AlarmSettings& settings);

// The requests of commands 870402 and 870403. The alert time in them is 0: the phone works it out.
[[nodiscard]] Bytes AddAlarmRequest(const AlarmSettings& settings);
[[nodiscard]] Bytes UpdateAlarmRequest(std::uint32_t id, const AlarmSettings& settings);

}  // namespace quorvi
