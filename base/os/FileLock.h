// A lock between processes, and between threads, by a file that is left where it is.
#pragma once

#include <filesystem>

#include "base/os/FileDescriptor.h"

namespace quorvi {

// Held from its making to its end. Whoever else makes one on the same file waits, or gives up.
class FileLock {
  public:
    enum class Wait { always, never };

    // Makes the file where it is missing; its folder must be there.
    explicit FileLock(const std::filesystem::path& file, Wait wait = Wait::always);

    // False when the file could not be made or opened, and when it is busy.
    [[nodiscard]] bool IsHeld() const { return file_.IsOpen(); }
    // Somebody else holds it; of one that does not wait.
    [[nodiscard]] bool IsBusy() const { return busy_; }

  private:
    FileDescriptor file_;
    bool busy_ = false;
};

// Whether `path` is still the name of the open file or folder. To be asked behind a lock: whoever
// held that before may have given the file another place, or taken it away.
[[nodiscard]] bool IsStillNamed(const FileDescriptor& file, const std::filesystem::path& path);

}  // namespace quorvi
