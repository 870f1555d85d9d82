#include "agent/AgentSession.h"
#include "base/Json.h"
#include "base/Text.h"
#include "cli/Commands.h"
#include "cli/Output.h"
#include "pages/autostart/AutoStart.h"

namespace quorvi::cli {

Status RunAutoStartList(const Arguments&, const Context& context, Output& output) {
    const auto [outcome, list] = FetchAutoStart(AgentSession(context.agent));
    const Status status = output.Report(outcome);
    if (status != Status::done) {
        return status;
    }
    if (list.unknownEvent) {
        output.Complain(UnknownEventText(*list.unknownEvent));
    }
    Json::Value document(Json::arrayValue);
    Table table{u8"事件", u8"说明", u8"应用", u8"包名"};
    for (const auto& [event, items] : list.groups) {
        const std::string caption = Ansi(StartEventCaption(static_cast<std::size_t>(event)));
        Json::Value group(Json::objectValue);
        group["event"] = event;
        group["caption"] = JsonText(caption);
        Json::Value& applications = group["applications"] = Json::Value(Json::arrayValue);
        for (const AutoStartItem& item : items) {
            Json::Value application(Json::objectValue);
            application["name"] = JsonText(item.name);
            application["package"] = JsonText(item.package);
            applications.append(application);
            table.AddRow({std::to_string(event), caption, item.name, item.package});
        }
        document.append(group);
    }
    output.Json() ? output.PrintDocument(document) : output.PrintTable(table);
    return Status::done;
}

}  // namespace quorvi::cli
