#include "backup/CallFile.h"

#include "backup/ContactCard.h"
#include "backup/Csv.h"
#include "backup/FileEnding.h"
#include "backup/JsonLine.h"
#include "base/Text.h"

namespace quorvi {
namespace {

std::string Utf8(std::string_view ansi) {
    return CardText(ToUtf8(ansi));
}

std::string AsCsv(std::span<const CallLogRow> calls) {
    std::string csv(kUtf8Mark);
    AppendCsvRow(CsvRow{"姓名", "号码", "归属地", "类型", "时间", "通话用时"}, csv);
    for (const CallLogRow& call : calls) {
        const CsvRow row{Utf8(call.name),
                         Utf8(call.number),
                         Utf8(call.attribution),
                         Utf8(CallTypeText(call.type)),
                         call.time,
                         std::string(Trim(call.duration))};
        AppendCsvRow(row, csv);
    }
    return csv;
}

std::string AsJson(std::span<const CallLogRow> calls) {
    std::string json = "[";
    for (const CallLogRow& call : calls) {
        JsonLine line;
        line.BeginObject();
        line.Name("attribution").Text(Utf8(call.attribution));
        line.Name("duration").Text(Trim(call.duration));
        line.Name("name").Text(Utf8(call.name));
        line.Name("number").Text(Utf8(call.number));
        line.Name("time").Text(call.time);
        line.Name("type").Number(call.type);
        line.Name("type_text").Text(Utf8(CallTypeText(call.type)));
        json += json.size() == 1 ? "\n" : ",\n";
        json += line.EndObject().Take();
    }
    return json += "\n]\n";
}

}  // namespace

std::optional<CallFormat> CallFormatOf(std::string_view fileName) {
    const std::string ending = EndingOf(fileName);
    if (ending == "csv") {
        return CallFormat::csv;
    }
    return ending == "json" ? std::optional(CallFormat::json) : std::nullopt;
}

std::string WriteCallFile(CallFormat format, std::span<const CallLogRow> calls) {
    return format == CallFormat::csv ? AsCsv(calls) : AsJson(calls);
}

}  // namespace quorvi
