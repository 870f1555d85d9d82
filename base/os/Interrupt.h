// Ctrl+C, for a program that has something to finish before it ends.
#pragma once

#include <chrono>

namespace quorvi {

// From its making on, the first SIGINT or SIGTERM does not end the process: it is kept for whoever
// asks. The second one ends it as ever. A signal that the process was started to ignore stays
// ignored. One at a time; made before the process has other threads. Wake may be called on any
// thread, the rest on the one that has made it.
class Interrupt {
  public:
    Interrupt();
    ~Interrupt();
    Interrupt(const Interrupt&) = delete;
    Interrupt& operator=(const Interrupt&) = delete;

    [[nodiscard]] bool HasCome() const;
    // Waits for it, at most so long, and not beyond the next Wake.
    void WaitFor(std::chrono::milliseconds limit) const;
    void Wake() const;
};

}  // namespace quorvi
