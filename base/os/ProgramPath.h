// Where the program's own file stands: the start of base/Places.h.
#pragma once

#include <filesystem>

namespace quorvi {

// Full path of the running program's file.
[[nodiscard]] std::filesystem::path ProgramPath();

}  // namespace quorvi
