#include "tests/support/OwnPlaces.h"

#include <stdlib.h>

#include <array>

namespace quorvi {
namespace {

struct Place {
    const char* variable;
    const char* folder;
};

constexpr std::array kPlaces{
    Place{"HOME", "home"},
    Place{"XDG_CONFIG_HOME", "home/.config"},
    Place{"XDG_DATA_HOME", "home/.local/share"},
    Place{"XDG_STATE_HOME", "home/.local/state"},
    Place{"XDG_CACHE_HOME", "home/.cache"},
    Place{"XDG_RUNTIME_DIR", "run"},
    Place{"TMPDIR", "tmp"},
};

}  // namespace

OwnPlaces::OwnPlaces() {
    // A test may become another user for a while, and needs the way to its files then.
    std::filesystem::permissions(folder_.Path(), std::filesystem::perms(0711));
    for (const Place& place : kPlaces) {
        const std::filesystem::path path = folder_.Path() / place.folder;
        std::filesystem::create_directories(path);
        setenv(place.variable, path.c_str(), 1);
    }
    // Who puts a socket there wants the folder closed to others.
    std::filesystem::permissions(folder_.Path() / "run", std::filesystem::perms::owner_all);
}

}  // namespace quorvi
