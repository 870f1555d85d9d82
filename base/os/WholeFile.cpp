#include "base/os/WholeFile.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <cerrno>

#include "base/os/WriteAll.h"

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

}  // namespace

WholeFile::WholeFile(const std::filesystem::path& file, FileMode mode)
    : target_(Resolved(file)), part_(target_), mode_(mode) {
    constexpr mode_t kOwner = S_IRUSR | S_IWUSR;
    constexpr mode_t kAll = kOwner | S_IRGRP | S_IWGRP | S_IROTH | S_IWOTH;
    part_ += kPartSuffix;
    const mode_t permissions = mode == FileMode::ownersOnly ? kOwner : kAll;
    descriptor_ =
        FileDescriptor(open(part_.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, permissions));
    if (!descriptor_.IsOpen()) {
        error_ = LastError();
        return;
    }
    if (mode == FileMode::ownersOnly) {
        fchmod(descriptor_.Get(), kOwner);  // of one that was left there
    }
}

WholeFile::~WholeFile() {
    if (!committed_) {
        std::error_code ignored;
        std::filesystem::remove(part_, ignored);
    }
}

void WholeFile::Append(std::string_view bytes) {
    if (!error_) {
        error_ = WriteAll(descriptor_.Get(), bytes);
    }
}

std::error_code WholeFile::Commit() {
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
    descriptor_.Close();
    std::filesystem::rename(part_, target_, error_);
    committed_ = !error_;
    return error_;
}

}  // namespace quorvi
