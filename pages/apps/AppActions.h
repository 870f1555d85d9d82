// What is done with an application.
#pragma once

#include <string_view>

#include "agent/Request.h"

namespace quorvi {

// Whether a name has the form of a package's name: letters, digits, '_' and '.', at least one. No
// other name that a phone sends becomes an argument of adb.
[[nodiscard]] bool IsPackageName(std::string_view name);

// The request of command 870805, which starts an application. Its frame stands apart: the count
// comes before the length, and the name goes out as it stands, without the way to UTF-8. Kept on
// purpose: agents have always been sent these bytes (RunApplicationRequestTest.HasItsOwnFrame).
[[nodiscard]] Bytes RunApplicationRequest(std::string_view package);

}  // namespace quorvi
