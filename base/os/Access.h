// What this process may do with a place on the disk.
#pragma once

#include <filesystem>

namespace quorvi {

// Whether the folder is there and this process may make files in it.
[[nodiscard]] bool MayWriteIn(const std::filesystem::path& folder);

}  // namespace quorvi
