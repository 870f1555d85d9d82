// A lock between processes, and between threads, by a file that is left where it is.
#pragma once

#include <filesystem>

#include "base/os/FileDescriptor.h"

namespace quorvi {

// Held from its making to its end. Whoever else makes one on the same file waits.
class FileLock {
  public:
    // Makes the file where it is missing; its folder must be there.
    explicit FileLock(const std::filesystem::path& file);

    // False when the file could not be made or opened.
    [[nodiscard]] bool IsHeld() const { return file_.IsOpen(); }

  private:
    FileDescriptor file_;
};

}  // namespace quorvi
