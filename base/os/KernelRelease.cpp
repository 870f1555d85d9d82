#include "base/os/KernelRelease.h"

#include <sys/utsname.h>

#include <charconv>

namespace quorvi {

int ReleaseNumber(std::string_view release) {
    const char* const end = release.data() + release.size();
    int major = 0;
    const auto first = std::from_chars(release.data(), end, major);
    int minor = 0;
    if (first.ec != std::errc() || first.ptr == end || *first.ptr != '.' ||
        std::from_chars(first.ptr + 1, end, minor).ec != std::errc() || major > 999 ||
        minor > 999 || major < 0 || minor < 0) {
        return 0;
    }
    return major * 10 + minor;
}

int KernelReleaseNumber() {
    utsname system{};
    return uname(&system) == 0 ? ReleaseNumber(system.release) : 0;
}

}  // namespace quorvi
