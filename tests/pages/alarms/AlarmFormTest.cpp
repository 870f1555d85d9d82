#include <gtest/gtest.h>

#include "base/Text.h"
#include "pages/alarms/AlarmDays.h"
#include "pages/alarms/AlarmForm.h"
#include "tests/support/WireBytes.h"

namespace quorvi {
namespace {

// The alarm as it would be saved when the editor was opened for it and nothing changed.
AlarmSettings SavedAgain(const AlarmRow& row) {
    return SettingsOf(FormOf(row));
}

AlarmRow At(std::uint32_t hour, std::uint32_t minute = 0) {
    AlarmRow row;
    row.hour = hour;
    row.minute = minute;
    return row;
}

TEST(AlarmForm, ANewAlarmOpensAtEightInTheMorningWithTheRingToneOfThePhone) {
    const AlarmForm form;
    EXPECT_EQ(form.halfDay, 0);
    EXPECT_EQ(form.hourEntry, 7);  // the entry "8"
    EXPECT_EQ(form.minuteEntry, 0);
    EXPECT_EQ(form.days, 0u);
    EXPECT_FALSE(form.enabled);
    EXPECT_FALSE(form.vibrate);
    EXPECT_EQ(form.label, "");
    EXPECT_EQ(form.alert, "content://settings/system/alarm_alert");
    EXPECT_EQ(SettingsOf(form), AlarmSettings());
}

TEST(AlarmForm, EachHourFrom1To24IsSavedAsItWas) {
    for (std::uint32_t hour = 1; hour <= 24; ++hour) {
        const AlarmForm form = FormOf(At(hour));
        EXPECT_EQ(form.halfDay, hour > 12 ? 1 : 0) << hour;
        EXPECT_EQ(form.hourEntry, static_cast<int>((hour - 1) % 12)) << hour;
        EXPECT_EQ(SettingsOf(form).hour, hour);
    }
}

TEST(AlarmForm, AnAlarmAtHourZeroOpensWithNoHourAndIsSavedAsItWas) {
    const AlarmForm form = FormOf(At(0, 15));
    EXPECT_EQ(form.halfDay, 0);
    EXPECT_EQ(form.hourEntry, kNoEntry);
    EXPECT_EQ(SettingsOf(form).hour, 0u);
    EXPECT_EQ(SettingsOf(form).minute, 15u);
}

TEST(AlarmForm, AnAlarmAtNoonIsSavedAsItWas) {
    const AlarmForm form = FormOf(At(12, 30));
    EXPECT_EQ(form.halfDay, 0);
    EXPECT_EQ(form.hourEntry, 11);  // the entry "12"
    EXPECT_EQ(form.minuteEntry, 30);
    EXPECT_EQ(SettingsOf(form).hour, 12u);
}

TEST(AlarmForm, TwelveOfTheAfternoonIsSavedAs24) {
    AlarmForm form;
    form.hourEntry = 11;
    form.halfDay = 1;
    EXPECT_EQ(SettingsOf(form).hour, 24u);
    form.halfDay = 0;
    EXPECT_EQ(SettingsOf(form).hour, 12u);
}

TEST(AlarmForm, TimesThatHaveNoEntryShowNone) {
    EXPECT_EQ(FormOf(At(25)).hourEntry, kNoEntry);
    EXPECT_EQ(FormOf(At(0xFFFFFFFF)).hourEntry, kNoEntry);
    EXPECT_EQ(FormOf(At(1, 59)).minuteEntry, 59);
    EXPECT_EQ(FormOf(At(1, 60)).minuteEntry, kNoEntry);
    EXPECT_EQ(FormOf(At(1, 0xFFFFFFFF)).minuteEntry, kNoEntry);
}

TEST(AlarmForm, EveryDaySetsAllTicks) {
    AlarmRow row;
    row.days = 0x7F;
    EXPECT_EQ(FormOf(row).days, kEveryAlarmDay);
    row.days = 1;
    EXPECT_EQ(FormOf(row).days, 1u);  // Monday's tick alone
}

TEST(AlarmForm, BitsWithoutATickAreNotSaved) {
    AlarmRow row;
    row.days = 0xFFFFFF81;
    EXPECT_EQ(SavedAgain(row).days, 1u);
}

TEST(AlarmForm, TheOtherFieldsAreThoseOfTheAlarm) {
    AlarmRow row;
    row.enabled = true;
    row.label = Ansi(u8"起床");
    row.alert = "content://x";
    AlarmSettings saved = SavedAgain(row);
    EXPECT_TRUE(saved.enabled);
    EXPECT_FALSE(saved.vibrate);
    EXPECT_EQ(saved.label, Ansi(u8"起床"));
    EXPECT_EQ(saved.alert, "content://x");
    row.enabled = false;
    row.vibrate = true;
    saved = SavedAgain(row);
    EXPECT_FALSE(saved.enabled);
    EXPECT_TRUE(saved.vibrate);
}

TEST(AlarmForm, AnEmptyLabelOrAlertIsNotSent) {
    AlarmSettings settings;
    EXPECT_FALSE(CanBeSent(settings));
    settings.label = " ";
    EXPECT_TRUE(CanBeSent(settings));
    settings.alert.clear();
    EXPECT_FALSE(CanBeSent(settings));
}

AlarmSettings SevenOClock() {
    return {.hour = 7,
            .minute = 5,
            .days = 0x1F,
            .enabled = true,
            .vibrate = false,
            .label = Ansi(u8"起床"),
            .alert = "content://x"};
}

TEST(AlarmRequests, AddingCarriesEachField) {
    EXPECT_EQ(AddAlarmRequest(SevenOClock()), WireBytes()
                                                  .U32(870402)          // code
                                                  .U32(65)              // total
                                                  .U32(1)               // item count
                                                  .U32(7)               // hour
                                                  .U32(5)               // minute
                                                  .U32(0x1F)            // days
                                                  .U64(0)               // alert time
                                                  .U32(1)               // enabled
                                                  .U32(0)               // vibrate
                                                  .Text("起床")         // label
                                                  .Text("content://x")  // alert
                                                  .Get());
}

TEST(AlarmRequests, ChangingHasTheIdInFront) {
    AlarmSettings settings = SevenOClock();
    settings.enabled = false;
    settings.vibrate = true;
    EXPECT_EQ(UpdateAlarmRequest(0x01020304, settings), WireBytes()
                                                            .U32(870403)          // code
                                                            .U32(69)              // total
                                                            .U32(1)               // item count
                                                            .U32(0x01020304)      // alarm id
                                                            .U32(7)               // hour
                                                            .U32(5)               // minute
                                                            .U32(0x1F)            // days
                                                            .U64(0)               // alert time
                                                            .U32(0)               // enabled
                                                            .U32(1)               // vibrate
                                                            .Text("起床")         // label
                                                            .Text("content://x")  // alert
                                                            .Get());
}

}  // namespace
}  // namespace quorvi
