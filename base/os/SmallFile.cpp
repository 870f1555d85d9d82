#include "base/os/SmallFile.h"

#include <fstream>

#include "base/os/WholeFile.h"

namespace quorvi {
namespace {

std::filesystem::path Resolved(const std::filesystem::path& file) {
    std::error_code failed;
    const std::filesystem::path resolved = std::filesystem::weakly_canonical(file, failed);
    return failed ? file : resolved;
}

}  // namespace

std::optional<std::string> ReadSmallFile(const std::filesystem::path& file, std::size_t most) {
    std::error_code failed;
    if (!std::filesystem::is_regular_file(file, failed)) {
        return std::nullopt;
    }
    std::ifstream stream(file, std::ios::binary);
    std::string text(most + 1, '\0');
    stream.read(text.data(), static_cast<std::streamsize>(text.size()));
    if (stream.bad() || !stream.eof()) {
        return std::nullopt;
    }
    text.resize(static_cast<std::size_t>(stream.gcount()));
    return text;
}

std::error_code WriteWhole(const std::filesystem::path& file, std::string_view bytes,
                           FileMode mode) {
    WholeFile whole(file, mode);
    whole.Append(bytes);
    return whole.Commit();
}

bool ReplaceFile(const std::filesystem::path& file, std::string_view text, FileMode mode) {
    std::error_code ignored;
    std::filesystem::create_directories(Resolved(file).parent_path(), ignored);
    WholeFile whole(file, mode);
    whole.Append(text);
    return !whole.Commit(Flush::bySystem);
}

}  // namespace quorvi
