#include "agent/AgentSession.h"
#include "base/Json.h"
#include "base/Text.h"
#include "cli/Commands.h"
#include "cli/KeptDelete.h"
#include "cli/PhoneChange.h"
#include "pages/calls/CallLog.h"
#include "refdata/NumberAttribution.h"

namespace quorvi::cli {
namespace {

// The duration as the page shows it, without the line feed that the page's text ends in.
std::string DurationOf(const CallLogRow& row) {
    return std::string(TrimRight(row.duration));
}

Json::Value DocumentOf(const CallLogRow& row) {
    Json::Value item(Json::objectValue);
    item["id"] = row.id;
    item["name"] = JsonText(row.name);
    item["number"] = JsonText(row.number);
    item["attribution"] = JsonText(row.attribution);
    item["date"] = JsonText(row.time);
    item["duration"] = JsonText(DurationOf(row));
    item["type"] = JsonText(CallTypeText(row.type));
    return item;
}

}  // namespace

Status RunCallsList(const Arguments&, const Context& context, Output& output) {
    const auto [outcome, log] = FetchCallLog(AgentSession(context.agent), context.attribution);
    const Status status = output.Report(outcome);
    if (status != Status::done) {
        return status;
    }
    Json::Value document(Json::arrayValue);
    Table table{u8"编号", u8"联系人", u8"号码", u8"类型", u8"通话用时", u8"时间", u8"归属地"};
    for (const CallLogRow& row : log.rows) {
        document.append(DocumentOf(row));
        table.AddRow({std::to_string(row.id), row.name, row.number, CallTypeText(row.type),
                      DurationOf(row), row.time, row.attribution});
    }
    output.Json() ? output.PrintDocument(document) : output.PrintTable(table);
    return Status::done;
}

Status RunCallsDelete(const Arguments& arguments, const Context& context, Output& output) {
    return DeleteRows(
        arguments, context, u8"不是通话记录的编号", AgentCommand::listCalls,
        [](const AgentSession& session) { return FetchCallLog(session, NoAttribution); },
        &CallLogRow::id, &DeleteCallsRequest, output);
}

Status RunCallsClear(const Arguments& arguments, const Context& context, Output& output) {
    const auto find = [](AgentAddress agent) {
        return GoingOf(FetchSurely(agent, AgentCommand::listCalls, [&] {
            return FetchCallLog(AgentSession(agent), NoAttribution);
        }));
    };
    return KeepAndTell(arguments, context, find, DeleteAllCallsRequest(), "cleared", true, output);
}

}  // namespace quorvi::cli
