#include "base/os/Wakeup.h"

#include <sys/eventfd.h>
#include <unistd.h>

namespace quorvi {

Wakeup::Wakeup() : counter_(eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK)) {}

void Wakeup::Raise(std::uint64_t by) const {
    // Fails only when the counter is full or closed: whoever waits at a full one wakes up anyway.
    [[maybe_unused]] const auto written = write(Descriptor(), &by, sizeof by);
}

std::uint64_t Wakeup::Take() const {
    std::uint64_t count = 0;
    return read(Descriptor(), &count, sizeof count) == sizeof count ? count : 0;
}

}  // namespace quorvi
