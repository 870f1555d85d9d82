// A thread that its owner can end while it waits.
#pragma once

#include <functional>
#include <memory>
#include <thread>

#include "base/os/StopSignal.h"

namespace quorvi {

// For work that goes on until it is told to stop: it waits with the signal it was given, by WaitFor
// or in a poll. The owner's thread.
class StoppableThread {
  public:
    using Work = std::function<void(const StopSignal& stop)>;

    StoppableThread() = default;
    ~StoppableThread() { Stop(); }
    StoppableThread(const StoppableThread&) = delete;
    StoppableThread& operator=(const StoppableThread&) = delete;

    // Stops what ran, and runs `work` on a thread of its own. False where the system has no thread
    // or no signal to give: `work` is not called then.
    [[nodiscard]] bool Start(Work work);

    // Raises the signal and waits until the work has returned. Nothing when none runs.
    void Stop();

  private:
    std::unique_ptr<StopSignal> stop_;
    std::thread thread_;
};

}  // namespace quorvi
