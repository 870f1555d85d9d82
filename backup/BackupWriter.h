// Writes a backup: a folder, or a .zip, that gets its name when all of it is on the disk.
#pragma once

#include <sys/types.h>

#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <system_error>

#include "backup/Manifest.h"
#include "backup/Sha256.h"
#include "base/os/FileDescriptor.h"
#include "base/os/StopSignal.h"

namespace quorvi {

// One file of a backup that is being written. Used on one thread; several may be open at once.
class BackupFile {
  public:
    BackupFile() = default;

    // Nothing is written any more after the first error, which Close gives too.
    void Write(std::string_view bytes);
    [[nodiscard]] const std::error_code& Error() const { return error_; }
    // What the manifest says of the file, once its last byte is on the disk.
    [[nodiscard]] BackedUpFile Close();

  private:
    friend class BackupWriter;
    BackupFile(std::string name, FileDescriptor file);
    void WriteOut(std::string_view bytes);

    BackedUpFile written_;
    FileDescriptor file_;
    std::string waiting_;  // not written yet, so that small pieces cost no system call each
    off_t given_ = 0;      // bytes that the system has
    off_t begun_ = 0;      // of these, what it was told to bring to the disk
    std::unique_ptr<Sha256> sum_;
    std::error_code error_;
};

// Until Finish all that is written stands beside the target, in a hidden folder of its own; it is
// removed with the writer, and, where a writer was killed, by the next one for any target in that
// folder. Files and folders are the user's alone. Used on one thread; blocks as long as the disk
// does.
class BackupWriter {
  public:
    // A target that ends in ".zip" becomes one; any other, a folder. Not ready (Error) where
    // something has that name already, where its folder is missing or not writable, and while
    // another writer writes to the same target.
    explicit BackupWriter(const std::filesystem::path& target);
    ~BackupWriter();
    BackupWriter(const BackupWriter&) = delete;
    BackupWriter& operator=(const BackupWriter&) = delete;

    // Why the writer is not ready; no error when it is.
    [[nodiscard]] const std::error_code& Error() const { return error_; }

    // A new file. One that could not be made has its error.
    [[nodiscard]] BackupFile Begin(const std::string& name);
    // Writes the manifest and gives the whole its name. On an error, and on a stop, nothing has the
    // name; std::errc::operation_canceled is the stop's.
    [[nodiscard]] std::error_code Finish(const Manifest& manifest, const StopSignal& stop);

  private:
    [[nodiscard]] std::error_code Prepare();
    [[nodiscard]] std::error_code OpenPart();
    [[nodiscard]] std::error_code Pack(const Manifest& manifest, const StopSignal& stop) const;
    void Remove();

    std::filesystem::path target_;
    std::filesystem::path part_;
    FileDescriptor folder_;  // part_, locked
    std::error_code error_;
};

// Takes away what killed writers have left in a folder; what a writer still writes stays.
void RemoveUnfinishedBackups(const std::filesystem::path& folder);

// The folder that a backup is written to.
enum class WhoseFolder {
    user,   // that the user has chosen: it can be another
    suite,  // that of the user's data
};

// What went wrong with the disk, and what can be done about it. ANSI.
[[nodiscard]] std::string DiskErrorText(const std::error_code& error,
                                        WhoseFolder folder = WhoseFolder::user);

}  // namespace quorvi
