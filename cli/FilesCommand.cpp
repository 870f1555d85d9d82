#include "agent/AgentSession.h"
#include "base/Format.h"
#include "base/Json.h"
#include "base/Text.h"
#include "cli/Commands.h"
#include "cli/Output.h"
#include "pages/files/FileList.h"
#include "pages/files/FileName.h"

namespace quorvi::cli {
namespace {

Json::Value DocumentOf(const FileRecord& row) {
    Json::Value item(Json::objectValue);
    item["name"] = JsonText(SplitFileName(row.path).name);
    item["path"] = JsonText(row.path);
    item["folder"] = row.isFolder;
    item["size"] = Json::Value::UInt64{row.size};
    item["modified"] = Json::Value::UInt64{row.modifiedTime};
    item["readable"] = row.readable;
    item["writable"] = row.writable;
    item["hidden"] = row.hidden;
    item["attributes"] = JsonText(row.attributes.View());
    return item;
}

}  // namespace

// Without a path the root. A path has to be the phone's own: what the code page would change names
// another folder.
Status RunFilesList(const Arguments& arguments, const Context& context, Output& output) {
    const std::string path = arguments.operands.empty() ? "" : arguments.operands.front();
    if (!arguments.operands.empty() && (path.empty() || !FitsCodePage(path))) {
        output.Complain(ToAnsi(path) + Ansi(u8": 不是手机上的路径"));
        return Status::wrongUsage;
    }
    const AgentSession session(context.agent);
    const auto [outcome, list] =
        path.empty() ? FetchFileRoots(session) : FetchDirectory(session, ToAnsi(path));
    const Status status = output.Report(outcome);
    if (status != Status::done) {
        return status;
    }
    if (outcome == SessionOutcome::noData && !path.empty()) {
        output.Complain(ToAnsi(path) + Ansi(u8": 手机上没有这个文件夹"));
        return Status::notFound;
    }
    Json::Value document(Json::objectValue);
    document["parent"] = JsonText(list.header ? list.header->parentPath : std::string());
    Json::Value& entries = document["entries"] = Json::Value(Json::arrayValue);
    Table table{u8"文件名", u8"大小", u8"文件类型", u8"上次修改时间", u8"属性", u8"路径"};
    for (const FileRecord& row : list.rows) {
        entries.append(DocumentOf(row));
        table.AddRow({std::string(SplitFileName(row.path).name), FormatByteSize(row.size),
                      FileTypeText(row.isFolder), ModifiedTimeText(row.modifiedTime),
                      std::string(row.attributes.View()), row.path});
    }
    output.Json() ? output.PrintDocument(document) : output.PrintTable(table);
    return Status::done;
}

}  // namespace quorvi::cli
