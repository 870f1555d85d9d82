#include "refdata/LunarCalendar.h"

#include <algorithm>
#include <array>
#include <cstddef>

namespace quorvi {
namespace {

constexpr int kMonths = 12;
constexpr int kYears = kLastLunarYear - kFirstLunarYear + 1;
constexpr int kLongMonth = 30;
constexpr int kShortMonth = 29;

// The lunar year 1901 begins this many days after 1901-01-01, month 12 of 1900 this many.
constexpr int kFirstNewYear = 49;
constexpr int kTwelfthOf1900 = 19;

// Of the two terms of a month one lies before the middle day, one not before it.
constexpr int kMiddleDay = 15;

constexpr std::array<std::uint16_t, kYears> kMonthBits = {
#include "refdata/data/LunarMonthBits.inc"
};
constexpr std::array<std::uint8_t, kYears / 2> kLeapNibbles = {
#include "refdata/data/LeapMonthNibbles.inc"
};
constexpr std::array<std::array<std::uint8_t, kMonths>, kYears> kTermDays = {{
#include "refdata/data/SolarTermDays.inc"
}};

constexpr bool HasRow(int year) {
    return year >= kFirstLunarYear && year <= kLastLunarYear;
}
constexpr std::size_t RowOf(int year) {
    return static_cast<std::size_t>(year - kFirstLunarYear);
}

constexpr int LeapMonthIn(int year) {
    if (!HasRow(year)) {
        return 0;
    }
    const std::size_t row = RowOf(year);
    const int byte = kLeapNibbles[row / 2];
    return row % 2 == 0 ? byte >> 4 : byte & 0x0F;
}

struct MonthDays {
    int plain = 0;
    int leap = 0;
};

constexpr MonthDays DaysOfMonth(int year, int month) {
    if (!HasRow(year) || month < 1 || month > kMonths) {
        return {kLongMonth, 0};
    }
    const int leapMonth = LeapMonthIn(year);
    const int bit = (leapMonth != 0 && month > leapMonth ? 15 : 16) - month;
    const auto lengthAt = [bits = kMonthBits[RowOf(year)]](int at) {
        return (bits >> at & 1) != 0 ? kLongMonth : kShortMonth;
    };
    return {lengthAt(bit), month == leapMonth ? lengthAt(bit - 1) : 0};
}

constexpr int DaysOfYear(int year) {
    int days = 0;
    for (int month = 1; month <= kMonths; ++month) {
        const MonthDays length = DaysOfMonth(year, month);
        days += length.plain + length.leap;
    }
    return days;
}

// A walk through a year's months ends with the twelfth.
constexpr bool NoYearDoublesItsTwelfthMonth() {
    for (int year = kFirstLunarYear; year <= kLastLunarYear; ++year) {
        if (LeapMonthIn(year) >= kMonths) {
            return false;
        }
    }
    return true;
}
static_assert(NoYearDoublesItsTwelfthMonth());

// Days from the first lunar new year of the table to that of each year, and to the end of the last:
// what a walk from year to year would add up.
constexpr std::array<int, kYears + 1> kNewYears = [] {
    std::array<int, kYears + 1> sums{};
    for (std::size_t i = 0; i < kYears; ++i) {
        sums[i + 1] = sums[i] + DaysOfYear(kFirstLunarYear + static_cast<int>(i));
    }
    return sums;
}();

constexpr bool IsGregorianLeap(int year) {
    return year % 4 == 0 && (year % 100 != 0 || year % 400 == 0);
}

// The days of a Gregorian year that lie before each month.
constexpr std::array<int, kMonths> kDaysBeforeMonth = {0,   31,  59,  90,  120, 151,
                                                       181, 212, 243, 273, 304, 334};

constexpr std::int64_t DayNumber(int year, int month, int day) {
    const std::int64_t past = std::int64_t{year} - 1;
    std::int64_t number = past * 365 + past / 4 - past / 100 + past / 400 + day;
    number += kDaysBeforeMonth[static_cast<std::size_t>(std::clamp(month, 1, kMonths) - 1)];
    return month > 2 && IsGregorianLeap(year) ? number + 1 : number;
}

}  // namespace

int GregorianMonthDays(int year, int month) {
    constexpr std::array<int, kMonths> kDays = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    if (month < 1 || month > kMonths) {
        return 0;
    }
    return kDays[static_cast<std::size_t>(month - 1)] +
           (month == 2 && IsGregorianLeap(year) ? 1 : 0);
}

int DaysBetween(int y1, int m1, int d1, int y2, int m2, int d2) {
    return static_cast<int>(DayNumber(y1, m1, d1) - DayNumber(y2, m2, d2));
}

int LeapMonthOf(int year) {
    return LeapMonthIn(year);
}

std::uint32_t LunarMonthDays(int year, int month) {
    const MonthDays days = DaysOfMonth(year, month);
    return static_cast<std::uint32_t>(days.leap) << 16 | static_cast<std::uint32_t>(days.plain);
}

int LunarYearDays(int year) {
    return HasRow(year) ? kNewYears[RowOf(year) + 1] - kNewYears[RowOf(year)] : DaysOfYear(year);
}

LunarDate DaysToLunar(int offset) {
    if (offset < kFirstNewYear) {
        return offset >= kTwelfthOf1900 ? LunarDate{1900, 12, offset - 18}
                                        : LunarDate{1900, 11, offset + 11};
    }
    int rest = offset - kFirstNewYear;
    const auto* next = std::upper_bound(kNewYears.begin(), kNewYears.end(), rest);
    LunarDate date{kFirstLunarYear + static_cast<int>(next - kNewYears.begin()) - 1, 1, 1};
    rest -= *(next - 1);
    for (; date.month < kMonths; ++date.month) {
        const MonthDays length = DaysOfMonth(date.year, date.month);
        if (rest < length.plain) {
            break;
        }
        rest -= length.plain;
        if (length.leap != 0) {
            if (rest < length.leap) {
                break;
            }
            rest -= length.leap;
        }
    }
    date.day += rest;
    return date;
}

LunarDay SolarToLunar(int year, int month, int day) {
    return {DaysToLunar(DaysBetween(year, month, day, kFirstLunarYear, 1, 1)),
            SolarTermIndex(year, month, day)};
}

int SolarTermIndex(int year, int month, int day) {
    if (!HasRow(year) || month < 1 || month > kMonths) {
        return 0;
    }
    const int byte = kTermDays[RowOf(year)][static_cast<std::size_t>(month - 1)];
    const int termDay = day < kMiddleDay ? kMiddleDay - (byte >> 4) : kMiddleDay + (byte & 0x0F);
    if (day != termDay) {
        return 0;
    }
    return 2 * month - 1 + (day > kMiddleDay ? 1 : 0);
}

}  // namespace quorvi
