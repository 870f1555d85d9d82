#include "base/os/SmallFile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <fstream>

#include "base/os/FileDescriptor.h"

namespace quorvi {
namespace {

constexpr std::string_view kPartSuffix = ".quorvi-part";

std::filesystem::path Resolved(const std::filesystem::path& file) {
    std::error_code failed;
    const std::filesystem::path resolved = std::filesystem::weakly_canonical(file, failed);
    return failed ? file : resolved;
}

std::error_code LastError() {
    return {errno, std::generic_category()};
}

std::error_code WritePart(const std::filesystem::path& part, std::string_view bytes,
                          FileMode mode) {
    constexpr mode_t kOwner = S_IRUSR | S_IWUSR;
    constexpr mode_t kAll = kOwner | S_IRGRP | S_IWGRP | S_IROTH | S_IWOTH;
    const mode_t permissions = mode == FileMode::ownersOnly ? kOwner : kAll;
    const FileDescriptor file(
        open(part.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, permissions));
    if (!file.IsOpen()) {
        return LastError();
    }
    if (mode == FileMode::ownersOnly) {
        fchmod(file.Get(), kOwner);  // of one that was left there
    }
    while (!bytes.empty()) {
        const ssize_t written = write(file.Get(), bytes.data(), bytes.size());
        if (written > 0) {
            bytes.remove_prefix(static_cast<std::size_t>(written));
        } else if (written == 0 || errno != EINTR) {
            return written == 0 ? std::make_error_code(std::errc::io_error) : LastError();
        }
    }
    if (mode == FileMode::executable) {
        using std::filesystem::perms;
        std::error_code ignored;
        std::filesystem::permissions(part,
                                     perms::owner_exec | perms::group_exec | perms::others_exec,
                                     std::filesystem::perm_options::add, ignored);
    }
    return {};
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
    const std::filesystem::path target = Resolved(file);
    std::filesystem::path part = target;
    part += kPartSuffix;
    std::error_code failed = WritePart(part, bytes, mode);
    if (!failed) {
        std::filesystem::rename(part, target, failed);
    }
    if (failed) {
        std::error_code ignored;
        std::filesystem::remove(part, ignored);
    }
    return failed;
}

bool ReplaceFile(const std::filesystem::path& file, std::string_view text, FileMode mode) {
    std::error_code ignored;
    std::filesystem::create_directories(Resolved(file).parent_path(), ignored);
    return !WriteWhole(file, text, mode);
}

}  // namespace quorvi
