#include "pages/alarms/AlarmDays.h"

#include <cstddef>

#include "base/Text.h"

namespace quorvi {

std::string AlarmRepeatText(std::uint32_t days) {
    if (days == kNoAlarmDay) {
        return Ansi(u8"无重复");
    }
    if (days == kEveryAlarmDay) {
        return Ansi(u8"每天");
    }
    std::string text;
    for (std::size_t i = 0; i < kAlarmDays.size(); ++i) {
        if ((days >> i & 1) != 0) {
            text.append(Ansi(kAlarmDays[i].word)).append(" ");
        }
    }
    return text;
}

std::string AlarmRepetitionText(std::uint32_t days) {
    return Ansi(days == kNoAlarmDay ? u8"仅一次" : u8"有重复");
}

}  // namespace quorvi
