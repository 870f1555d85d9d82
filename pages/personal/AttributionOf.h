// How a reader of records asks for the text under a number.
#pragma once

#include <functional>
#include <string>
#include <string_view>

namespace quorvi {

// From a number to where it comes from, both ANSI. Called on the reader's thread, once a record.
using AttributionOf = std::function<std::string(std::string_view number)>;

}  // namespace quorvi
