// One month as a grid of weeks, and the ways from one day to another. Gregorian dates.
#pragma once

#include <optional>

#include "refdata/CalendarText.h"

namespace quorvi {

// The years of the calendar page.
inline constexpr int kFirstCalendarYear = 1970;
inline constexpr int kLastCalendarYear = 2037;

inline constexpr int kWeekDays = 7;

// The weeks of a month, Sunday first. Cells before the first day and behind the last are empty.
class CalendarMonth {
  public:
    CalendarMonth(int year, int month);

    struct Cell {
        int week = 0;
        int weekday = 0;
    };

    [[nodiscard]] int Year() const { return year_; }
    [[nodiscard]] int Month() const { return month_; }
    [[nodiscard]] int Weeks() const;  // 4 to 6
    [[nodiscard]] std::optional<CalendarDate> At(Cell cell) const;
    // Nothing for a day that the month does not have.
    [[nodiscard]] std::optional<Cell> CellOf(int day) const;

    friend bool operator==(const CalendarMonth&, const CalendarMonth&) = default;

  private:
    int year_;
    int month_;
    int first_;  // weekday of the 1st
    int days_;
};

// Today, by the local clock.
[[nodiscard]] CalendarDate Today();

// The local date 86,400 seconds after (`days` 1) or before (-1) the local midnight at which `date`
// begins; where a day is longer or shorter, this is not the next day: kept on purpose (test
// CalendarSteps.WhereADayIsLongerOrShorterTheStepIsNotToTheNeighbour). Nothing
// where it would leave the calendar page's years.
[[nodiscard]] std::optional<CalendarDate> StepBySeconds(const CalendarDate& date, int days);

// The day so many days later, by the calendar. Nothing where it would leave the page's years.
[[nodiscard]] std::optional<CalendarDate> StepByDays(const CalendarDate& date, int days);

// The same day so many months later, or the month's last where it is shorter.
[[nodiscard]] std::optional<CalendarDate> StepByMonths(const CalendarDate& date, int months);

}  // namespace quorvi
