#include "pages/downloads/DroppedPackages.h"

#include <algorithm>
#include <cctype>

#include "base/Text.h"
#include "download/QueueText.h"

namespace quorvi {
namespace {

constexpr std::string_view kEnding = ".apk";

bool IsPackage(const std::filesystem::path& file) {
    return std::ranges::equal(file.extension().native(), kEnding, {},
                              [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
}

}  // namespace

std::vector<std::filesystem::path> PackagesAmong(std::span<const std::filesystem::path> files) {
    std::vector<std::filesystem::path> packages;
    for (const std::filesystem::path& file : files) {
        if (IsPackage(file) && std::ranges::find(packages, file) == packages.end()) {
            packages.push_back(file);
        }
    }
    return packages;
}

std::string DropStatus(const std::filesystem::path& package, InstallResult result,
                       bool phoneChosen) {
    return InstallStatus(result, phoneChosen, ToAnsi(package.filename().native()));
}

}  // namespace quorvi
