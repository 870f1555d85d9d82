#include "refdata/CalendarMonth.h"

#include <algorithm>
#include <ctime>

#include "refdata/LunarCalendar.h"

namespace quorvi {
namespace {

constexpr std::time_t kSecondsADay = 86'400;
constexpr int kMonths = 12;
constexpr int kClockEpoch = 1900;

CalendarDate LocalDateOf(std::time_t time) {
    std::tm local{};
    localtime_r(&time, &local);
    return {local.tm_year + kClockEpoch, local.tm_mon + 1, local.tm_mday};
}

std::optional<CalendarDate> InPageYears(const CalendarDate& date) {
    return date.year >= kFirstCalendarYear && date.year <= kLastCalendarYear ? std::optional(date)
                                                                             : std::nullopt;
}

}  // namespace

CalendarMonth::CalendarMonth(int year, int month)
    : year_(year),
      month_(month),
      first_(WeekdayOf({year, month, 1})),
      days_(GregorianMonthDays(year, month)) {}

int CalendarMonth::Weeks() const {
    return (first_ + days_ + kWeekDays - 1) / kWeekDays;
}

std::optional<CalendarDate> CalendarMonth::At(Cell cell) const {
    const int day = cell.week * kWeekDays + cell.weekday - first_ + 1;
    const bool inMonth = cell.weekday >= 0 && cell.weekday < kWeekDays && day >= 1 && day <= days_;
    return inMonth ? std::optional(CalendarDate{year_, month_, day}) : std::nullopt;
}

std::optional<CalendarMonth::Cell> CalendarMonth::CellOf(int day) const {
    if (day < 1 || day > days_) {
        return std::nullopt;
    }
    const int at = first_ + day - 1;
    return Cell{at / kWeekDays, at % kWeekDays};
}

CalendarDate Today() {
    return LocalDateOf(std::time(nullptr));
}

std::optional<CalendarDate> StepBySeconds(const CalendarDate& date, int days) {
    std::tm midnight{};
    midnight.tm_year = date.year - kClockEpoch;
    midnight.tm_mon = date.month - 1;
    midnight.tm_mday = date.day;
    midnight.tm_isdst = -1;
    return InPageYears(LocalDateOf(std::mktime(&midnight) + days * kSecondsADay));
}

std::optional<CalendarDate> StepByDays(const CalendarDate& date, int days) {
    CalendarDate stepped{date.year, date.month, date.day + days};
    for (; stepped.day < 1; stepped.day += GregorianMonthDays(stepped.year, stepped.month)) {
        stepped.year -= stepped.month == 1 ? 1 : 0;
        stepped.month = stepped.month == 1 ? kMonths : stepped.month - 1;
    }
    for (int length = 0;
         stepped.day > (length = GregorianMonthDays(stepped.year, stepped.month));) {
        stepped.day -= length;
        stepped.year += stepped.month == kMonths ? 1 : 0;
        stepped.month = stepped.month == kMonths ? 1 : stepped.month + 1;
    }
    return InPageYears(stepped);
}

std::optional<CalendarDate> StepByMonths(const CalendarDate& date, int months) {
    const int count = date.year * kMonths + date.month - 1 + months;
    CalendarDate stepped{count / kMonths, count % kMonths + 1, date.day};
    stepped.day = std::clamp(stepped.day, 1, GregorianMonthDays(stepped.year, stepped.month));
    return InPageYears(stepped);
}

}  // namespace quorvi
