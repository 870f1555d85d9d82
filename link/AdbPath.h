// Where the adb tool is.
#pragma once

#include <filesystem>
#include <string>

namespace quorvi {

// Full path of "adb" in the directory of the program's own file if that file exists; otherwise the
// bare name, which the system looks up on the search path. Worked out at each call and kept
// nowhere. Any thread.
[[nodiscard]] std::string AdbPath();

// The same for a given directory.
[[nodiscard]] std::string AdbPathIn(const std::filesystem::path& directory);

}  // namespace quorvi
