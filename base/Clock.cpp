#include "base/Clock.h"

#include <thread>

namespace quorvi {
namespace {

class MachineClock final : public Clock {
  public:
    void SleepFor(std::chrono::milliseconds time) override { std::this_thread::sleep_for(time); }
};

}  // namespace

Clock& SystemClock() {
    static MachineClock clock;
    return clock;
}

}  // namespace quorvi
