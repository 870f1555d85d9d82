// The lunar calendar's names.
#include <gtest/gtest.h>

#include <set>

#include "base/Text.h"
#include "refdata/LunarCalendar.h"

namespace quorvi {
namespace {

TEST(LunarNames, AYearIsStemBranchAndAnimal) {
    EXPECT_EQ(FormatLunarYear(2012), Ansi(u8"壬辰 龙年"));
    EXPECT_EQ(FormatLunarYear(1984), Ansi(u8"甲子 鼠年"));
    EXPECT_EQ(FormatLunarYear(1901), Ansi(u8"辛丑 牛年"));
    EXPECT_EQ(FormatLunarYear(2050), Ansi(u8"庚午 马年"));
    EXPECT_EQ(FormatLunarYear(2043), Ansi(u8"癸亥 猪年"));
}

TEST(LunarNames, TheFourthAnimalIsShownAsItsLookAlike) {
    EXPECT_EQ(FormatLunarYear(2011), Ansi(u8"辛卯 免年"));
    EXPECT_EQ(FormatLunarYear(2023), Ansi(u8"癸卯 免年"));
}

TEST(LunarNames, AYearsNameIsNineBytes) {
    EXPECT_EQ(FormatLunarYear(2012).size(), 9U);
}

TEST(LunarNames, MonthsToTenHaveAnIdeographicSpaceInFront) {
    EXPECT_EQ(FormatLunarMonth(2, true), Ansi(u8"　二月"));
    EXPECT_EQ(FormatLunarMonth(2, false), Ansi(u8"　二月"));
    EXPECT_EQ(FormatLunarMonth(10, true), Ansi(u8"　十月"));
    EXPECT_EQ(FormatLunarMonth(11, true), Ansi(u8"十一月"));
    EXPECT_EQ(FormatLunarMonth(12, false), Ansi(u8"十二月"));
}

TEST(LunarNames, TheFirstMonthHasANameOfItsOwnIfAsked) {
    EXPECT_EQ(FormatLunarMonth(1, true), Ansi(u8"　正月"));
    EXPECT_EQ(FormatLunarMonth(1, false), Ansi(u8"　一月"));
}

TEST(LunarNames, ThereAreTwelveMonths) {
    EXPECT_EQ(FormatLunarMonth(0, true), "");
    EXPECT_EQ(FormatLunarMonth(13, true), "");
}

TEST(LunarNames, DaysOfTheMonth) {
    EXPECT_EQ(FormatLunarDay(1), Ansi(u8"初一"));
    EXPECT_EQ(FormatLunarDay(9), Ansi(u8"初九"));
    EXPECT_EQ(FormatLunarDay(10), Ansi(u8"初十"));
    EXPECT_EQ(FormatLunarDay(11), Ansi(u8"十一"));
    EXPECT_EQ(FormatLunarDay(19), Ansi(u8"十九"));
    EXPECT_EQ(FormatLunarDay(21), Ansi(u8"廿一"));
    EXPECT_EQ(FormatLunarDay(29), Ansi(u8"廿九"));
    EXPECT_EQ(FormatLunarDay(30), Ansi(u8"三十"));
}

TEST(LunarNames, TheTwentiethReadsAsTwentyTen) {
    EXPECT_EQ(FormatLunarDay(20), Ansi(u8"廿十"));
}

TEST(LunarNames, ThirtyDaysHaveThirtyNames) {
    std::set<std::string> names;
    for (int day = 1; day <= 30; ++day) {
        EXPECT_EQ(FormatLunarDay(day).size(), 4U) << day;
        names.insert(FormatLunarDay(day));
    }
    EXPECT_EQ(names.size(), 30U);
    EXPECT_EQ(FormatLunarDay(0), "");
}

TEST(LunarNames, Terms) {
    EXPECT_EQ(SolarTermName(1), Ansi(u8"小寒"));
    EXPECT_EQ(SolarTermName(5), Ansi(u8"惊蛰"));
    EXPECT_EQ(SolarTermName(12), Ansi(u8"夏至"));
    EXPECT_EQ(SolarTermName(24), Ansi(u8"冬至"));
    for (const int index : {0, 25, -1, INT32_MIN, INT32_MAX}) {
        EXPECT_EQ(SolarTermName(index), "") << index;
    }
}

TEST(Festivals, OfTheGregorianCalendar) {
    struct Row {
        int month;
        int day;
        std::u8string_view name;
    };
    for (const Row& row :
         {Row{1, 1, u8"元旦"}, {2, 14, u8"情人节"}, {3, 8, u8"妇女节"},   {3, 12, u8"植树节"},
          {4, 1, u8"愚人节"},  {4, 22, u8"地球日"}, {5, 1, u8"劳动节"},   {5, 4, u8"青年节"},
          {5, 31, u8"无烟日"}, {6, 1, u8"儿童节"},  {6, 5, u8"环保日"},   {7, 1, u8"建党节"},
          {8, 1, u8"建军节"},  {9, 10, u8"教师节"}, {10, 1, u8"国庆节"},  {10, 6, u8"老人节"},
          {11, 3, u8"QVH"},    {12, 1, u8"AIDS日"}, {12, 24, u8"平安夜"}, {12, 25, u8"圣诞节"}}) {
        // The year plays no part.
        EXPECT_EQ(FestivalOf(1950, row.month, row.day), Ansi(row.name));
        EXPECT_EQ(FestivalOf(2011, row.month, row.day), Ansi(row.name));
    }
}

TEST(Festivals, OfTheLunarCalendar) {
    EXPECT_EQ(FestivalOf(2012, 1, 23), Ansi(u8"春节"));
    EXPECT_EQ(FestivalOf(2012, 2, 6), Ansi(u8"元宵节"));
    EXPECT_EQ(FestivalOf(2012, 6, 23), Ansi(u8"端午节"));
    EXPECT_EQ(FestivalOf(2012, 8, 23), Ansi(u8"七夕"));
    EXPECT_EQ(FestivalOf(2012, 9, 30), Ansi(u8"中秋节"));
    EXPECT_EQ(FestivalOf(2012, 10, 23), Ansi(u8"重阳节"));
    EXPECT_EQ(FestivalOf(2012, 1, 1), Ansi(u8"元旦"));
    EXPECT_EQ(FestivalOf(2011, 1, 11), Ansi(u8"腊八节"));
    EXPECT_EQ(FestivalOf(2011, 1, 26), Ansi(u8"小年"));
    EXPECT_EQ(FestivalOf(2011, 2, 2), Ansi(u8"除夕夜"));
    EXPECT_EQ(FestivalOf(2012, 6, 20), "");
}

TEST(Festivals, TheGregorianTableGoesFirst) {
    EXPECT_EQ(SolarToLunar(2010, 2, 14).date, (LunarDate{2010, 1, 1}));
    EXPECT_EQ(FestivalOf(2010, 2, 14), Ansi(u8"情人节"));
}

TEST(Festivals, AYearWhoseLastMonthHas29DaysHasNoEve) {
    EXPECT_EQ(SolarToLunar(2012, 1, 22).date, (LunarDate{2011, 12, 29}));
    EXPECT_EQ(FestivalOf(2012, 1, 22), "");
}

// The number alone counts, and the double bears the same.
TEST(Festivals, ALeapMonthHasTheFestivalsOfItsNumber) {
    ASSERT_EQ(LeapMonthOf(2009), 5);
    EXPECT_EQ(FestivalOf(2009, 5, 28), Ansi(u8"端午节"));
    EXPECT_EQ(FestivalOf(2009, 6, 27), Ansi(u8"端午节"));
}

}  // namespace
}  // namespace quorvi
