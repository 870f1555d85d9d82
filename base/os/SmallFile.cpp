#include "base/os/SmallFile.h"

#include <fstream>
#include <system_error>

namespace quorvi {
namespace {

constexpr std::string_view kPartSuffix = ".quorvi-part";

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

bool ReplaceFile(const std::filesystem::path& file, std::string_view text, FileMode mode) {
    using std::filesystem::perms;
    const std::filesystem::path target = Resolved(file);
    std::filesystem::path part = target;
    part += kPartSuffix;
    std::error_code failed;
    std::filesystem::create_directories(target.parent_path(), failed);
    {
        std::ofstream stream(part, std::ios::binary | std::ios::trunc);
        if (mode == FileMode::ownersOnly) {
            std::filesystem::permissions(part, perms::owner_read | perms::owner_write, failed);
        }
        stream.write(text.data(), static_cast<std::streamsize>(text.size()));
        stream.flush();
        if (!stream) {
            std::filesystem::remove(part, failed);
            return false;
        }
    }
    if (mode == FileMode::executable) {
        std::filesystem::permissions(part,
                                     perms::owner_exec | perms::group_exec | perms::others_exec,
                                     std::filesystem::perm_options::add, failed);
    }
    std::filesystem::rename(part, target, failed);
    if (failed) {
        std::error_code ignored;
        std::filesystem::remove(part, ignored);
        return false;
    }
    return true;
}

}  // namespace quorvi
