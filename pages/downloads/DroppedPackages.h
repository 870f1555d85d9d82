// Packages that the user has dropped on the window, to be installed as they are.
#pragma once

#include <filesystem>
#include <span>
#include <string>
#include <vector>

#include "link/AdbOutput.h"

namespace quorvi {

// Those of the files that are packages by their names, in their order, each once.
[[nodiscard]] std::vector<std::filesystem::path> PackagesAmong(
    std::span<const std::filesystem::path> files);

// What came of one, in ANSI: it is called by the name of its file. `phoneChosen`: there was a phone
// to install on.
[[nodiscard]] std::string DropStatus(const std::filesystem::path& package, InstallResult result,
                                     bool phoneChosen);

}  // namespace quorvi
