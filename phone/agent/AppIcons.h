// The icons of the phone's applications.
#pragma once

#include <string_view>

#include "phone/Channel.h"

namespace quorvi::phone {

// A PNG file of 48 by 48 points: a plate with a ring, a bar or a cross on it, in colours of the
// package's own. The same for the same package.
[[nodiscard]] SharedBytes AppIcon(std::string_view package);

}  // namespace quorvi::phone
