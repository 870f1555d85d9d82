// The sample site's services: what it answers to the forms that the suite posts. Each form holds
// one JSON document with a checksum; a form whose checksum is wrong is refused.
#pragma once

#include <cstddef>
#include <string_view>

#include "site/Answer.h"

namespace quorvi::site {

// A longer form is refused unread.
inline constexpr std::size_t kMostFormBytes = 1 << 20;

// The answer to a form that is posted to /feedback/<service>.php: apk=, apps= or feedback= and a
// document, all as it came. Refusals are words and never JSON, so that nobody takes them for what
// was asked for. Any thread.
[[nodiscard]] Answer AnswerForm(std::string_view service, std::string_view body);

}  // namespace quorvi::site
