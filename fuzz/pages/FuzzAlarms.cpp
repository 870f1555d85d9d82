// Reads a list of alarms out of any bytes, whole or cut, and each as the editor opens it.
//
// Input: see FuzzReplyOf.h.
#include <cstdlib>

#include "fuzz/agent/FuzzReplyOf.h"
#include "pages/alarms/AlarmDays.h"
#include "pages/alarms/AlarmForm.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const auto reply = quorvi::fuzz::ReplyOf({data, size});
    if (!reply) {
        return 0;
    }
    const auto list = quorvi::ParseAlarmList(*reply);
    for (const quorvi::AlarmRow& row : list.rows) {
        const quorvi::AlarmSettings saved = quorvi::SettingsOf(quorvi::FormOf(row));
        const bool isTime = row.hour <= 24 && row.minute < 60;
        if ((isTime && (saved.hour != row.hour || saved.minute != row.minute)) ||
            saved.days > quorvi::kEveryAlarmDay || saved.label != row.label ||
            quorvi::AlarmTimeText(row.hour, row.minute).size() < 4 ||
            quorvi::AlarmRepetitionText(row.days).empty()) {
            std::abort();
        }
        static_cast<void>(quorvi::AlarmRepeatText(row.days));
        static_cast<void>(quorvi::UpdateAlarmRequest(row.id, saved));
    }
    return 0;
}
