#include "base/Json.h"
#include "base/Text.h"
#include "cli/Commands.h"
#include "cli/OperandLines.h"
#include "cli/Output.h"
#include "refdata/CalendarText.h"
#include "refdata/LunarCalendar.h"

namespace quorvi::cli {
namespace {

Json::Value Describe(const CalendarDate& date) {
    const LunarDay lunar = SolarToLunar(date.year, date.month, date.day);
    Json::Value line;
    line["date"] = FormatCalendarDate(date);
    line["year"] = lunar.date.year;
    line["month"] = lunar.date.month;
    line["day"] = lunar.date.day;
    line["term"] = JsonText(SolarTermName(lunar.term));
    line["festival"] = JsonText(FestivalOf(date.year, date.month, date.day));
    line["line"] = JsonText(LunarLine(date));
    line["cell"] = JsonText(CellText(date));
    return line;
}

}  // namespace

Status RunLunar(const Arguments& arguments, const Context&, Output& output) {
    Status status = Status::done;
    ForEachOperand(arguments.operands, [&](const std::string& operand) {
        const auto date = ParseCalendarDate(operand);
        if (!date) {
            output.Complain(Ansi(u8"不是 1901-01-01 至 2050-12-31 的日期: ") + ToAnsi(operand));
            status = Status::wrongUsage;
        } else if (output.Json()) {
            output.PrintJsonLine(Describe(*date));
        } else {
            output.PrintLine(FormatCalendarDate(*date) + "  " + LunarLine(*date));
        }
    });
    return status;
}

}  // namespace quorvi::cli
