#include "tour/TourHome.h"

#include <stdlib.h>

#include <array>

#include "base/Places.h"

namespace quorvi {
namespace {

// What would tell another place than one in the home.
constexpr std::array kElsewhere{"XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_STATE_HOME",
                                "XDG_CACHE_HOME"};

}  // namespace

void LiveIn(const std::filesystem::path& home) {
    const std::filesystem::path whole = std::filesystem::absolute(home);
    std::filesystem::create_directories(whole);
    setenv("HOME", whole.c_str(), 1);
    for (const char* name : kElsewhere) {
        unsetenv(name);
    }
}

std::filesystem::path BackupFolderAtHome() {
    return ThePlaces().home / std::filesystem::path(u8"手机备份");
}

}  // namespace quorvi
