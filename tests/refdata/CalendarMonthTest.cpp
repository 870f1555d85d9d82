// The grid of a month, and the steps from day to day.
#include <gtest/gtest.h>
#include <stdlib.h>

#include <ctime>
#include <string>

#include "refdata/CalendarMonth.h"
#include "refdata/LunarCalendar.h"

namespace quorvi {
namespace {

// The local time of a place, for a while.
class LocalTimeOf {
  public:
    explicit LocalTimeOf(const char* zone) {
        if (const char* before = std::getenv("TZ")) {
            before_ = before;
        }
        ::setenv("TZ", zone, 1);
        ::tzset();
    }
    ~LocalTimeOf() {
        before_.empty() ? ::unsetenv("TZ") : ::setenv("TZ", before_.c_str(), 1);
        ::tzset();
    }
    LocalTimeOf(const LocalTimeOf&) = delete;
    LocalTimeOf& operator=(const LocalTimeOf&) = delete;

  private:
    std::string before_;
};

TEST(CalendarMonth, WeeksBeginOnSunday) {
    const CalendarMonth june(2011, 6);  // begins on a Wednesday
    EXPECT_EQ(june.Weeks(), 5);
    EXPECT_FALSE(june.At({0, 2}));
    EXPECT_EQ(june.At({0, 3}), (CalendarDate{2011, 6, 1}));
    EXPECT_EQ(june.At({1, 0}), (CalendarDate{2011, 6, 5}));
    EXPECT_EQ(june.At({4, 4}), (CalendarDate{2011, 6, 30}));
    EXPECT_FALSE(june.At({4, 5}));
}

TEST(CalendarMonth, AMonthTakesFourToSixWeeks) {
    EXPECT_EQ(CalendarMonth(2009, 2).Weeks(), 4);  // 28 days from a Sunday on
    EXPECT_EQ(CalendarMonth(2012, 2).Weeks(), 5);
    EXPECT_EQ(CalendarMonth(2011, 10).Weeks(), 6);
}

TEST(CalendarMonth, EachDayHasItsCell) {
    for (int year = kFirstCalendarYear; year <= kLastCalendarYear; ++year) {
        for (int month = 1; month <= 12; ++month) {
            const CalendarMonth grid(year, month);
            for (int day = 1; day <= GregorianMonthDays(year, month); ++day) {
                const auto cell = grid.CellOf(day);
                ASSERT_TRUE(cell);
                ASSERT_LT(cell->week, grid.Weeks());
                ASSERT_EQ(cell->weekday, WeekdayOf({year, month, day}));
                ASSERT_EQ(grid.At(*cell), (CalendarDate{year, month, day}));
            }
        }
    }
}

TEST(CalendarMonth, ADayThatTheMonthLacksHasNoCell) {
    EXPECT_FALSE(CalendarMonth(2012, 2).CellOf(30));
    EXPECT_FALSE(CalendarMonth(2012, 2).CellOf(0));
    EXPECT_FALSE(CalendarMonth(2012, 2).At({0, 7}));
    EXPECT_FALSE(CalendarMonth(2012, 2).At({0, -1}));
    EXPECT_FALSE(CalendarMonth(2012, 2).At({-1, 3}));
}

TEST(CalendarSteps, ADayHas86400Seconds) {
    const LocalTimeOf utc("UTC0");
    EXPECT_EQ(StepBySeconds({2011, 6, 18}, 1), (CalendarDate{2011, 6, 19}));
    EXPECT_EQ(StepBySeconds({2011, 6, 18}, -1), (CalendarDate{2011, 6, 17}));
    EXPECT_EQ(StepBySeconds({2011, 12, 31}, 1), (CalendarDate{2012, 1, 1}));
    EXPECT_EQ(StepBySeconds({2012, 3, 1}, -1), (CalendarDate{2012, 2, 29}));
}

// On the day when summer time ends, 86,400 seconds from midnight on are still that day; on the day
// behind the one when it begins, they reach back to eleven in the evening two days before. The time
// zone is a made up one with its changes on the first Sundays of May and October.
TEST(CalendarSteps, WhereADayIsLongerOrShorterTheStepIsNotToTheNeighbour) {
    const LocalTimeOf zone("XST-8XDT,M5.1.0/0,M10.1.0/0");
    EXPECT_EQ(StepBySeconds({2012, 5, 6}, 1), (CalendarDate{2012, 5, 7}));
    EXPECT_EQ(StepBySeconds({2012, 5, 7}, -1), (CalendarDate{2012, 5, 5}));
    EXPECT_EQ(StepBySeconds({2012, 10, 6}, 1), (CalendarDate{2012, 10, 6}));
}

TEST(CalendarSteps, NoneLeavesTheYearsOfThePage) {
    for (const char* zone : {"UTC0", "CST-8", "EST5"}) {
        const LocalTimeOf local(zone);
        EXPECT_FALSE(StepBySeconds({1970, 1, 1}, -1)) << zone;
        EXPECT_FALSE(StepBySeconds({2037, 12, 31}, 1)) << zone;
        EXPECT_EQ(StepBySeconds({1970, 1, 1}, 1), (CalendarDate{1970, 1, 2})) << zone;
        EXPECT_EQ(StepBySeconds({2037, 12, 31}, -1), (CalendarDate{2037, 12, 30})) << zone;
    }
    EXPECT_FALSE(StepByDays({1970, 1, 1}, -1));
    EXPECT_FALSE(StepByDays({2037, 12, 31}, 7));
    EXPECT_FALSE(StepByMonths({1970, 1, 31}, -1));
    EXPECT_FALSE(StepByMonths({2037, 12, 1}, 1));
}

TEST(CalendarSteps, ByDaysAcrossMonths) {
    EXPECT_EQ(StepByDays({2012, 3, 1}, -1), (CalendarDate{2012, 2, 29}));
    EXPECT_EQ(StepByDays({2012, 2, 27}, 7), (CalendarDate{2012, 3, 5}));
    EXPECT_EQ(StepByDays({2012, 1, 3}, -7), (CalendarDate{2011, 12, 27}));
    EXPECT_EQ(StepByDays({2011, 12, 31}, 1), (CalendarDate{2012, 1, 1}));
    EXPECT_EQ(StepByDays({2012, 1, 1}, 366), (CalendarDate{2013, 1, 1}));
}

TEST(CalendarSteps, ByMonthsKeepTheDayWhereThereIsOne) {
    EXPECT_EQ(StepByMonths({2012, 1, 31}, 1), (CalendarDate{2012, 2, 29}));
    EXPECT_EQ(StepByMonths({2012, 1, 15}, -1), (CalendarDate{2011, 12, 15}));
    EXPECT_EQ(StepByMonths({2012, 11, 30}, 3), (CalendarDate{2013, 2, 28}));
}

TEST(CalendarSteps, TodayIsTheLocalDate) {
    const LocalTimeOf east("XXX-14");
    const CalendarDate there = Today();
    const std::time_t now = std::time(nullptr) + 14 * 3600;
    std::tm utc{};
    ASSERT_NE(::gmtime_r(&now, &utc), nullptr);
    EXPECT_EQ(there, (CalendarDate{utc.tm_year + 1900, utc.tm_mon + 1, utc.tm_mday}));
}

}  // namespace
}  // namespace quorvi
