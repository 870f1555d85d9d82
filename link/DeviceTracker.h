// Follows the adb server's list of phones: what comes, what goes, and what each waits for.
//
// The server is never started here. Where none runs, or where it ends, the tracker asks again from
// time to time, so that it hears of the server that `adb devices` has started.
#pragma once

#include <chrono>
#include <cstdint>
#include <functional>

#include "base/os/StoppableThread.h"
#include "link/AdbHostClient.h"
#include "link/TrackedDevices.h"

namespace quorvi {

// Between two tries to reach the server.
inline constexpr std::chrono::milliseconds kTrackPause{1000};

class DeviceTracker {
  public:
    // Called on the tracker's own thread with the whole list, at the start of each connection to
    // the server and at each change, which may be told a moment late. It posts what it hears and
    // does not stop the tracker. A server that is gone is not told: its phones count as they were
    // until the next list.
    using Listener = std::function<void(const TrackedDevices& devices)>;

    // Port and pause differ in tests only.
    explicit DeviceTracker(std::uint16_t port = AdbServerPort(),
                           std::chrono::milliseconds pause = kTrackPause);

    // Stops what ran, and follows the list from now on. False where no thread is to be had.
    bool Start(Listener listener);

    // Ends at once. The listener is not called any more when it returns.
    void Stop() { thread_.Stop(); }

  private:
    class Follower;

    std::uint16_t port_;
    std::chrono::milliseconds pause_;
    StoppableThread thread_;
};

}  // namespace quorvi
