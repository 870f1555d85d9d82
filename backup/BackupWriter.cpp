#include "backup/BackupWriter.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdio>
#include <utility>
#include <vector>

#include "backup/ZipWriter.h"
#include "base/Text.h"
#include "base/os/FileLock.h"
#include "base/os/WriteAll.h"

namespace quorvi {
namespace {

constexpr std::size_t kWriteBytes = 16 * 1024;
// So many bytes at a time are sent on their way to the disk while more come from the phone, so that
// Close does not have to wait for all of a file.
constexpr off_t kBeginBytes = 4 * 1024 * 1024;
constexpr mode_t kOwnersFile = S_IRUSR | S_IWUSR;
constexpr mode_t kOwnersFolder = S_IRWXU;
constexpr std::string_view kPartSuffix = ".quorvi-part";
constexpr int kMostAttempts = 16;
constexpr const char* kZipName = "backup.zip";

std::error_code LastError() {
    return {errno, std::generic_category()};
}

// What is on the disk stays there when the power fails.
std::error_code Sync(const FileDescriptor& file) {
    return fsync(file.Get()) == 0 || errno == EINVAL ? std::error_code() : LastError();
}

std::error_code SyncFile(const std::filesystem::path& path) {
    const FileDescriptor file(open(path.c_str(), O_RDONLY | O_CLOEXEC));
    return file.IsOpen() ? Sync(file) : LastError();
}

// A new name for `from`, under which nothing stands yet.
std::error_code GiveName(const std::filesystem::path& from, const std::filesystem::path& to) {
    if (renameat2(AT_FDCWD, from.c_str(), AT_FDCWD, to.c_str(), RENAME_NOREPLACE) == 0) {
        return {};
    }
    if (errno != EINVAL && errno != ENOSYS) {
        return LastError();
    }
    // The file system can't look and rename in one step.
    std::error_code failed;
    if (std::filesystem::exists(std::filesystem::symlink_status(to, failed))) {
        return std::make_error_code(std::errc::file_exists);
    }
    std::filesystem::rename(from, to, failed);
    return failed;
}

bool IsZip(const std::filesystem::path& target) {
    return EqualsNoCase(target.extension().native(), ".zip");
}

std::filesystem::path FolderOf(const std::filesystem::path& target) {
    return target.has_parent_path() ? target.parent_path() : ".";
}

}  // namespace

BackupFile::BackupFile(std::string name, FileDescriptor file)
    : written_{std::move(name), 0, {}}, file_(std::move(file)), sum_(std::make_unique<Sha256>()) {}

void BackupFile::Write(std::string_view bytes) {
    if (error_) {
        return;
    }
    sum_->Add(bytes);
    written_.bytes += bytes.size();
    if (waiting_.size() + bytes.size() < kWriteBytes) {
        waiting_ += bytes;
        return;
    }
    WriteOut(waiting_);
    waiting_.clear();
    WriteOut(bytes);
}

void BackupFile::WriteOut(std::string_view bytes) {
    if (!error_) {
        error_ = WriteAll(file_.Get(), bytes);
    }
    given_ += static_cast<off_t>(bytes.size());
    if (given_ - begun_ >= kBeginBytes) {
        // A hint, whose failure costs nothing but time: Close is what waits for the disk.
        static_cast<void>(
            sync_file_range(file_.Get(), begun_, given_ - begun_, SYNC_FILE_RANGE_WRITE));
        begun_ = given_;
    }
}

BackedUpFile BackupFile::Close() {
    WriteOut(waiting_);
    if (!error_) {
        error_ = Sync(file_);
    }
    file_.Close();
    if (!error_) {
        written_.sha256 = sum_->Hex();
    }
    return std::move(written_);
}

BackupWriter::BackupWriter(const std::filesystem::path& target)
    : target_(target.has_filename() ? target : target.parent_path()),
      part_(target_.parent_path() /
            ("." + target_.filename().native() + std::string(kPartSuffix))) {
    error_ = Prepare();
}

BackupWriter::~BackupWriter() {
    Remove();
}

std::error_code BackupWriter::Prepare() {
    std::error_code failed;
    if (std::filesystem::exists(std::filesystem::symlink_status(target_, failed))) {
        return std::make_error_code(std::errc::file_exists);
    }
    RemoveUnfinishedBackups(FolderOf(target_));
    if (const std::error_code why = OpenPart()) {
        return why;
    }
    // What a killed writer has left.
    std::filesystem::directory_iterator left(part_, failed);
    for (; !failed && left != std::filesystem::directory_iterator(); left.increment(failed)) {
        std::filesystem::remove_all(left->path(), failed);
    }
    if (!failed && fchmod(folder_.Get(), kOwnersFolder) != 0) {
        failed = LastError();
    }
    return failed;
}

// Makes the folder and locks it. Another program that clears away what killed writers have left may
// hold it for a moment, or take it in between, empty as it is: then it is made anew.
std::error_code BackupWriter::OpenPart() {
    for (int attempt = 0; attempt < kMostAttempts; ++attempt) {
        if (mkdir(part_.c_str(), kOwnersFolder) != 0 && errno != EEXIST) {
            return LastError();
        }
        folder_ =
            FileDescriptor(open(part_.c_str(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC));
        if (!folder_.IsOpen() && errno == ENOENT) {
            continue;
        }
        if (!folder_.IsOpen()) {
            return LastError();
        }
        const bool isOurs = flock(folder_.Get(), LOCK_EX | LOCK_NB) == 0;
        if (!isOurs && errno != EWOULDBLOCK) {
            const std::error_code noLocks = LastError();
            folder_.Close();
            return noLocks;
        }
        if (isOurs && IsStillNamed(folder_, part_)) {
            return {};
        }
    }
    folder_.Close();
    return std::make_error_code(std::errc::device_or_resource_busy);
}

BackupFile BackupWriter::Begin(const std::string& name) {
    BackupFile file(name, FileDescriptor(openat(
                              folder_.Get(), name.c_str(),
                              O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, kOwnersFile)));
    if (!file.file_.IsOpen()) {
        file.error_ = LastError();
    }
    return file;
}

std::error_code BackupWriter::Pack(const Manifest& manifest, const StopSignal& stop) const {
    std::vector<std::string> names{std::string(kManifestName)};
    for (const BackedUpKind& kind : manifest.kinds) {
        for (const BackedUpFile& file : kind.files) {
            names.push_back(file.name);
        }
    }
    const std::filesystem::path zip = part_ / kZipName;
    std::error_code failed = WriteZip(zip, part_, names, stop);
    if (!failed) {
        failed = SyncFile(zip);
    }
    if (!failed && chmod(zip.c_str(), kOwnersFile) != 0) {
        failed = LastError();
    }
    return failed;
}

std::error_code BackupWriter::Finish(const Manifest& manifest, const StopSignal& stop) {
    const auto cancelled = std::make_error_code(std::errc::operation_canceled);
    BackupFile file = Begin(std::string(kManifestName));
    file.Write(WriteManifest(manifest));
    static_cast<void>(file.Close());
    if (file.Error()) {
        return file.Error();
    }
    if (stop.IsStopped()) {
        return cancelled;
    }
    std::error_code failed;
    if (IsZip(target_)) {
        failed = Pack(manifest, stop);
        if (failed) {
            return stop.IsStopped() ? cancelled : failed;
        }
        failed = GiveName(part_ / kZipName, target_);
    } else {
        failed = Sync(folder_);
        if (!failed) {
            failed = GiveName(part_, target_);
        }
        if (!failed) {
            folder_.Close();  // it is the target now, and not to be removed
        }
    }
    if (!failed) {
        // The name stands whether or not the disk can be told to keep it at once.
        static_cast<void>(SyncFile(FolderOf(target_)));
    }
    return failed;
}

void BackupWriter::Remove() {
    if (folder_.IsOpen()) {
        std::error_code ignored;
        std::filesystem::remove_all(part_, ignored);
    }
}

void RemoveUnfinishedBackups(const std::filesystem::path& folder) {
    std::error_code failed;
    std::filesystem::directory_iterator entry(folder, failed);
    for (; !failed && entry != std::filesystem::directory_iterator(); entry.increment(failed)) {
        const std::string name = entry->path().filename().native();
        if (!name.starts_with('.') || !name.ends_with(kPartSuffix)) {
            continue;
        }
        const FileDescriptor part(
            open(entry->path().c_str(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC));
        if (part.IsOpen() && flock(part.Get(), LOCK_EX | LOCK_NB) == 0 &&
            IsStillNamed(part, entry->path())) {
            std::error_code ignored;
            std::filesystem::remove_all(entry->path(), ignored);
        }
    }
}

std::string DiskErrorText(const std::error_code& error, WhoseFolder folder) {
    struct Reason {
        std::errc code;
        std::u8string_view what;
        std::u8string_view elsewhere;  // what the user can do who has chosen the target
        std::u8string_view here;       // and who has not
    };
    constexpr std::u8string_view kOtherFolder = u8"，请换一个文件夹";
    constexpr std::u8string_view kOtherName = u8"，请换一个名字";
    constexpr std::u8string_view kFolder = u8"，请检查保存个人数据的文件夹";
    constexpr std::array<Reason, 10> kReasons{{
        {std::errc::no_space_on_device, u8"磁盘空间不足", u8"，请清理磁盘后重试",
         u8"，请清理磁盘后重试"},
        {std::errc::file_exists, u8"已经有这个名字的文件或文件夹", kOtherName, kFolder},
        {std::errc::no_such_file_or_directory, u8"没有这个文件或文件夹", u8"", kFolder},
        {std::errc::not_a_directory, u8"路径里有一段不是文件夹", u8"", kFolder},
        {std::errc::permission_denied, u8"没有权限", kOtherFolder, kFolder},
        {std::errc::read_only_file_system, u8"这个磁盘是只读的", kOtherFolder, kFolder},
        {std::errc::file_too_large, u8"文件太大，磁盘放不下", u8"", u8""},
        {std::errc::device_or_resource_busy, u8"另一个备份正在写到这里", u8"，请等它结束",
         u8"，请等它结束"},
        {std::errc::too_many_symbolic_link_levels, u8"不能写到链接里", kOtherFolder, kFolder},
        {std::errc::filename_too_long, u8"文件名太长", kOtherName, kFolder},
    }};
    for (const auto& [code, what, elsewhere, here] : kReasons) {
        if (error == code) {
            return Ansi(what) + Ansi(folder == WhoseFolder::user ? elsewhere : here);
        }
    }
    return Ansi(u8"磁盘读写出错: ") + ToAnsi(error.message());
}

}  // namespace quorvi
