// The names of a phone's packages, as they come from phones and sites.
#pragma once

#include <string_view>

namespace quorvi {

// Whether a text has the form of a package's name: ASCII letters, digits, '_' and '.', at least
// one, and no '.' at its beginning. No other name becomes an argument of adb or part of a file's
// name: one that passes holds no blank, no quote and no slash, and is neither hidden nor "..".
[[nodiscard]] bool IsPackageName(std::string_view name);

}  // namespace quorvi
