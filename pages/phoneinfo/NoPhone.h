// What the dashboard shows in the place of a phone's state.
#pragma once

#include <string_view>

#include "base/HtmlFragment.h"
#include "link/PhonePresence.h"

namespace quorvi {

// The text of the private link in it that opens the guide for users.
inline constexpr std::string_view kGuideLink = "guide";

// The element of the dashboard's template that holds it, as long as there is no state to show.
inline constexpr const char* kNoPhoneElement = "no_phone";

// Of `none` as the template itself has it: how a phone is connected. Else what its user can do.
[[nodiscard]] HtmlFragment NoPhoneFragment(LinkTrouble trouble);

}  // namespace quorvi
