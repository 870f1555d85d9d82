// Writes bytes to a descriptor until all are there.
#pragma once

#include <string_view>
#include <system_error>

namespace quorvi {

// The error that ended it; none when all were written. A signal ends nothing. Blocks as long as
// the disk does.
[[nodiscard]] std::error_code WriteAll(int descriptor, std::string_view bytes);

}  // namespace quorvi
