// Packs files of one folder, or texts, into a .zip.
#pragma once

#include <filesystem>
#include <span>
#include <string>
#include <string_view>
#include <system_error>

#include "base/os/StopSignal.h"

namespace quorvi {

// Packs the files of these names, in this order, into `zip`, which must not be there. On an error,
// std::errc::operation_canceled after a stop among them, nothing of it is left. Blocks as long as
// the packing takes; memory does not grow with the files.
[[nodiscard]] std::error_code WriteZip(const std::filesystem::path& zip,
                                       const std::filesystem::path& folder,
                                       std::span<const std::string> names, const StopSignal& stop);

// A file that is packed out of memory.
struct ZipText {
    std::string name;
    std::string_view bytes;
};

// What becomes of a file that stands in the place of a new one.
enum class ExistingFile {
    refuses,  // it stays: std::errc::file_exists
    yields,   // it is replaced when the new one is whole
};

// Packs these texts, in this order, into `zip`. On an error what stood there is as it was. Blocks
// as long as the disk does.
[[nodiscard]] std::error_code WriteZip(const std::filesystem::path& zip,
                                       std::span<const ZipText> texts, ExistingFile existing);

}  // namespace quorvi
