// What a user is told to do about a phone that is there and cannot be used. Any thread.
#pragma once

#include <array>
#include <string_view>

#include "link/PhonePresence.h"

namespace quorvi {

struct LinkAdvice {
    std::u8string_view tip;  // one sentence
    std::u8string_view headline;
    std::array<std::u8string_view, 3> steps;  // in the order in which they are done
    std::u8string_view remark;                // when the steps did not help
};

// All texts are empty for `none`.
[[nodiscard]] const LinkAdvice& AdviceOn(LinkTrouble trouble);

}  // namespace quorvi
