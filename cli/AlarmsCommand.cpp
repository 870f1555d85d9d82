#include "agent/AgentSession.h"
#include "base/Json.h"
#include "base/Text.h"
#include "cli/AlarmFormInput.h"
#include "cli/Commands.h"
#include "cli/FormInput.h"
#include "cli/KeptDelete.h"
#include "cli/PhoneChange.h"
#include "pages/alarms/AlarmDays.h"
#include "pages/alarms/AlarmForm.h"
#include "pages/alarms/AlarmList.h"

namespace quorvi::cli {
namespace {

constexpr std::u8string_view kNoAlarmId = u8"不是闹铃的编号";

Json::Value DocumentOf(const AlarmRow& row) {
    Json::Value item(Json::objectValue);
    item["id"] = row.id;
    item["time"] = JsonText(AlarmTimeText(row.hour, row.minute));
    item["repeat"] = JsonText(AlarmRepeatText(row.days));
    item["hour"] = row.hour;
    item["minute"] = row.minute;
    item["days"] = row.days;
    item["enabled"] = row.enabled;
    item["vibrate"] = row.vibrate;
    item["label"] = JsonText(row.label);
    item["tone"] = JsonText(row.tone);
    item["alert"] = JsonText(row.alert);
    item["alert_time"] = static_cast<Json::UInt64>(row.alertTime);
    return item;
}

std::optional<AlarmSettings> SettingsOfInput(Output& output) {
    return FormOfInput(ReadAlarmForm(StandardInput()), output);
}

}  // namespace

Status RunAlarmsList(const Arguments&, const Context& context, Output& output) {
    const auto [outcome, list] = FetchAlarmList(AgentSession(context.agent));
    const Status status = output.Report(outcome);
    if (status != Status::done) {
        return status;
    }
    Json::Value document(Json::arrayValue);
    Table table{u8"编号", u8"标题", u8"时间", u8"闹铃周期", u8"闹铃音乐", u8"振动提醒", u8"状态"};
    for (const AlarmRow& row : list.rows) {
        document.append(DocumentOf(row));
        table.AddRow({std::to_string(row.id), row.label, AlarmTimeText(row.hour, row.minute),
                      AlarmRepeatText(row.days), row.tone, AlarmVibrateText(row.vibrate),
                      AlarmStateText(row.enabled)});
    }
    output.Json() ? output.PrintDocument(document) : output.PrintTable(table);
    return Status::done;
}

Status RunAlarmsAdd(const Arguments&, const Context& context, Output& output) {
    const auto settings = SettingsOfInput(output);
    return settings ? SendAndTell(context, AddAlarmRequest(*settings), "added",
                                  JsonText(settings->label), output)
                    : Status::wrongUsage;
}

Status RunAlarmsUpdate(const Arguments& arguments, const Context& context, Output& output) {
    const auto ids = ReadIds(arguments.operands, kNoAlarmId, output);
    const auto settings = ids ? SettingsOfInput(output) : std::nullopt;
    return settings ? SendAndTell(context, UpdateAlarmRequest(ids->front(), *settings), "updated",
                                  ids->front(), output)
                    : Status::wrongUsage;
}

Status RunAlarmsDelete(const Arguments& arguments, const Context& context, Output& output) {
    return DeleteRows(
        arguments, context, kNoAlarmId, AgentCommand::listAlarms,
        [](const AgentSession& session) { return FetchAlarmList(session); }, &AlarmRow::id,
        &DeleteAlarmsRequest, output);
}

}  // namespace quorvi::cli
