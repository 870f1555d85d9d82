// Where the link finds what it works with. Differs from the defaults in tests only.
#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <string>

#include "base/Places.h"
#include "link/AdbHostClient.h"
#include "link/AdbPath.h"

namespace quorvi {

// The agent's package, a file that is delivered with the program.
inline constexpr const char* kAgentPackageFile = "com.quorvi.Quorvi.apk";

struct LinkEnvironment {
    // Asked at each use.
    std::function<std::string()> adbPath = AdbPath;
    std::uint16_t hostPort = AdbServerPort();
    std::filesystem::path packageFile = ThePlaces().Delivered(kAgentPackageFile);
};

}  // namespace quorvi
