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

std::vector<std::string> SplitCommandLine(std::string_view command) {
    std::vector<std::string> arguments;
    bool open = false;    // an argument has begun, perhaps with an empty pair of quotes
    bool quoted = false;  // between double quotes
    for (const char character : command) {
        if (character == ' ' && !quoted) {
            open = false;
            continue;
        }
        if (!open) {
            arguments.emplace_back();
            open = true;
        }
        if (character == '"') {
            quoted = !quoted;
        } else {
            arguments.back() += character;
        }
    }
    return arguments;
}

std::string QuoteBlanks(std::string_view path) {
    std::string quoted(path);
    if (path.find(' ') != std::string_view::npos) {
        quoted.insert(0, 1, '"').append(1, '"');
    }
    return quoted;
}

}  // namespace quorvi
