#include "agent/AgentSession.h"
#include "base/Format.h"
#include "base/Json.h"
#include "base/Text.h"
#include "cli/Commands.h"
#include "cli/PhoneChange.h"
#include "pages/tasks/TaskList.h"

namespace quorvi::cli {
namespace {

Json::Value DocumentOf(const TaskRecord& row) {
    Json::Value item(Json::objectValue);
    item["name"] = JsonText(row.name);
    item["package"] = JsonText(row.package);
    item["importance"] = JsonText(ImportanceText(row.importance));
    item["cpu"] = row.cpu;
    item["memory"] = Json::Value::UInt64{row.memory};
    item["pid"] = row.pid;
    item["system"] = row.isSystem;
    return item;
}

}  // namespace

Status RunProcessesList(const Arguments&, const Context& context, Output& output) {
    const auto [outcome, list] = FetchTaskList(AgentSession(context.agent));
    const Status status = output.Report(outcome);
    if (status != Status::done) {
        return status;
    }
    Json::Value document(Json::arrayValue);
    Table table{u8"应用名称", u8"包名",     u8"系统自带", u8"CPU 使用率",
                u8"内存占用", u8"重要程度", u8"PID"};
    for (const TaskRecord& row : list.rows) {
        document.append(DocumentOf(row));
        table.AddRow({row.name, row.package, Ansi(row.isSystem ? u8"是" : u8"否"),
                      CpuShareText(row.cpu), FormatByteSize(row.memory),
                      ImportanceText(row.importance), std::to_string(row.pid)});
    }
    output.Json() ? output.PrintDocument(document) : output.PrintTable(table);
    return Status::done;
}

Status RunProcessesEnd(const Arguments& arguments, const Context& context, Output& output) {
    const auto packages = ReadPackages(arguments.operands, output);
    if (!packages) {
        return Status::wrongUsage;
    }
    Json::Value ended(Json::arrayValue);
    for (const std::string& operand : arguments.operands) {
        ended.append(operand);
    }
    return SendAndTell(context, EndProcessesRequest(*packages), "ended", ended, output);
}

Status RunProcessesMemory(const Arguments&, const Context& context, Output& output) {
    const AcknowledgedReply reply = FetchFreeMemory(AgentSession(context.agent));
    const Status status = output.Report(reply.outcome);
    if (status != Status::done) {
        return status;
    }
    if (output.Json()) {
        Json::Value document(Json::objectValue);
        document["free"] = reply.word;
        output.PrintDocument(document);
    } else {
        output.PrintLine(FormatByteSize(reply.word));
    }
    return Status::done;
}

}  // namespace quorvi::cli
