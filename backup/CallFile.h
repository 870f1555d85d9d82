// The call log as other programs read it.
#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "pages/calls/CallLog.h"

namespace quorvi {

enum class CallFormat {
    csv,   // one row a call, in UTF-8 with its mark
    json,  // an array of calls
};

// By the ending of a file's name: .csv or .json; nothing for any other.
[[nodiscard]] std::optional<CallFormat> CallFormatOf(std::string_view fileName);

// All calls in one file, UTF-8, in the order of the list. The line feed behind a duration is left
// out.
[[nodiscard]] std::string WriteCallFile(CallFormat format, std::span<const CallLogRow> calls);

}  // namespace quorvi
