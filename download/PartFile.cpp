#include "download/PartFile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <system_error>
#include <utility>

#include "base/ByteText.h"
#include "base/os/WriteAll.h"

namespace quorvi {
namespace {

constexpr const char* kSuffix = ".tmp";
constexpr mode_t kMode = 0644;

PartFile::Written Judge(int error) {
    const bool noRoom = error == ENOSPC || error == EDQUOT || error == EFBIG;
    return noRoom ? PartFile::Written::noRoom : PartFile::Written::failed;
}

bool IsPlainFile(int descriptor) {
    struct stat status {};
    return fstat(descriptor, &status) == 0 && S_ISREG(status.st_mode);
}

}  // namespace

PartFile::PartFile(const std::filesystem::path& target) : path_(target) {
    path_.replace_extension(kSuffix);
}

std::int64_t PartFile::Length() const {
    struct stat status {};
    return lstat(path_.c_str(), &status) == 0 && S_ISREG(status.st_mode) ? status.st_size : 0;
}

PartFile::Written PartFile::Open(std::int64_t offset) {
    // Without waiting for the other end of a pipe.
    FileDescriptor file(
        open(path_.c_str(), O_WRONLY | O_CREAT | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC, kMode));
    if (!file.IsOpen()) {
        return Judge(errno);
    }
    if (!IsPlainFile(file.Get()) || lseek(file.Get(), offset, SEEK_SET) != offset) {
        return Written::failed;
    }
    file_ = std::move(file);
    return Written::all;
}

PartFile::Written PartFile::Write(std::span<const std::byte> bytes) const {
    const std::error_code failed = WriteAll(file_.Get(), AsText(bytes));
    return failed ? Judge(failed.value()) : Written::all;
}

PartFile::Written PartFile::Close() {
    if (!file_.IsOpen()) {
        return Written::all;
    }
    return close(file_.Release()) == 0 || errno == EINTR ? Written::all : Judge(errno);
}

bool PartFile::MoveOnto(const std::filesystem::path& target) const {
    std::error_code failed;
    std::filesystem::rename(path_, target, failed);
    return !failed;
}

}  // namespace quorvi
