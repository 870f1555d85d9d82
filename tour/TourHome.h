// The home in which the tour's window is shown.
#pragma once

#include <filesystem>

namespace quorvi {

// Makes a folder the home of this process, with settings, data and all else of its user in it, so
// that the pictures show nothing of who runs the tour, and the tour writes nothing of his. Made
// when it is not there. Called in main, before any thread.
void LiveIn(const std::filesystem::path& home);

// Where the tour keeps its backups: where the page proposes it.
[[nodiscard]] std::filesystem::path BackupFolderAtHome();

}  // namespace quorvi
