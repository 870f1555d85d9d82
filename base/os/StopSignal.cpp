#include "base/os/StopSignal.h"

#include <poll.h>

#include <algorithm>

namespace quorvi {

void StopSignal::WaitFor(std::chrono::milliseconds limit) const {
    const auto end = std::chrono::steady_clock::now() + limit;
    for (auto left = limit; left.count() > 0 && !IsStopped();
         left =
             std::chrono::ceil<std::chrono::milliseconds>(end - std::chrono::steady_clock::now())) {
        pollfd waiting{Descriptor(), POLLIN, 0};
        poll(&waiting, 1, static_cast<int>(std::min<std::int64_t>(left.count(), 1 << 30)));
    }
}

}  // namespace quorvi
