#include "desktop/DesktopFolders.h"

#include <cstdlib>

#include "base/Text.h"
#include "base/os/SmallFile.h"

namespace quorvi {
namespace {

constexpr std::string_view kHomeVariable = "$HOME";

std::filesystem::path FolderOf(const Environment& environment, const char* name,
                               const std::filesystem::path& otherwise) {
    const std::filesystem::path folder = environment(name).value_or(std::string());
    return folder.is_absolute() ? folder : otherwise;
}

// The text between the quotes; a backslash stands before what it takes literally.
std::optional<std::string> Unquoted(std::string_view value) {
    if (value.size() < 2 || value.front() != '"') {
        return std::nullopt;
    }
    std::string text;
    for (std::size_t i = 1; i < value.size(); ++i) {
        if (value[i] == '"') {
            return text;
        }
        if (value[i] == '\\' && i + 1 < value.size()) {
            ++i;
        }
        text += value[i];
    }
    return std::nullopt;
}

}  // namespace

std::optional<std::filesystem::path> UserDirectory(std::string_view file, std::string_view name,
                                                   const std::filesystem::path& home) {
    std::optional<std::filesystem::path> found;
    for (std::string_view line : SplitAt(file, '\n')) {
        line = Trim(line);
        const std::size_t equals = line.find('=');
        if (equals == std::string_view::npos || Trim(line.substr(0, equals)) != name) {
            continue;
        }
        const auto value = Unquoted(Trim(line.substr(equals + 1)));
        if (!value) {
            continue;
        }
        if (value->starts_with(kHomeVariable)) {
            // "$HOME/x", and "$HOME/" for the home folder itself.
            const std::string rest = value->substr(kHomeVariable.size());
            if (rest.empty() || rest.front() == '/') {
                found = home / std::filesystem::path(rest).relative_path();
            }
        } else if (value->starts_with('/')) {
            found = *value;
        }
    }
    return found;
}

DesktopFolders ReadDesktopFolders(const Environment& environment) {
    const std::filesystem::path home = environment("HOME").value_or(std::string());
    DesktopFolders folders;
    folders.config = FolderOf(environment, "XDG_CONFIG_HOME", home / ".config");
    folders.data = FolderOf(environment, "XDG_DATA_HOME", home / ".local" / "share");
    const std::string userDirs = ReadSmallFile(folders.config / "user-dirs.dirs").value_or("");
    folders.desktop = UserDirectory(userDirs, "XDG_DESKTOP_DIR", home).value_or(home / "Desktop");
    return folders;
}

DesktopFolders UserDesktopFolders() {
    return ReadDesktopFolders([](const char* name) {
        const char* value = std::getenv(name);
        return value == nullptr ? std::nullopt : std::optional<std::string>(value);
    });
}

}  // namespace quorvi
