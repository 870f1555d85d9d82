#include "log/LogFile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <utility>

#include "base/os/FileDescriptor.h"
#include "base/os/FileLock.h"
#include "base/os/SmallFile.h"
#include "base/os/WriteAll.h"

namespace quorvi {
namespace {

std::filesystem::path With(std::filesystem::path file, const char* ending) {
    return file += ending;
}

std::error_code LastError() {
    return {errno, std::generic_category()};
}

// The file's size where it is an ordinary one; otherwise an error. Something else that stands in
// its place, a pipe above all, could hold a writer up.
std::error_code SizeOf(const FileDescriptor& file, off_t& size) {
    struct stat known {};
    if (fstat(file.Get(), &known) != 0) {
        return LastError();
    }
    size = known.st_size;
    return S_ISREG(known.st_mode) ? std::error_code()
                                  : std::make_error_code(std::errc::operation_not_permitted);
}

FileDescriptor OpenToAppend(const std::filesystem::path& file) {
    constexpr int kHow = O_WRONLY | O_APPEND | O_CREAT | O_CLOEXEC | O_NONBLOCK;
    return FileDescriptor(open(file.c_str(), kHow, S_IRUSR | S_IWUSR));
}

std::uintmax_t SizeOf(const std::filesystem::path& file) {
    std::error_code unknown;
    const std::uintmax_t size = std::filesystem::file_size(file, unknown);
    return unknown ? 0 : size;
}

}  // namespace

LogFile::LogFile(std::filesystem::path file, std::size_t most)
    : file_(std::move(file)),
      former_(With(file_, ".1")),
      lock_(With(file_, ".lock")),
      most_(most) {}

std::error_code LogFile::Append(std::string_view lines) const {
    const std::size_t half = most_ / 2;
    if (lines.size() > half) {
        return std::make_error_code(std::errc::file_too_large);
    }
    std::error_code failed;
    std::filesystem::create_directories(file_.parent_path(), failed);
    if (failed) {
        return failed;
    }
    const FileLock lock(lock_);
    if (!lock.IsHeld()) {
        return std::make_error_code(std::errc::no_lock_available);
    }
    FileDescriptor file = OpenToAppend(file_);
    off_t size = 0;
    failed = file.IsOpen() ? SizeOf(file, size) : LastError();
    if (failed) {
        return failed;
    }
    if (static_cast<std::size_t>(size) + lines.size() > half) {
        std::filesystem::rename(file_, former_, failed);
        if (failed) {  // what was the log before cannot be replaced: the log begins anew
            if (ftruncate(file.Get(), 0) != 0) {
                return LastError();
            }
        } else {
            file = OpenToAppend(file_);
            if (!file.IsOpen()) {
                return LastError();
            }
        }
        size = 0;
    }
    failed = WriteAll(file.Get(), lines);
    if (failed && ftruncate(file.Get(), size) != 0) {
        return LastError();  // a part of a line stays, over which readers pass
    }
    return failed;
}

std::string LogFile::Read() const {
    const FileLock lock(lock_);  // not to be had where nothing is to be written; then without
    std::string lines = ReadSmallFile(former_, most_).value_or(std::string());
    return lines += ReadSmallFile(file_, most_).value_or(std::string());
}

std::uintmax_t LogFile::Size() const {
    return SizeOf(former_) + SizeOf(file_);
}

}  // namespace quorvi
