// Every place on the disk that the suite knows: one value, handed to whoever looks for a file.
#pragma once

#include <filesystem>
#include <functional>
#include <optional>
#include <string>

namespace quorvi {

// The value of an environment variable; nothing when there is none.
using Environment = std::function<std::optional<std::string>(const char* name)>;

// That of this process.
[[nodiscard]] Environment TheEnvironment();

// A plain value: a test makes one of its own, with folders of its own.
struct Places {
    std::filesystem::path program;    // the program's own file
    std::filesystem::path home;       // the user's folder
    std::filesystem::path config;     // configuration of the user's programs
    std::filesystem::path data;       // data of the user's programs
    std::filesystem::path temporary;  // the platform's temporary folder
    // The file that holds in the place of the delivered deployment; empty for none.
    std::filesystem::path deployment = {};
    // What the user's programs keep of their own running.
    std::filesystem::path state = {};

    // A file that the user or the deployment may have put beside the program's own.
    [[nodiscard]] std::filesystem::path Beside(const std::filesystem::path& name) const {
        return program.parent_path() / name;
    }

    // A file that is delivered with the program ("Data/deployment.json"). Looked for in this order:
    // beside the program; then, for a program installed as <prefix>/bin, in
    // <prefix>/share/quorvi and in <prefix>/lib/quorvi. Where it is in none of them, its place
    // beside the program.
    [[nodiscard]] std::filesystem::path Delivered(const std::filesystem::path& name) const;

    // The values of the deployment: the file that was told, otherwise the delivered one.
    [[nodiscard]] std::filesystem::path DeploymentFile() const;

    // The user's settings.
    [[nodiscard]] std::filesystem::path SettingsFile() const;

    // The tasks' database, Config.db: beside the program; or, where files can't be made there, in
    // the user's data folder. The folder may have to be made first.
    [[nodiscard]] std::filesystem::path TaskDatabase() const;

    // Where what the user deletes from a phone is kept for a while: a folder, which may have to be
    // made first.
    [[nodiscard]] std::filesystem::path DeletedItems() const;

    // The log of the suite: a file, whose folder may have to be made first.
    [[nodiscard]] std::filesystem::path LogFile() const;
};

// The places of a program by its environment, as freedesktop.org's base directories lay them down:
// XDG_CONFIG_HOME, XDG_DATA_HOME and XDG_STATE_HOME where they are absolute paths, otherwise
// .config, .local/share and .local/state of HOME; TMPDIR, otherwise /tmp. QUORVI_DEPLOYMENT, an
// absolute path, tells the deployment's file.
[[nodiscard]] Places PlacesOf(std::filesystem::path program, const Environment& environment);

// The places of the running program, worked out at each call. Any thread.
[[nodiscard]] Places ThePlaces();

}  // namespace quorvi
