#include "base/os/WholeFile.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <string>
#include <utility>

#include "base/os/FileLock.h"
#include "base/os/WriteAll.h"

namespace quorvi {
namespace {

constexpr std::string_view kPartSuffix = ".quorvi-part";
// So many programs may write one file at a time.
constexpr int kMostWriters = 16;

std::filesystem::path Resolved(const std::filesystem::path& file) {
    std::error_code failed;
    const std::filesystem::path resolved = std::filesystem::weakly_canonical(file, failed);
    return failed ? file : resolved;
}

std::error_code LastError() {
    return {errno, std::generic_category()};
}

enum class Opened {
    ours,
    anothers,  // another program writes there, or it is no plain file
    failed,    // errno tells why
};

bool IsPlain(const FileDescriptor& file) {
    struct stat facts {};
    return fstat(file.Get(), &facts) == 0 && S_ISREG(facts.st_mode);
}

// The file of that name, empty and locked, so that no other program writes into it; what a killed
// one has left is taken over. Without a wait: what bears the name may be a pipe.
Opened OpenPart(const std::filesystem::path& part, mode_t permissions, FileDescriptor& file) {
    do {
        file = FileDescriptor(open(
            part.c_str(), O_WRONLY | O_CREAT | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC, permissions));
        if (!file.IsOpen()) {
            return errno == ELOOP || errno == ENXIO || errno == EISDIR ? Opened::anothers
                                                                       : Opened::failed;
        }
        // A file system without locks is written to all the same.
        if (!IsPlain(file) || (flock(file.Get(), LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK)) {
            return Opened::anothers;
        }
    } while (!IsStillNamed(file, part));
    return ftruncate(file.Get(), 0) == 0 ? Opened::ours : Opened::failed;
}

}  // namespace

WholeFile::WholeFile(const std::filesystem::path& file, FileMode mode)
    : target_(Resolved(file)), mode_(mode) {
    constexpr mode_t kOwner = S_IRUSR | S_IWUSR;
    constexpr mode_t kAll = kOwner | S_IRGRP | S_IWGRP | S_IROTH | S_IWOTH;
    const mode_t permissions = mode == FileMode::ownersOnly ? kOwner : kAll;
    for (int number = 1; number <= kMostWriters; ++number) {
        std::filesystem::path part = target_;
        part += std::string(kPartSuffix) + (number == 1 ? "" : std::to_string(number));
        const Opened opened = OpenPart(part, permissions, descriptor_);
        if (opened == Opened::ours) {
            part_ = std::move(part);
            if (mode == FileMode::ownersOnly) {
                fchmod(descriptor_.Get(), kOwner);  // of one that was left there
            }
            return;
        }
        if (opened == Opened::failed) {
            error_ = LastError();
            return;
        }
    }
    error_ = std::make_error_code(std::errc::device_or_resource_busy);
}

WholeFile::~WholeFile() {
    if (!committed_ && !part_.empty()) {
        std::error_code ignored;
        std::filesystem::remove(part_, ignored);
    }
}

void WholeFile::Append(std::string_view bytes) {
    if (!error_) {
        error_ = WriteAll(descriptor_.Get(), bytes);
    }
}

std::error_code WholeFile::Commit(Flush flush) {
    if (error_) {
        return error_;
    }
    if (mode_ == FileMode::executable) {
        using std::filesystem::perms;
        std::error_code ignored;
        std::filesystem::permissions(part_,
                                     perms::owner_exec | perms::group_exec | perms::others_exec,
                                     std::filesystem::perm_options::add, ignored);
    }
    // Some file systems cannot be asked, and say EINVAL.
    if (flush == Flush::toDisk && fsync(descriptor_.Get()) != 0 && errno != EINVAL) {
        error_ = LastError();
        return error_;
    }
    std::filesystem::rename(part_, target_, error_);
    committed_ = !error_;
    return error_;
}

}  // namespace quorvi
