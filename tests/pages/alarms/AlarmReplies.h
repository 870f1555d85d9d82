// Replies of a phone with alarms.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "tests/support/WireBytes.h"

namespace quorvi {

struct ListedAlarm {
    std::uint64_t id = 7;
    std::uint32_t hour = 7;
    std::uint32_t minute = 5;
    std::uint32_t days = 0x1F;
    std::uint32_t enabled = 1;
    std::uint32_t vibrate = 0;
    std::string label = "起床";
    std::string tone = "晨光";
    std::uint64_t alertTime = 1308351900000;
    std::string alert = "content://media/internal/audio/media/4";
};

inline WireBytes AlarmsPayload(const std::vector<ListedAlarm>& alarms) {
    WireBytes bytes;
    bytes.U32(0);  // leading word
    for (const ListedAlarm& alarm : alarms) {
        bytes
            .U64(alarm.id)         // alarm id
            .U32(alarm.hour)       // hour
            .U32(alarm.minute)     // minute
            .U32(alarm.days)       // days
            .U32(alarm.enabled)    // enabled
            .U32(alarm.vibrate)    // vibrate
            .Text(alarm.label)     // label
            .Text(alarm.tone)      // tone title
            .U64(alarm.alertTime)  // alert time
            .Text(alarm.alert);    // alert
    }
    return bytes;
}

}  // namespace quorvi
