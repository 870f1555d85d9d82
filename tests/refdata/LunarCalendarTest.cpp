// The lunar calendar's numbers.
#include <gtest/gtest.h>

#include "refdata/LunarCalendar.h"

namespace quorvi {
namespace {

LunarDate Lunar(int year, int month, int day) {
    return SolarToLunar(year, month, day).date;
}

TEST(LunarCalendar, TheTableBeginsWithTheNewYearOf1901) {
    EXPECT_EQ(Lunar(1901, 2, 19), (LunarDate{1901, 1, 1}));
    EXPECT_EQ(DaysToLunar(49), (LunarDate{1901, 1, 1}));
}

TEST(LunarCalendar, BeforeTheFirstNewYearIsLunar1900) {
    EXPECT_EQ(Lunar(1901, 1, 1), (LunarDate{1900, 11, 11}));
    EXPECT_EQ(DaysToLunar(18), (LunarDate{1900, 11, 29}));
    EXPECT_EQ(DaysToLunar(19), (LunarDate{1900, 12, 1}));
    EXPECT_EQ(Lunar(1901, 1, 20), (LunarDate{1900, 12, 1}));
    EXPECT_EQ(Lunar(1901, 2, 18), (LunarDate{1900, 12, 30}));
}

TEST(LunarCalendar, NewYears) {
    EXPECT_EQ(Lunar(2012, 1, 23), (LunarDate{2012, 1, 1}));
    EXPECT_EQ(Lunar(2012, 1, 22), (LunarDate{2011, 12, 29}));
    EXPECT_EQ(Lunar(2010, 2, 14), (LunarDate{2010, 1, 1}));
    EXPECT_EQ(Lunar(1970, 2, 6), (LunarDate{1970, 1, 1}));
    EXPECT_EQ(Lunar(2037, 2, 15), (LunarDate{2037, 1, 1}));
}

TEST(LunarCalendar, ALeapMonthBearsTheNumberOfTheMonthBefore) {
    EXPECT_EQ(LeapMonthOf(2012), 4);
    EXPECT_EQ(Lunar(2012, 5, 20), (LunarDate{2012, 4, 30}));  // the last day of the plain month
    EXPECT_EQ(Lunar(2012, 5, 21), (LunarDate{2012, 4, 1}));   // the first of its double
    EXPECT_EQ(Lunar(2012, 6, 18), (LunarDate{2012, 4, 29}));
    EXPECT_EQ(Lunar(2012, 6, 19), (LunarDate{2012, 5, 1}));
}

TEST(LunarCalendar, TheTableEndsIn2050) {
    EXPECT_EQ(Lunar(2050, 1, 23), (LunarDate{2050, 1, 1}));
    EXPECT_EQ(Lunar(2050, 12, 31), (LunarDate{2050, 11, 18}));
}

TEST(LunarCalendar, EveryDayFollowsTheOneBefore) {
    LunarDate before = DaysToLunar(49);
    const int last = DaysBetween(2050, 12, 31, 1901, 1, 1);
    for (int day = 50; day <= last; ++day) {
        const LunarDate date = DaysToLunar(day);
        if (date.day != 1) {
            ASSERT_EQ(date, (LunarDate{before.year, before.month, before.day + 1})) << day;
        } else {
            ASSERT_TRUE(before.day == 29 || before.day == 30) << day;
            const bool doubled = date.month == before.month && date.year == before.year;
            const bool next = date.month == before.month + 1 && date.year == before.year;
            const bool newYear =
                date.month == 1 && before.month == 12 && date.year == before.year + 1;
            ASSERT_TRUE(next || newYear || (doubled && LeapMonthOf(date.year) == date.month))
                << day;
        }
        before = date;
    }
}

TEST(LunarCalendar, DaysBehindTheTablesBreakNothing) {
    for (const int day : {INT32_MIN, -400, -1, 55'000, 100'000, INT32_MAX}) {
        (void)DaysToLunar(day);
    }
    EXPECT_EQ(SolarTermIndex(1900, 1, 6), 0);
    EXPECT_EQ(SolarTermIndex(2051, 1, 5), 0);
    EXPECT_EQ(LeapMonthOf(1900), 0);
    EXPECT_EQ(LeapMonthOf(2051), 0);
    EXPECT_EQ(LunarYearDays(2051), 360);
}

TEST(LunarCalendar, MonthDaysAreInTheLowHalfAndLeapDaysInTheHigh) {
    EXPECT_EQ(LunarMonthDays(2012, 1), 30U);
    EXPECT_EQ(LunarMonthDays(2012, 2), 29U);
    EXPECT_EQ(LunarMonthDays(2012, 4), 29U << 16 | 30U);
    EXPECT_EQ(LunarMonthDays(2012, 5), 30U);
    EXPECT_EQ(LunarMonthDays(2011, 2), 29U);
}

TEST(LunarCalendar, AYearBefore1901HasMonthsOf30Days) {
    EXPECT_EQ(LunarMonthDays(1900, 1), 30U);
    EXPECT_EQ(LunarMonthDays(1, 12), 30U);
    EXPECT_EQ(LunarYearDays(1900), 360);
}

TEST(LunarCalendar, YearDaysAreTheSumOfBothHalves) {
    for (int year = kFirstLunarYear; year <= kLastLunarYear; ++year) {
        std::uint32_t days = 0;
        for (int month = 1; month <= 12; ++month) {
            const std::uint32_t both = LunarMonthDays(year, month);
            EXPECT_EQ(both >> 16 != 0, month == LeapMonthOf(year)) << year << "/" << month;
            days += (both & 0xFFFF) + (both >> 16);
        }
        EXPECT_EQ(LunarYearDays(year), static_cast<int>(days)) << year;
    }
    EXPECT_EQ(LunarYearDays(2011), 354);
    EXPECT_EQ(LunarYearDays(2012), 384);
}

TEST(LunarCalendar, LeapMonthsComeFromTheirNibbles) {
    EXPECT_EQ(LeapMonthOf(1901), 0);   // high nibble of the first byte
    EXPECT_EQ(LeapMonthOf(1903), 5);   // high nibble of the second
    EXPECT_EQ(LeapMonthOf(1906), 4);   // low nibble of the third
    EXPECT_EQ(LeapMonthOf(1984), 10);  // beyond a decimal digit
    EXPECT_EQ(LeapMonthOf(2033), 11);
    EXPECT_EQ(LeapMonthOf(2050), 3);  // low nibble of the last
}

TEST(LunarCalendar, DaysBetweenFollowsTheGregorianRule) {
    EXPECT_EQ(DaysBetween(1901, 1, 1, 1901, 1, 1), 0);
    EXPECT_EQ(DaysBetween(1901, 1, 2, 1901, 1, 1), 1);
    EXPECT_EQ(DaysBetween(1901, 1, 1, 1901, 1, 2), -1);
    EXPECT_EQ(DaysBetween(2012, 3, 1, 2012, 2, 28), 2);
    EXPECT_EQ(DaysBetween(2011, 3, 1, 2011, 2, 28), 1);
    EXPECT_EQ(DaysBetween(2000, 3, 1, 2000, 2, 28), 2);  // by 400
    EXPECT_EQ(DaysBetween(1900, 3, 1, 1900, 2, 28), 1);  // by 100
    EXPECT_EQ(DaysBetween(2013, 1, 1, 2012, 1, 1), 366);
    EXPECT_EQ(DaysBetween(1970, 1, 1, 1901, 1, 1), 25202);
}

TEST(LunarCalendar, GregorianMonthsHave28To31Days) {
    EXPECT_EQ(GregorianMonthDays(2011, 1), 31);
    EXPECT_EQ(GregorianMonthDays(2011, 2), 28);
    EXPECT_EQ(GregorianMonthDays(2012, 2), 29);
    EXPECT_EQ(GregorianMonthDays(2000, 2), 29);
    EXPECT_EQ(GregorianMonthDays(1900, 2), 28);
    EXPECT_EQ(GregorianMonthDays(2011, 4), 30);
    EXPECT_EQ(GregorianMonthDays(2011, 12), 31);
}

TEST(LunarCalendar, AMonthOutside1To12HasNoDays) {
    for (const int month : {0, 13, -1, INT32_MIN, INT32_MAX}) {
        EXPECT_EQ(GregorianMonthDays(2011, month), 0) << month;
    }
}

TEST(SolarTerms, TermsAreCountedFromTheFirstOfJanuary) {
    EXPECT_EQ(SolarTermIndex(2012, 1, 6), 1);
    EXPECT_EQ(SolarTermIndex(2012, 1, 21), 2);
    EXPECT_EQ(SolarTermIndex(2012, 6, 21), 12);
    EXPECT_EQ(SolarTermIndex(2012, 12, 21), 24);
    EXPECT_EQ(SolarTermIndex(2012, 6, 20), 0);
    EXPECT_EQ(SolarTermIndex(1901, 1, 6), 1);
    EXPECT_EQ(SolarTermIndex(2050, 12, 22), 24);
}

TEST(SolarTerms, EveryMonthHasTwo) {
    for (int year = kFirstLunarYear; year <= kLastLunarYear; ++year) {
        for (int month = 1; month <= 12; ++month) {
            int first = 0;
            int second = 0;
            for (int day = 1; day <= GregorianMonthDays(year, month); ++day) {
                const int index = SolarTermIndex(year, month, day);
                first += index == 2 * month - 1 ? 1 : 0;
                second += index == 2 * month ? 1 : 0;
                ASSERT_TRUE(index == 0 || index == 2 * month - 1 || index == 2 * month);
                ASSERT_TRUE(index == 0 || (index == 2 * month) == (day > 15));
            }
            EXPECT_EQ(first, 1) << year << "/" << month;
            EXPECT_EQ(second, 1) << year << "/" << month;
        }
    }
}

// A second term on the 15th would get the first one's index; no month of the table has one.
TEST(SolarTerms, NoneFallsOnTheFifteenth) {
    for (int year = kFirstLunarYear; year <= kLastLunarYear; ++year) {
        for (int month = 1; month <= 12; ++month) {
            EXPECT_EQ(SolarTermIndex(year, month, 15), 0) << year << "/" << month;
        }
    }
}

// The sun stood there on the 23rd; the table's day is kept.
TEST(SolarTerms, TheTableKeepsItsSlips) {
    EXPECT_EQ(SolarTermIndex(1995, 8, 21), 16);
    EXPECT_EQ(SolarTermIndex(1995, 8, 23), 0);
}

TEST(SolarTerms, ComeWithTheLunarDate) {
    EXPECT_EQ(SolarToLunar(2012, 6, 21).term, 12);
    EXPECT_EQ(SolarToLunar(2012, 6, 21).date, (LunarDate{2012, 5, 3}));
    EXPECT_EQ(SolarToLunar(2012, 6, 22).term, 0);
}

}  // namespace
}  // namespace quorvi
