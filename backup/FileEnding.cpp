#include "backup/FileEnding.h"

#include <filesystem>

#include "base/Text.h"

namespace quorvi {

std::string EndingOf(std::string_view fileName) {
    const std::string extension = std::filesystem::path(fileName).extension().string();
    return extension.empty() ? std::string() : ToLower(std::string_view(extension).substr(1));
}

}  // namespace quorvi
