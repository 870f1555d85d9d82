// What the report tells of adb: which one it is, whether its server answers, and which phones it
// lists in which state.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "link/LinkEnvironment.h"
#include "link/TrackedDevices.h"

namespace quorvi {

// The two versions that `adb version` prints; "unknown" for one that it does not.
struct AdbVersion {
    std::string protocol;  // "1.0.41"
    std::string release;   // "28.0.2-debian"

    bool operator==(const AdbVersion&) const = default;
};

// The path behind "Installed as" is not looked at: it may hold the user's name.
[[nodiscard]] AdbVersion ParseAdbVersion(std::string_view text);

struct AdbFacts {
    std::optional<AdbVersion> version;      // nothing: adb does not run
    std::optional<TrackedDevices> devices;  // nothing: its server does not answer
};

// Runs `adb version`, and asks the server, which is not started for it, for its phones; waits two
// seconds for its answer at most. On a worker.
[[nodiscard]] AdbFacts AskAdb(const LinkEnvironment& environment);

// The facts for a reader, a line each; of a serial two characters at each end. ANSI.
[[nodiscard]] std::string AdbFactsText(const AdbFacts& facts);

}  // namespace quorvi
