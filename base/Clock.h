// Waiting, behind an interface, so that a test need not.
#pragma once

#include <chrono>

namespace quorvi {

class Clock {
  public:
    virtual ~Clock() = default;
    // Blocks the calling thread. Any thread.
    virtual void SleepFor(std::chrono::milliseconds time) = 0;
};

// The clock of the machine. Lives as long as the process.
[[nodiscard]] Clock& SystemClock();

}  // namespace quorvi
