// Ctrl+C, for a program that has something to finish before it ends.
#pragma once

#include <chrono>

#include "base/os/StopSignal.h"

namespace quorvi {

// From its making on, the first SIGINT, SIGTERM or SIGHUP does not end the process: it is kept for
// whoever asks. The second one ends it as ever. A signal that the process was started to ignore
// stays ignored. One at a time; made before the process has other threads. Wake may be called on
// any thread, the rest on the one that has made it.
class Interrupt {
  public:
    Interrupt();
    ~Interrupt();
    Interrupt(const Interrupt&) = delete;
    Interrupt& operator=(const Interrupt&) = delete;

    [[nodiscard]] bool HasCome() const;
    // Raised when it comes, for work on other threads; good until this goes.
    [[nodiscard]] const StopSignal& Signal() const;
    // Waits for it, at most so long, and not beyond the next Wake.
    void WaitFor(std::chrono::milliseconds limit) const;
    void Wake() const;
};

}  // namespace quorvi
