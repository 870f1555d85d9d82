// The Chinese lunar calendar of the years 1901 to 2050, its solar terms and its festivals, out of
// packed tables in refdata/data/; nothing is computed by astronomy.
//
// Pure functions on constant tables; any thread. Months and days count from 1. The tables end with
// 2050: callers keep to 1901-01-01 … 2050-12-31. Beyond that nothing breaks, but nothing is
// promised either. Texts are ANSI.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace quorvi {

inline constexpr int kFirstLunarYear = 1901;
inline constexpr int kLastLunarYear = 2050;

struct LunarDate {
    int year = 0;
    int month = 0;  // a leap month bears the number of the month before it, and nothing tells it
    int day = 0;

    friend bool operator==(const LunarDate&, const LunarDate&) = default;
};

// 28 to 31; 0 for a month outside 1 to 12.
[[nodiscard]] int GregorianMonthDays(int year, int month);

// Days from the second date to the first, both Gregorian.
[[nodiscard]] int DaysBetween(int y1, int m1, int d1, int y2, int m2, int d2);

// The month of the lunar year that is doubled; 0 for none.
[[nodiscard]] int LeapMonthOf(int year);

// Low half: the days of the month, 29 or 30. High half: those of its leap month, or 0. A year
// before 1901 gives 30.
[[nodiscard]] std::uint32_t LunarMonthDays(int year, int month);

// All days of the lunar year, its leap month included.
[[nodiscard]] int LunarYearDays(int year);

// The lunar date of a count of days since 1901-01-01.
[[nodiscard]] LunarDate DaysToLunar(int offset);

struct LunarDay {
    LunarDate date;
    int term = 0;  // the index of the solar term of that day, 0 for none
};

// The lunar date, and the solar term, of a Gregorian date.
[[nodiscard]] LunarDay SolarToLunar(int year, int month, int day);

// 1 to 24 if a solar term begins on that Gregorian date, 0 otherwise. A second term that falls on
// the 15th gets the index of the month's first: kept on purpose, no term falls there (test
// SolarTerms.NoneFallsOnTheFifteenth).
[[nodiscard]] int SolarTermIndex(int year, int month, int day);

// "小寒" for 1 to "冬至" for 24; empty for all others. Lives as long as the process.
[[nodiscard]] std::string_view SolarTermName(int index);

// Stem, branch, a blank, animal, "年": "辛卯 免年". The fourth animal is shown as "免": kept
// on purpose, it has always been shown so (test LunarNames.TheFourthAnimalIsShownAsItsLookAlike).
[[nodiscard]] std::string FormatLunarYear(int year);

// "　五月", with an ideographic space in front of months 1 to 10; month 1 is "　正月" when
// `useFirstMonthName` is set and "　一月" otherwise.
[[nodiscard]] std::string FormatLunarMonth(int month, bool useFirstMonthName);

// "初一" to "三十". The 20th is "廿十": kept on purpose, as the list of names gives it
// (test LunarNames.TheTwentiethReadsAsTwentyTen).
[[nodiscard]] std::string FormatLunarDay(int day);

// The festival of a Gregorian date: one of the Gregorian calendar first, of the lunar one
// otherwise; empty for none. Lives as long as the process.
[[nodiscard]] std::string_view FestivalOf(int year, int month, int day);

}  // namespace quorvi
