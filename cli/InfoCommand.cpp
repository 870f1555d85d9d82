#include "agent/AgentSession.h"
#include "base/Json.h"
#include "base/Text.h"
#include "cli/Commands.h"
#include "cli/Output.h"
#include "pages/phoneinfo/SystemInfo.h"

namespace quorvi::cli {

Status RunInfo(const Arguments&, const Context& context, Output& output) {
    const PayloadReply reply =
        AgentSession(context.agent).RunPayload(BareRequest(AgentCommand::systemInformation));
    const Status status = output.Report(reply.outcome);
    if (status != Status::done) {
        return status;
    }
    Json::Value document(Json::arrayValue);
    Table table{u8"类型", u8"详细信息"};
    if (const auto info = reply.HasPayload() ? ParseSystemInfo(reply.buffer) : std::nullopt) {
        for (const SystemInfoRow& row : SystemInfoTable(*info)) {
            Json::Value item;
            item["caption"] = JsonText(row.caption);
            item["text"] = JsonText(row.text);
            document.append(item);
            table.AddRow({row.caption, row.text});
        }
    }
    output.Json() ? output.PrintDocument(document) : output.PrintTable(table);
    return Status::done;
}

}  // namespace quorvi::cli
