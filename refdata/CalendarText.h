// What the calendar says of a day. Texts are ANSI. Any thread; Gregorian dates from 1901-01-01 to
// 2050-12-31.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace quorvi {

struct CalendarDate {
    int year = 0;
    int month = 0;
    int day = 0;

    friend bool operator==(const CalendarDate&, const CalendarDate&) = default;
};

// Festival and a blank if there is one, "农历: ", "[term] " if one begins, then year, month and
// day.
[[nodiscard]] std::string LunarLine(const CalendarDate& date);

// The second line of a day's cell: the festival if there is one, else the solar term, else the
// lunar day.
[[nodiscard]] std::string CellText(const CalendarDate& date);

// Whether the cell's text is a festival or a solar term.
[[nodiscard]] bool IsMarkedDay(const CalendarDate& date);

// 0 for Sunday to 6 for Saturday.
[[nodiscard]] int WeekdayOf(const CalendarDate& date);

// "星期日" to "星期六"; empty outside 0 to 6.
[[nodiscard]] std::string WeekdayName(int weekday);

// "一月" to "十二月"; empty outside 1 to 12.
[[nodiscard]] std::string MonthName(int month);

// A date of "2012-06-19": four, two and two digits that name a day of the years 1901 to 2050.
[[nodiscard]] std::optional<CalendarDate> ParseCalendarDate(std::string_view text);

// As ParseCalendarDate reads it.
[[nodiscard]] std::string FormatCalendarDate(const CalendarDate& date);

}  // namespace quorvi
