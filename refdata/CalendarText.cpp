#include "refdata/CalendarText.h"

#include <fmt/format.h>

#include <algorithm>
#include <cstddef>

#include "base/Text.h"
#include "refdata/LunarCalendar.h"

namespace quorvi {
namespace {

// A text as short as one byte names no festival.
constexpr std::size_t kShortestFestival = 2;
// 1901-01-01 was a Tuesday.
constexpr int kFirstWeekday = 2;
constexpr int kWeek = 7;

std::string_view Festival(const CalendarDate& date) {
    const std::string_view name = FestivalOf(date.year, date.month, date.day);
    return name.size() >= kShortestFestival ? name : std::string_view();
}

// The name of a festival or else of a term; empty for neither.
std::string_view Mark(const CalendarDate& date) {
    const std::string_view festival = Festival(date);
    return festival.empty() ? SolarTermName(SolarTermIndex(date.year, date.month, date.day))
                            : festival;
}

}  // namespace

std::string LunarLine(const CalendarDate& date) {
    const LunarDay lunar = SolarToLunar(date.year, date.month, date.day);
    std::string line(Festival(date));
    if (!line.empty()) {
        line += ' ';
    }
    line += Ansi(u8"农历: ");
    if (lunar.term != 0) {
        line.append("[").append(SolarTermName(lunar.term)).append("] ");
    }
    line.append(FormatLunarYear(lunar.date.year)).append(" ");
    line.append(FormatLunarMonth(lunar.date.month, true)).append(" ");
    return line.append(FormatLunarDay(lunar.date.day));
}

std::string CellText(const CalendarDate& date) {
    const std::string_view mark = Mark(date);
    return mark.empty() ? FormatLunarDay(SolarToLunar(date.year, date.month, date.day).date.day)
                        : std::string(mark);
}

bool IsMarkedDay(const CalendarDate& date) {
    return !Mark(date).empty();
}

int WeekdayOf(const CalendarDate& date) {
    const int days = DaysBetween(date.year, date.month, date.day, kFirstLunarYear, 1, 1);
    return ((days + kFirstWeekday) % kWeek + kWeek) % kWeek;
}

std::string WeekdayName(int weekday) {
    constexpr std::u8string_view kNames[] = {u8"星期日", u8"星期一", u8"星期二", u8"星期三",
                                             u8"星期四", u8"星期五", u8"星期六"};
    return weekday >= 0 && weekday < kWeek ? Ansi(kNames[weekday]) : std::string();
}

std::string MonthName(int month) {
    constexpr std::u8string_view kNames[] = {u8"一月", u8"二月", u8"三月",   u8"四月",
                                             u8"五月", u8"六月", u8"七月",   u8"八月",
                                             u8"九月", u8"十月", u8"十一月", u8"十二月"};
    return month >= 1 && month <= 12 ? Ansi(kNames[month - 1]) : std::string();
}

std::optional<CalendarDate> ParseCalendarDate(std::string_view text) {
    constexpr std::string_view kForm = "dddd-dd-dd";
    const bool formed = std::equal(
        text.begin(), text.end(), kForm.begin(), kForm.end(),
        [](char c, char form) { return form == 'd' ? c >= '0' && c <= '9' : c == form; });
    if (!formed) {
        return std::nullopt;
    }
    const CalendarDate date{ToInt(text.substr(0, 4)), ToInt(text.substr(5, 2)),
                            ToInt(text.substr(8, 2))};
    const bool exists = date.year >= kFirstLunarYear && date.year <= kLastLunarYear &&
                        date.day >= 1 && date.day <= GregorianMonthDays(date.year, date.month);
    return exists ? std::optional(date) : std::nullopt;
}

std::string FormatCalendarDate(const CalendarDate& date) {
    return fmt::format("{:04}-{:02}-{:02}", date.year, date.month, date.day);
}

}  // namespace quorvi
