// Wakes a thread that waits in poll.
#pragma once

#include <cstdint>

#include "base/os/FileDescriptor.h"

namespace quorvi {

// A counter of the system's, that can be polled.
class Wakeup {
  public:
    // At 0; not open when the system has no more.
    Wakeup();

    [[nodiscard]] bool IsOpen() const { return counter_.IsOpen(); }
    // Readable while the counter is not 0. Stays the Wakeup's own.
    [[nodiscard]] int Descriptor() const { return counter_.Get(); }
    // Adds to the counter; nothing when closed. Any thread; safe in a signal handler.
    void Raise(std::uint64_t by = 1) const;
    // What has been added since the last call, and sets the counter to 0. Never waits. Any thread.
    std::uint64_t Take() const;
    void Close() { counter_.Close(); }

  private:
    FileDescriptor counter_;
};

}  // namespace quorvi
