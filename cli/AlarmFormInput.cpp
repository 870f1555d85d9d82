#include "cli/AlarmFormInput.h"

#include <cstdint>

#include "pages/alarms/AlarmDays.h"

namespace quorvi::cli {
namespace {

constexpr std::uint32_t kLastHour = 23;
constexpr std::uint32_t kLastMinute = 59;

constexpr FormMember<AlarmSettings> kMembers[] = {
    {"label", kInto<&AlarmSettings::label>},
    {"hour", kCountInto<&AlarmSettings::hour, kLastHour>},
    {"minute", kCountInto<&AlarmSettings::minute, kLastMinute>},
    {"days", kCountInto<&AlarmSettings::days, kEveryAlarmDay>},
    {"enabled", kInto<&AlarmSettings::enabled>},
    {"vibrate", kInto<&AlarmSettings::vibrate>},
    {"alert", kInto<&AlarmSettings::alert>},
};

}  // namespace

std::variant<AlarmFormInput, FormComplaint> ReadAlarmForm(std::string_view utf8) {
    auto read = ReadForm<AlarmSettings>(kMembers, utf8);
    if (const auto* input = std::get_if<AlarmFormInput>(&read)) {
        if (!CanBeSent(input->form)) {
            return Complain(input->form.label.empty() ? "label" : "alert", u8"不能为空");
        }
    }
    return read;
}

}  // namespace quorvi::cli
