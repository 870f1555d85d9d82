// Reads a backup and trusts none of it: names, lengths and sums are held against the manifest, and
// memory does not grow with what the files claim.
#pragma once

#include <cstddef>
#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "backup/BackupSource.h"
#include "backup/Manifest.h"
#include "base/os/StopSignal.h"

namespace quorvi {

class BackupReader;

struct OpenedBackup {
    std::unique_ptr<BackupReader> reader;  // nothing where it is refused
    std::string why;                       // why it is. ANSI
};

// Used on one thread; blocks as long as the disk does.
class BackupReader {
  public:
    // Opens a folder or a .zip, by what stands there, and reads the manifest. Of the other files
    // it looks at names, kinds and lengths alone.
    [[nodiscard]] static OpenedBackup Open(const std::filesystem::path& path);

    [[nodiscard]] const Manifest& TheManifest() const { return manifest_; }

    // Gives a file piece by piece. False from `take` ends the reading. Empty when all of the file
    // is what the manifest says; else why not, in ANSI, for which what was taken is not to be used.
    using Take = std::function<bool(std::string_view piece)>;
    [[nodiscard]] std::string Stream(const BackedUpFile& file, const Take& take) const;
    // A file of at most `most` bytes whole. Nothing, and why, when it is larger or not what the
    // manifest says.
    [[nodiscard]] std::optional<std::string> ReadWhole(const BackedUpFile& file, std::size_t most,
                                                       std::string& why) const;
    // Reads every file. Empty when all are what the manifest says, and when stopped; else why not.
    [[nodiscard]] std::string Verify(const StopSignal& stop) const;

  private:
    BackupReader(std::unique_ptr<BackupSource> source, Manifest manifest);

    std::unique_ptr<BackupSource> source_;
    Manifest manifest_;
};

}  // namespace quorvi
