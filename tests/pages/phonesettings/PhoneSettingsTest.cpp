#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string_view>
#include <vector>

#include "pages/phonesettings/PhoneSettings.h"
#include "tests/pages/phonesettings/PhoneSettingsReplies.h"
#include "tests/support/WireBytes.h"

namespace quorvi {
namespace {

using enum PhoneSetting;
using testing::ElementsAre;

std::vector<std::u8string_view> TextsOf(PhoneSetting setting) {
    std::vector<std::u8string_view> texts;
    for (const SettingEntry& entry : RowOf(setting).entries) {
        texts.push_back(entry.text);
    }
    return texts;
}

std::vector<std::uint32_t> ValuesOf(PhoneSetting setting) {
    std::vector<std::uint32_t> values;
    for (const SettingEntry& entry : RowOf(setting).entries) {
        values.push_back(entry.value);
    }
    return values;
}

TEST(PhoneSettingTable, HasTheTextsOfTheLists) {
    EXPECT_THAT(TextsOf(backlight), ElementsAre(u8"15 秒", u8"30 秒", u8"1 分钟", u8"2 分钟",
                                                u8"10 分钟", u8"30 分钟"));
    EXPECT_THAT(TextsOf(ringVolume), ElementsAre(u8"0 静音", u8"1 最小", u8"2 ", u8"3 ", u8"4 中",
                                                 u8"5 ", u8"6 ", u8"7 最大"));
    EXPECT_THAT(TextsOf(musicVolume),
                ElementsAre(u8"0 静音", u8"1 最小", u8"2", u8"3", u8"4", u8"5 ", u8"6", u8"7 中",
                            u8"8 ", u8"9 ", u8"10 ", u8"11", u8"12", u8"13", u8"14", u8"15 最大"));
    EXPECT_THAT(TextsOf(dateFormat),
                ElementsAre(u8"XXXX年XX月XX日", u8"XX月XX日XXXX年", u8"XX日XX月XXXX年"));
}

TEST(PhoneSettingTable, EachEntryOfTheBacklightHasItsMilliseconds) {
    EXPECT_THAT(ValuesOf(backlight),
                ElementsAre(15'000, 30'000, 60'000, 120'000, 600'000, 1'800'000));
}

TEST(PhoneSettingTable, EachEntryOfTheOtherListsIsWrittenAsItsIndex) {
    for (const PhoneSetting setting : {ringVolume, musicVolume, dateFormat}) {
        const auto values = ValuesOf(setting);
        for (std::size_t i = 0; i < values.size(); ++i) {
            EXPECT_EQ(values[i], i) << RowOf(setting).name;
        }
    }
}

TEST(PhoneSettingTable, AToggleIsWrittenAsZeroOrOneAndNothingElse) {
    for (const PhoneSetting setting : {wifi, bluetooth, airplane, gps, gravity, vibrate, time24}) {
        EXPECT_TRUE(RowOf(setting).isToggle);
        EXPECT_TRUE(CanBeWritten(RowOf(setting), 0));
        EXPECT_TRUE(CanBeWritten(RowOf(setting), 1));
        EXPECT_FALSE(CanBeWritten(RowOf(setting), 2));
    }
}

TEST(PhoneSettingTable, OnlyTheValuesOfAListCanBeWritten) {
    EXPECT_TRUE(CanBeWritten(RowOf(backlight), 1'800'000));
    EXPECT_FALSE(CanBeWritten(RowOf(backlight), 45'000));
    EXPECT_FALSE(CanBeWritten(RowOf(ringVolume), 8));
    EXPECT_FALSE(CanBeWritten(RowOf(musicVolume), 16));
    EXPECT_FALSE(CanBeWritten(RowOf(dateFormat), 3));
}

TEST(PhoneSettingTable, IsSearchedByName) {
    ASSERT_NE(FindPhoneSetting("time_24"), nullptr);
    EXPECT_EQ(FindPhoneSetting("time_24")->key, time24);
    EXPECT_EQ(FindPhoneSetting("volume"), nullptr);
    EXPECT_EQ(FindPhoneSetting(""), nullptr);
}

TEST(PhoneSettingsReading, ReadsEachSettingFromItsPlace) {
    WireBytes bytes;
    bytes
        .U32(0)     // leading word
        .U32(100)   // WiFi
        .U32(101)   // Bluetooth
        .U32(102)   // aeroplane mode
        .U32(103)   // GPS
        .U32(104)   // gravity sensor
        .U32(105)   // vibration
        .U32(106)   // backlight
        .U32(107)   // ring volume
        .U32(108)   // music volume
        .U32(110)   // date format
        .U32(109);  // 24 hours
    const auto values = ParsePhoneSettings(bytes.Buffer());
    ASSERT_TRUE(values);
    for (std::uint32_t key = 0; key < kPhoneSettings; ++key) {
        EXPECT_EQ(values->Of(PhoneSetting{key}), 100 + key);
    }
}

TEST(PhoneSettingsReading, TheDateFormatStandsInFrontOfTheTimeFormat) {
    const auto values =
        ParsePhoneSettings(SettingsPayload({.dateFormat = 2, .time24 = 1}).Buffer());
    ASSERT_TRUE(values);
    EXPECT_EQ(values->Of(dateFormat), 2u);
    EXPECT_EQ(values->Of(time24), 1u);
}

TEST(PhoneSettingsReading, AReplyThatIsTooShortGivesNothing) {
    WireBytes bytes = SettingsPayload();
    const auto short_ = std::span(bytes.Get()).first(bytes.Get().size() - 1);
    EXPECT_FALSE(ParsePhoneSettings(ReplyBuffer::Holding(short_)));
    EXPECT_FALSE(ParsePhoneSettings(ReplyBuffer()));
}

TEST(PhoneSettingsReading, WhatFollowsTheRecordIsNotLookedAt) {
    EXPECT_TRUE(ParsePhoneSettings(SettingsPayload().U32(AbsentMark).Buffer()));
}

TEST(SettingShown, AToggleOfTwoIsOff) {
    EXPECT_TRUE(IsSettingOn(1));
    EXPECT_FALSE(IsSettingOn(0));
    EXPECT_FALSE(IsSettingOn(2));
}

TEST(SettingEntryShown, ABacklightOf45SecondsSelectsTheFirstEntry) {
    EXPECT_EQ(EntryShown(backlight, 45'000), 0u);
}

TEST(SettingEntryShown, ABacklightSelectsTheEntryOfItsWholeSeconds) {
    EXPECT_EQ(EntryShown(backlight, 15'000), 0u);
    EXPECT_EQ(EntryShown(backlight, 30'999), 1u);
    EXPECT_EQ(EntryShown(backlight, 60'000), 2u);
    EXPECT_EQ(EntryShown(backlight, 120'000), 3u);
    EXPECT_EQ(EntryShown(backlight, 600'000), 4u);
    EXPECT_EQ(EntryShown(backlight, 1'800'000), 5u);
}

TEST(SettingEntryShown, ABacklightThatNeverGoesOutSelectsTheFirstEntry) {
    EXPECT_EQ(EntryShown(backlight, 0xFFFFFFFF), 0u);  // -1: no time at all
    EXPECT_EQ(EntryShown(backlight, 0), 0u);
}

TEST(SettingEntryShown, ARingVolumeOfNineSelectsNothing) {
    EXPECT_EQ(EntryShown(ringVolume, 7), 7u);
    EXPECT_EQ(EntryShown(ringVolume, 8), std::nullopt);
    EXPECT_EQ(EntryShown(ringVolume, 9), std::nullopt);
    EXPECT_EQ(EntryShown(ringVolume, 10), std::nullopt);
}

TEST(SettingEntryShown, AVolumeBeyondTheLimitSelectsTheFirstEntry) {
    EXPECT_EQ(EntryShown(ringVolume, 11), 0u);
    EXPECT_EQ(EntryShown(ringVolume, 0xFFFFFFFF), 0u);
    EXPECT_EQ(EntryShown(musicVolume, 15), 15u);
    EXPECT_EQ(EntryShown(musicVolume, 16), 0u);
    EXPECT_EQ(EntryShown(musicVolume, 0xFFFFFFFF), 0u);
}

TEST(SettingEntryShown, ADateFormatOutsideTheListSelectsNothing) {
    EXPECT_EQ(EntryShown(dateFormat, 2), 2u);
    EXPECT_EQ(EntryShown(dateFormat, 3), std::nullopt);
    EXPECT_EQ(EntryShown(dateFormat, 0xFFFFFFFF), std::nullopt);
}

TEST(SettingRequests, TheThirdDateFormatIsWrittenUnderKeyTen) {
    EXPECT_EQ(WriteSettingRequest(dateFormat, 2), WireBytes()
                                                      .U32(871502)  // code
                                                      .U32(20)      // total
                                                      .U32(1)       // item count
                                                      .U32(10)      // key
                                                      .U32(2)       // value
                                                      .Get());
}

TEST(SettingRequests, TheTimeFormatIsWrittenUnderKeyNine) {
    EXPECT_EQ(WriteSettingRequest(time24, 1), WireBytes()
                                                  .U32(871502)  // code
                                                  .U32(20)      // total
                                                  .U32(1)       // item count
                                                  .U32(9)       // key, though it is read last
                                                  .U32(1)       // value
                                                  .Get());
}

TEST(SettingRequests, ABacklightIsWrittenInMilliseconds) {
    EXPECT_EQ(WriteSettingRequest(backlight, 1'800'000), WireBytes()
                                                             .U32(871502)      // code
                                                             .U32(20)          // total
                                                             .U32(1)           // item count
                                                             .U32(6)           // key
                                                             .U32(0x001B7740)  // value
                                                             .Get());
}

}  // namespace
}  // namespace quorvi
