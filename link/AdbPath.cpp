#include "link/AdbPath.h"

#include <system_error>

#include "base/Places.h"

namespace quorvi {
namespace {

constexpr const char* kExecutable = "adb";

}  // namespace

std::string AdbPath() {
    return AdbPathIn(ThePlaces().program.parent_path());
}

std::string AdbPathIn(const std::filesystem::path& directory) {
    const std::filesystem::path beside = directory / kExecutable;
    std::error_code failed;
    return std::filesystem::is_regular_file(beside, failed) ? beside.string() : kExecutable;
}

}  // namespace quorvi
