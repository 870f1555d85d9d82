#include "desktop/DesktopFolder.h"

#include "base/Text.h"
#include "base/os/SmallFile.h"

namespace quorvi {
namespace {

std::filesystem::path ConfiguredFolder(const Places& places, std::string_view name,
                                       const char* otherwise) {
    const std::string userDirs = ReadSmallFile(places.config / "user-dirs.dirs").value_or("");
    return UserDirectory(userDirs, name, places.home).value_or(places.home / otherwise);
}

constexpr std::string_view kHomeVariable = "$HOME";

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

std::filesystem::path DesktopFolder(const Places& places) {
    return ConfiguredFolder(places, "XDG_DESKTOP_DIR", "Desktop");
}

std::filesystem::path DocumentsFolder(const Places& places) {
    return ConfiguredFolder(places, "XDG_DOCUMENTS_DIR", "Documents");
}

}  // namespace quorvi
