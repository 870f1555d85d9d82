// Where the user's desktop keeps what.
#pragma once

#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace quorvi {

struct DesktopFolders {
    std::filesystem::path config;   // configuration of programs, the autostart folder in it
    std::filesystem::path data;     // launchers and icons of the user
    std::filesystem::path desktop;  // what lies on the desktop
};

// The value of an environment variable.
using Environment = std::function<std::optional<std::string>(const char* name)>;

// The folders by the environment and by the user's own configuration of them ("user-dirs.dirs"),
// which names the desktop's folder in the user's language. Paths in the environment that are not
// absolute are ignored. Reads a file.
[[nodiscard]] DesktopFolders ReadDesktopFolders(const Environment& environment);

// The same for the user who runs the program.
[[nodiscard]] DesktopFolders UserDesktopFolders();

// The folder that a line of "user-dirs.dirs" gives to `name` ("XDG_DESKTOP_DIR"): an absolute path,
// or one below $HOME, in double quotes. Nothing when the file gives none.
[[nodiscard]] std::optional<std::filesystem::path> UserDirectory(std::string_view file,
                                                                 std::string_view name,
                                                                 const std::filesystem::path& home);

}  // namespace quorvi
