#include "base/Json.h"
#include "base/Text.h"
#include "cli/Commands.h"
#include "cli/Output.h"
#include "report/Report.h"

namespace quorvi::cli {
namespace {

Json::Value DocumentOf(const Report& report) {
    Json::Value files(Json::arrayValue);
    for (const ReportFile& file : report.files) {
        Json::Value row(Json::objectValue);
        row["name"] = file.name;
        row["what"] = JsonText(Ansi(file.what));
        row["bytes"] = static_cast<Json::UInt64>(ToUtf8(file.text).size());
        files.append(std::move(row));
    }
    return files;
}

}  // namespace

Status RunReport(const Arguments& arguments, const Context&, Output& output) {
    const std::string& file = arguments.operands.front();
    const Report report = CollectReport({});
    if (!output.Json()) {
        output.PrintLine(Trim(ReportList(report)));
    }
    const ReportSaved saved = SaveReport(report, file, ExistingFile::refuses);
    if (!saved.saved) {
        output.Complain(ToAnsi(file) + Ansi(u8": 没有保存，") + saved.why);
    }
    if (output.Json()) {
        Json::Value document(Json::objectValue);
        document["files"] = DocumentOf(report);
        document["saved"] = saved.saved;
        output.PrintDocument(document);
    } else if (saved.saved) {
        output.PrintLine(Ansi(u8"已保存到 ") + ToAnsi(file));
    }
    return saved.saved ? Status::done : Status::wrongUsage;
}

}  // namespace quorvi::cli
