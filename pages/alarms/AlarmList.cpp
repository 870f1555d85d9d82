#include "pages/alarms/AlarmList.h"

#include <fmt/format.h>

#include <utility>

#include "base/Text.h"

namespace quorvi {

AlarmList ParseAlarmList(const ReplyBuffer& reply) {
    return ReadRun<AlarmRow>(reply, [](ReplyCursor& cursor, AlarmRow& row) {
        row.id = cursor.TakeId();
        if (cursor.IsCut()) {
            return RecordEnd::cut;  // a change of the row would go to whatever alarm has this id
        }
        row.hour = cursor.TakeUInt32();
        row.minute = cursor.TakeUInt32();
        row.days = cursor.TakeUInt32();
        row.enabled = cursor.TakeFlag();
        row.vibrate = cursor.TakeFlag();
        auto label = cursor.TakeText();
        if (!label) {
            return RecordEnd::mark;
        }
        row.label = std::move(*label);
        row.tone = cursor.TakeTextOrEmpty();
        row.alertTime = cursor.TakeUInt64();
        row.alert = cursor.TakeTextOrEmpty();
        return cursor.Overran() ? RecordEnd::cut : RecordEnd::whole;
    });
}

AlarmListReply FetchAlarmList(const AgentSession& session, const AgentSession::Progress& progress) {
    return FetchList<AlarmRow>(session, BareRequest(AgentCommand::listAlarms), progress,
                               ParseAlarmList);
}

std::string AlarmTimeText(std::uint32_t hour, std::uint32_t minute) {
    return fmt::format("{:02}:{:02}", static_cast<std::int32_t>(hour),
                       static_cast<std::int32_t>(minute));
}

std::string AlarmStateText(bool enabled) {
    return Ansi(enabled ? u8"已启用" : u8"已禁用");
}

std::string AlarmVibrateText(bool vibrate) {
    return Ansi(vibrate ? u8"振动提醒" : u8"振动关闭");
}

Bytes DeleteAlarmsRequest(std::span<const std::uint32_t> ids) {
    return IdsRequest(AgentCommand::deleteAlarms, ids);
}

}  // namespace quorvi
