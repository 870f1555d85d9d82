#include "base/Places.h"

#include <array>
#include <cstdlib>
#include <system_error>
#include <utility>

#include "base/os/Access.h"
#include "base/os/ProgramPath.h"

namespace quorvi {
namespace {

// Where an installed program's files are, seen from its own folder.
constexpr std::array<const char*, 2> kInstalledFolders{"../share/quorvi", "../lib/quorvi"};

// The suite's own folder among those of the user's programs.
constexpr const char* kUserFolder = "Quorvi";
constexpr const char* kSettingsName = "Quorvi.ini";
constexpr const char* kTaskDatabaseName = "Config.db";
constexpr const char* kDeletedItemsFolder = "deleted";
constexpr const char* kLogName = "quorvi.log";

// An absolute path that a variable tells.
std::filesystem::path PathOf(const Environment& environment, const char* name,
                             std::filesystem::path otherwise) {
    std::filesystem::path path = environment(name).value_or(std::string());
    return path.is_absolute() ? path : std::move(otherwise);
}

}  // namespace

std::filesystem::path Places::Delivered(const std::filesystem::path& name) const {
    std::filesystem::path beside = Beside(name);
    std::error_code unknown;
    if (std::filesystem::exists(beside, unknown)) {
        return beside;
    }
    for (const char* folder : kInstalledFolders) {
        std::filesystem::path installed = (Beside(folder) / name).lexically_normal();
        if (std::filesystem::exists(installed, unknown)) {
            return installed;
        }
    }
    return beside;
}

std::filesystem::path Places::DeploymentFile() const {
    return deployment.empty() ? Delivered("Data/deployment.json") : deployment;
}

std::filesystem::path Places::SettingsFile() const {
    return config / kUserFolder / kSettingsName;
}

std::filesystem::path Places::TaskDatabase() const {
    return MayWriteIn(program.parent_path()) ? Beside(kTaskDatabaseName)
                                             : data / kUserFolder / kTaskDatabaseName;
}

std::filesystem::path Places::DeletedItems() const {
    return data / kUserFolder / kDeletedItemsFolder;
}

std::filesystem::path Places::LogFile() const {
    return state / kUserFolder / kLogName;
}

Places PlacesOf(std::filesystem::path program, const Environment& environment) {
    Places places;
    places.program = std::move(program);
    places.home = PathOf(environment, "HOME", "/");
    places.config = PathOf(environment, "XDG_CONFIG_HOME", places.home / ".config");
    places.data = PathOf(environment, "XDG_DATA_HOME", places.home / ".local" / "share");
    places.state = PathOf(environment, "XDG_STATE_HOME", places.home / ".local" / "state");
    places.temporary = PathOf(environment, "TMPDIR", "/tmp");
    places.deployment = PathOf(environment, "QUORVI_DEPLOYMENT", {});
    return places;
}

Environment TheEnvironment() {
    return [](const char* name) {
        const char* const value = std::getenv(name);
        return value == nullptr ? std::nullopt : std::optional<std::string>(value);
    };
}

Places ThePlaces() {
    return PlacesOf(ProgramPath(), TheEnvironment());
}

}  // namespace quorvi
