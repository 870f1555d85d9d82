// The tables against ICU's Chinese calendar, day by day.
//
// ICU computes new moons and the sun's longitude by series that are off by up to a quarter of an
// hour. Where a new moon, or a solar term that decides which month is doubled, falls that near to
// midnight in Beijing, the two may take different days for it. Three months of the tables are slips
// of their own. All differences are listed here with the time that decides, in Beijing's standard
// time, as computed with the full series; a difference that is not listed is a defect.
#include <gtest/gtest.h>
#include <unicode/calendar.h>

#include <algorithm>
#include <map>
#include <memory>
#include <vector>

#include "refdata/CalendarText.h"
#include "refdata/LunarCalendar.h"

namespace quorvi {
namespace {

constexpr double kMillisecondsADay = 86'400'000.0;
// ICU counts the years of the Chinese calendar from 2637 before the common era.
constexpr int kEpoch = 2637;

struct Difference {
    CalendarDate first;
    CalendarDate last;
    const char* why;
};
constexpr Difference kDifferences[] = {
    {{1914, 11, 17}, {1914, 12, 16}, "new moon 1914-11-18 00:01; ICU takes the 17th"},
    {{1916, 2, 3}, {1916, 3, 3}, "new moon 1916-02-04 00:05; ICU takes the 3rd"},
    {{1917, 3, 23}, {1917, 4, 20}, "grain rain 1917-04-21 soon after 00:00; ICU doubles month 3"},
    {{1920, 11, 10}, {1920, 12, 9}, "new moon 1920-11-11 00:04; ICU takes the 10th"},
    {{1922, 6, 25}, {1922, 7, 23}, "great heat 1922-07-24 soon after 00:00; ICU doubles month 6"},
    {{1954, 2, 3}, {1954, 3, 4}, "new moon 1954-02-03 23:55; ICU takes the 4th"},
    {{1955, 2, 22}, {1955, 3, 23}, "new moon 1955-02-22 23:54; ICU takes the 23rd"},
    {{1987, 7, 26}, {1987, 8, 23}, "end of heat 1987-08-24 soon after 00:00; ICU doubles month 7"},
    {{1989, 8, 1}, {1989, 8, 30}, "new moon 1989-08-02 00:05; a slip of the tables, kept"},
    {{1999, 1, 17}, {1999, 2, 15}, "new moon 1999-01-17 23:46; ICU takes the 18th"},
    {{2012, 8, 17}, {2012, 9, 15}, "new moon 2012-08-17 23:54; ICU takes the 18th"},
    {{2013, 6, 8}, {2013, 7, 7}, "new moon 2013-06-08 23:56; a slip of the tables, kept"},
    {{2018, 11, 7}, {2018, 12, 6}, "new moon 2018-11-08 00:02; ICU takes the 7th"},
    {{2025, 4, 27}, {2025, 5, 26}, "new moon 2025-04-28 03:31; a slip of the tables, kept"},
    {{2027, 2, 6}, {2027, 3, 7}, "new moon 2027-02-06 23:56; ICU takes the 7th"},
    {{2030, 2, 2}, {2030, 3, 3}, "new moon 2030-02-03 00:07; ICU takes the 2nd"},
};

int DayOf(const CalendarDate& date) {
    return DaysBetween(date.year, date.month, date.day, 1901, 1, 1);
}

const Difference* ListedAt(int day) {
    const auto* row =
        std::find_if(std::begin(kDifferences), std::end(kDifferences), [=](const Difference& each) {
            return day >= DayOf(each.first) && day <= DayOf(each.last);
        });
    return row == std::end(kDifferences) ? nullptr : row;
}

constexpr CalendarDate kFirst = {1901, 2, 19};
constexpr CalendarDate kLast = {2050, 12, 31};

struct IcuDay {
    LunarDate date;
    bool doubled = false;
};

// ICU's dates of all days from kFirst to kLast.
std::vector<IcuDay> AllDays() {
    UErrorCode status = U_ZERO_ERROR;
    const std::unique_ptr<icu::Calendar> chinese(icu::Calendar::createInstance(
        *icu::TimeZone::getGMT(), icu::Locale("zh_CN@calendar=chinese"), status));
    const auto get = [&](UCalendarDateFields field) { return chinese->get(field, status); };
    std::vector<IcuDay> days;
    const int start = DaysBetween(1901, 1, 1, 1970, 1, 1);
    for (int day = DayOf(kFirst); day <= DayOf(kLast) && U_SUCCESS(status); ++day) {
        chinese->setTime((start + day) * kMillisecondsADay, status);
        days.push_back({{get(UCAL_EXTENDED_YEAR) - kEpoch, get(UCAL_MONTH) + 1, get(UCAL_DATE)},
                        get(UCAL_IS_LEAP_MONTH) != 0});
    }
    return days;
}

TEST(LunarIcu, EveryDayAndEveryLeapMonthAgreesSaveThoseListed) {
    const std::vector<IcuDay> days = AllDays();
    ASSERT_EQ(days.size(), static_cast<std::size_t>(DayOf(kLast) - DayOf(kFirst) + 1));
    std::map<int, int> leapMonths;
    int day = DayOf(kFirst);
    for (const auto& [theirs, doubled] : days) {
        const LunarDate ours = DaysToLunar(day);
        const Difference* listed = ListedAt(day);
        EXPECT_EQ(ours == theirs, listed == nullptr)
            << "day " << day << ": " << ours.year << "/" << ours.month << "/" << ours.day
            << ", ICU " << theirs.year << "/" << theirs.month << "/" << theirs.day
            << (listed == nullptr ? "" : listed->why);
        if (doubled) {
            leapMonths[theirs.year] = theirs.month;
        }
        ++day;
    }
    for (int year = kFirstLunarYear; year <= kLastLunarYear; ++year) {
        const bool listed = year == 1917 || year == 1922 || year == 1987;
        EXPECT_EQ(leapMonths[year], LeapMonthOf(year) + (listed ? 1 : 0)) << year;
    }
}

}  // namespace
}  // namespace quorvi
