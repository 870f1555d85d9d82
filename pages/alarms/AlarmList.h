// The alarms of the phone's clock, as command 870401 lists them, and their deletion.
#pragma once

#include <cstdint>
#include <span>
#include <string>

#include "agent/AgentSession.h"
#include "agent/Reply.h"
#include "agent/Request.h"
#include "pages/kit/ListReply.h"

namespace quorvi {

// One row; texts are ANSI.
struct AlarmRow {
    std::uint32_t id = 0;      // what all other commands name the alarm by
    std::uint32_t hour = 0;    // 0 to 23
    std::uint32_t minute = 0;  // 0 to 59
    std::uint32_t days = 0;    // see AlarmDays.h
    bool enabled = false;
    bool vibrate = false;
    std::string label;
    std::string tone;             // the ring tone's title
    std::uint64_t alertTime = 0;  // a value of the agent's, which is shown and never sent back
    std::string alert;            // the ring tone's address on the phone
};

// Ended by the mark in a label.
using AlarmList = ReadList<AlarmRow>;
using AlarmListReply = ListReply<AlarmRow>;

// Reads the run of records. A record with a length that points outside the reply, or in whose id
// the reply was cut, ends the run and is dropped. Any thread.
[[nodiscard]] AlarmList ParseAlarmList(const ReplyBuffer& reply);

// One session that reads the list. Any thread.
[[nodiscard]] AlarmListReply FetchAlarmList(const AgentSession& session,
                                            const AgentSession::Progress& progress = {});

// "07:05".
[[nodiscard]] std::string AlarmTimeText(std::uint32_t hour, std::uint32_t minute);
// The two switches in words: the second is also the caption of the editor's tick box. ANSI.
[[nodiscard]] std::string AlarmStateText(bool enabled);
[[nodiscard]] std::string AlarmVibrateText(bool vibrate);

// The request of command 870405.
[[nodiscard]] Bytes DeleteAlarmsRequest(std::span<const std::uint32_t> ids);

}  // namespace quorvi
