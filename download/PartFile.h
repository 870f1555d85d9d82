// The file into which a download writes until it is whole.
#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <span>

#include "base/os/FileDescriptor.h"

namespace quorvi {

// Beside the file that is to come, under its name with ".tmp" in the place of its extension. What
// stands there under that name and is no plain file, a link among it, is neither followed nor
// written. Used on one thread.
class PartFile {
  public:
    explicit PartFile(const std::filesystem::path& target);

    [[nodiscard]] const std::filesystem::path& Path() const { return path_; }
    // Bytes that an earlier download has left; 0 where there is no plain file.
    [[nodiscard]] std::int64_t Length() const;

    enum class Written { all, noRoom, failed };
    // Opens it for writing from `offset` on, and makes it where it is missing; what it holds stays.
    [[nodiscard]] Written Open(std::int64_t offset);
    [[nodiscard]] Written Write(std::span<const std::byte> bytes) const;
    // A system may tell only now that there was no room.
    [[nodiscard]] Written Close();

    // Gives it the target's name, whatever stood under that before; a link there is replaced, and
    // not what it leads to. False where that is not possible: it stays as it is then.
    [[nodiscard]] bool MoveOnto(const std::filesystem::path& target) const;

  private:
    std::filesystem::path path_;
    FileDescriptor file_;
};

}  // namespace quorvi
