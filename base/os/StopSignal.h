// Ends the waits of another thread.
#pragma once

#include <atomic>
#include <chrono>

#include "base/os/Wakeup.h"

namespace quorvi {

// Raised once, and never taken back: who starts anew makes a new one. Any thread.
class StopSignal {
  public:
    void Stop() {
        stopped_ = true;
        wakeup_.Raise();
    }
    [[nodiscard]] bool IsStopped() const { return stopped_; }
    // Waits for Stop, at most so long.
    void WaitFor(std::chrono::milliseconds limit) const;
    // Not open when the system has no more wakeups: waits would not end then.
    [[nodiscard]] bool IsOpen() const { return wakeup_.IsOpen(); }
    // Readable from Stop on; for poll.
    [[nodiscard]] int Descriptor() const { return wakeup_.Descriptor(); }

  private:
    std::atomic<bool> stopped_ = false;
    Wakeup wakeup_;
};

}  // namespace quorvi
