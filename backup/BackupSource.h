// Where the bytes of a backup come from: a folder or a .zip. Whatever stands there, nothing outside
// of it is read, and nothing beyond what is asked for.
#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <memory>
#include <span>
#include <string>
#include <string_view>

#include "backup/Manifest.h"

namespace quorvi {

// One file that is being read.
class BackupEntry {
  public:
    virtual ~BackupEntry() = default;
    // The count of bytes read, 0 at the end, -1 on failure.
    [[nodiscard]] virtual std::ptrdiff_t Read(std::span<char> room) = 0;
};

class BackupSource {
  public:
    virtual ~BackupSource() = default;
    // Nothing where there is no such file, or something that is no plain file; `why` then says so,
    // in ANSI.
    [[nodiscard]] virtual std::unique_ptr<BackupEntry> Open(const std::string& name,
                                                            std::string& why) = 0;
    // Holds the files against the manifest before any of them is read: what is refused is told in
    // ANSI, else nothing is.
    [[nodiscard]] virtual std::string Refuse(const Manifest& manifest) = 0;
};

// Nothing where `path` is no backup; `why` then says so, in ANSI.
[[nodiscard]] std::unique_ptr<BackupSource> OpenFolderSource(const std::filesystem::path& path,
                                                             std::string& why);
[[nodiscard]] std::unique_ptr<BackupSource> OpenZipSource(const std::filesystem::path& path,
                                                          std::string& why);

}  // namespace quorvi
