#include <gtest/gtest.h>

#include "base/Text.h"
#include "pages/alarms/AlarmDays.h"

namespace quorvi {
namespace {

TEST(AlarmDays, AllSevenAreEveryDay) {
    EXPECT_EQ(AlarmRepeatText(0x7F), Ansi(u8"每天"));
    EXPECT_EQ(AlarmRepetitionText(0x7F), Ansi(u8"有重复"));
}

TEST(AlarmDays, NoneIsNoRepetition) {
    EXPECT_EQ(AlarmRepeatText(0), Ansi(u8"无重复"));
    EXPECT_EQ(AlarmRepetitionText(0), Ansi(u8"仅一次"));
}

TEST(AlarmDays, EachDayHasItsWordWithABlankBehindIt) {
    const std::u8string_view words[] = {u8"一 ", u8"二 ", u8"三 ", u8"四 ",
                                        u8"五 ", u8"六 ", u8"日 "};
    for (std::uint32_t i = 0; i < 7; ++i) {
        EXPECT_EQ(AlarmRepeatText(1u << i), Ansi(words[i])) << i;
        EXPECT_EQ(AlarmRepetitionText(1u << i), Ansi(u8"有重复")) << i;
    }
}

TEST(AlarmDays, MondayStandsBeforeSunday) {
    EXPECT_EQ(AlarmRepeatText(0x41), Ansi(u8"一 日 "));
    EXPECT_EQ(AlarmRepeatText(0x1F), Ansi(u8"一 二 三 四 五 "));
}

TEST(AlarmDays, BitsAboveSundayHaveNoWord) {
    EXPECT_EQ(AlarmRepeatText(0x80), "");
    EXPECT_EQ(AlarmRepetitionText(0x80), Ansi(u8"有重复"));
    EXPECT_EQ(AlarmRepeatText(0xFFFFFFFF), Ansi(u8"一 二 三 四 五 六 日 "));
}

TEST(AlarmDays, TheTicksOfTheEditorFollowTheBits) {
    const std::u8string_view ticks[] = {u8"周一", u8"周二", u8"周三", u8"周四",
                                        u8"周五", u8"周六", u8"周日"};
    for (std::size_t i = 0; i < kAlarmDays.size(); ++i) {
        EXPECT_EQ(Ansi(kAlarmDays[i].tick), Ansi(ticks[i]));
    }
}

}  // namespace
}  // namespace quorvi
