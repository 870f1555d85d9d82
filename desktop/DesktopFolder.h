// The folders of what lies on the user's desktop and of the user's documents.
#pragma once

#include <filesystem>
#include <optional>
#include <string_view>

#include "base/Places.h"

namespace quorvi {

// By the user's own configuration ("user-dirs.dirs"), which names it in the user's language;
// "Desktop" below the user's folder where that says nothing. Reads a file.
[[nodiscard]] std::filesystem::path DesktopFolder(const Places& places);

// The same for documents; "Documents" where that says nothing.
[[nodiscard]] std::filesystem::path DocumentsFolder(const Places& places);

// The folder that a line of "user-dirs.dirs" gives to `name` ("XDG_DESKTOP_DIR"): an absolute path,
// or one below $HOME, in double quotes. Nothing when the file gives none.
[[nodiscard]] std::optional<std::filesystem::path> UserDirectory(std::string_view file,
                                                                 std::string_view name,
                                                                 const std::filesystem::path& home);

}  // namespace quorvi
