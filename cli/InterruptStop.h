// Ctrl+C for commands that have something to put in order before they end.
#pragma once

#include "base/os/StopSignal.h"

namespace quorvi::cli {

// While it lives, the first SIGINT, SIGTERM or SIGHUP raises the signal instead of ending the
// program; the second ends it. One at a time.
class InterruptStop {
  public:
    InterruptStop();
    ~InterruptStop();
    InterruptStop(const InterruptStop&) = delete;
    InterruptStop& operator=(const InterruptStop&) = delete;

    [[nodiscard]] const StopSignal& Signal() const { return stop_; }

  private:
    StopSignal stop_;
};

}  // namespace quorvi::cli
