// What the calendar says of a day.
#include <gtest/gtest.h>

#include "base/Text.h"
#include "refdata/CalendarText.h"
#include "refdata/LunarCalendar.h"

namespace quorvi {
namespace {

TEST(CalendarText, ThePlainLineIsYearMonthAndDay) {
    EXPECT_EQ(LunarLine({2011, 6, 18}), Ansi(u8"农历: 辛卯 免年 　五月 十七"));
}

TEST(CalendarText, AFestivalStandsInFrontOfTheLine) {
    EXPECT_EQ(LunarLine({2012, 1, 23}), Ansi(u8"春节 农历: 壬辰 龙年 　正月 初一"));
    EXPECT_EQ(LunarLine({2011, 11, 3}), Ansi(u8"QVH 农历: 辛卯 免年 　十月 初八"));
}

TEST(CalendarText, ATermStandsInBrackets) {
    EXPECT_EQ(LunarLine({2012, 6, 21}), Ansi(u8"农历: [夏至] 壬辰 龙年 　五月 初三"));
}

TEST(CalendarText, FestivalAndTermStandSideBySide) {
    EXPECT_EQ(LunarLine({2012, 6, 5}), Ansi(u8"环保日 农历: [芒种] 壬辰 龙年 　四月 十六"));
}

TEST(CalendarText, ACellHasTheFestivalFirst) {
    EXPECT_EQ(CellText({2012, 6, 5}), Ansi(u8"环保日"));  // and not the term of that day
    EXPECT_TRUE(IsMarkedDay({2012, 6, 5}));
}

TEST(CalendarText, AFestivalOfTwoCharactersTakesTheWholeCell) {
    EXPECT_EQ(CellText({2012, 1, 1}), Ansi(u8"元旦"));
    EXPECT_EQ(CellText({2012, 8, 23}), Ansi(u8"七夕"));
}

TEST(CalendarText, ACellHasTheTermSecond) {
    EXPECT_EQ(CellText({2012, 6, 21}), Ansi(u8"夏至"));
    EXPECT_TRUE(IsMarkedDay({2012, 6, 21}));
}

TEST(CalendarText, ACellHasTheLunarDayLast) {
    EXPECT_EQ(CellText({2012, 6, 22}), Ansi(u8"初四"));
    EXPECT_EQ(CellText({2012, 6, 19}), Ansi(u8"初一"));
    EXPECT_FALSE(IsMarkedDay({2012, 6, 22}));
}

TEST(CalendarText, Weekdays) {
    EXPECT_EQ(WeekdayOf({1901, 1, 1}), 2);
    EXPECT_EQ(WeekdayOf({1970, 1, 1}), 4);
    EXPECT_EQ(WeekdayOf({2011, 6, 18}), 6);
    EXPECT_EQ(WeekdayOf({2012, 2, 29}), 3);
    EXPECT_EQ(WeekdayOf({2050, 12, 31}), 6);
    EXPECT_EQ(WeekdayName(0), Ansi(u8"星期日"));
    EXPECT_EQ(WeekdayName(6), Ansi(u8"星期六"));
    EXPECT_EQ(WeekdayName(7), "");
    EXPECT_EQ(WeekdayName(-1), "");
}

TEST(CalendarText, MonthNames) {
    EXPECT_EQ(MonthName(1), Ansi(u8"一月"));
    EXPECT_EQ(MonthName(12), Ansi(u8"十二月"));
    EXPECT_EQ(MonthName(0), "");
    EXPECT_EQ(MonthName(13), "");
}

TEST(CalendarText, ADateIsReadAndWritten) {
    EXPECT_EQ(ParseCalendarDate("2012-06-19"), (CalendarDate{2012, 6, 19}));
    EXPECT_EQ(ParseCalendarDate("1901-01-01"), (CalendarDate{1901, 1, 1}));
    EXPECT_EQ(ParseCalendarDate("2050-12-31"), (CalendarDate{2050, 12, 31}));
    EXPECT_EQ(ParseCalendarDate("2012-02-29"), (CalendarDate{2012, 2, 29}));
    EXPECT_EQ(FormatCalendarDate({2012, 6, 9}), "2012-06-09");
}

TEST(CalendarText, ADateOutsideTheTablesIsNone) {
    EXPECT_FALSE(ParseCalendarDate("1900-12-31"));
    EXPECT_FALSE(ParseCalendarDate("2051-01-01"));
}

TEST(CalendarText, WhatIsNoDateIsNone) {
    for (const char* text :
         {"", "2012", "2012-6-19", "2012-06-19 ", " 2012-06-19", "2012/06/19", "2012-00-10",
          "2012-13-01", "2012-06-00", "2012-06-31", "2011-02-29", "2O12-06-19", "+012-06-19",
          "2012-06-1x", "20120619", "-012-06-19", "2012-06-19-"}) {
        EXPECT_FALSE(ParseCalendarDate(text)) << text;
    }
}

}  // namespace
}  // namespace quorvi
