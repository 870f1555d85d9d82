// What an alarm is set to, as a JSON object.
#pragma once

#include <string_view>
#include <variant>

#include "cli/FormInput.h"
#include "pages/alarms/AlarmForm.h"

namespace quorvi::cli {

using AlarmFormInput = FormInput<AlarmSettings>;

// {label, hour: 0 to 23, minute: 0 to 59, days: 0 to 127, enabled, vibrate, alert}; a member left
// out is a field as the editor for a new alarm opens with it: 8:00 once, switched off, the phone's
// own ring tone. A member of another name, of another kind or out of its bounds is refused, and so
// is an empty label or ring tone, of which the editor sends nothing.
[[nodiscard]] std::variant<AlarmFormInput, FormComplaint> ReadAlarmForm(std::string_view utf8);

}  // namespace quorvi::cli
