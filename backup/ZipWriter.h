// Packs files of one folder into a .zip.
#pragma once

#include <filesystem>
#include <span>
#include <string>
#include <system_error>

#include "base/os/StopSignal.h"

namespace quorvi {

// Packs the files of these names, in this order, into `zip`, which must not be there. On an error,
// std::errc::operation_canceled after a stop among them, nothing of it is left. Blocks as long as
// the packing takes; memory does not grow with the files.
[[nodiscard]] std::error_code WriteZip(const std::filesystem::path& zip,
                                       const std::filesystem::path& folder,
                                       std::span<const std::string> names, const StopSignal& stop);

}  // namespace quorvi
