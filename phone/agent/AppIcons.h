// The icons of the phone's applications.
#pragma once

#include <string_view>

#include "phone/Channel.h"

namespace quorvi::phone {

// A PNG file of 96 by 96 points: a plate with a ring, a bar, a cross or a diamond on it, in colours
// of the package's own. The same for the same package. Any thread.
[[nodiscard]] SharedBytes AppIcon(std::string_view package);

}  // namespace quorvi::phone
