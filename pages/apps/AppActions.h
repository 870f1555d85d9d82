// What is done with an application.
#pragma once

#include <string_view>

#include "agent/Request.h"
#include "base/PackageName.h"

namespace quorvi {

// The request of command 870805, which starts an application. Its frame stands apart: the count
// comes before the length, and the name goes out as it stands, without the way to UTF-8. Kept on
// purpose: agents have always been sent these bytes (RunApplicationRequestTest.HasItsOwnFrame).
[[nodiscard]] Bytes RunApplicationRequest(std::string_view package);

}  // namespace quorvi
