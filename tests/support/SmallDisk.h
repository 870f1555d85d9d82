// A disk of a few bytes, for tests of what becomes of a full one.
#pragma once

#include <cstddef>
#include <filesystem>

#include "tests/support/TemporaryFolder.h"

namespace quorvi {

// A file system of its own, mounted for this thread and the threads that it starts from then on.
// Made before the test has other threads.
class SmallDisk {
  public:
    explicit SmallDisk(std::size_t bytes);
    ~SmallDisk();
    SmallDisk(const SmallDisk&) = delete;
    SmallDisk& operator=(const SmallDisk&) = delete;

    // False where the system gives no namespace to mount in.
    [[nodiscard]] bool IsThere() const { return mounted_; }
    [[nodiscard]] const std::filesystem::path& Path() const { return folder_.Path(); }
    // Writes until nothing more has room.
    void Fill() const;
    // Gives the room of Fill back.
    void Empty() const;

  private:
    TemporaryFolder folder_;
    bool mounted_ = false;
};

}  // namespace quorvi
