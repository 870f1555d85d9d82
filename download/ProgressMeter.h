// When a download tells how far it is, and what it tells.
#pragma once

#include <chrono>
#include <cstdint>
#include <optional>

namespace quorvi {

struct Progress {
    std::int32_t speed = 0;    // bytes a second
    std::int32_t percent = 0;  // 0 to 100
};

// Counts the bytes of one run. The speed is the mean of the whole run, over whole seconds, without
// what was there before it; the percentage counts that, too.
class ProgressMeter {
  public:
    // Bytes that were there before, and that are to come; the latter above 0.
    ProgressMeter(std::int64_t resumed, std::int64_t length)
        : done_(resumed), total_(resumed + length) {}

    // Counts `bytes` more, `elapsed` after the start of the run. Something to tell comes of it
    // after the first second and the first 10,240 bytes, and every 200 ms at most.
    std::optional<Progress> Count(std::int64_t bytes, std::chrono::milliseconds elapsed);

    // Bytes of this run.
    [[nodiscard]] std::int64_t Session() const { return session_; }

  private:
    std::int64_t session_ = 0;
    std::int64_t done_;
    std::int64_t total_;
    std::chrono::milliseconds lastReport_{-1000};
};

}  // namespace quorvi
