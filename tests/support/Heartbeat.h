// Whether the window's thread still handles events.
#pragma once

#include <QTimer>
#include <atomic>
#include <condition_variable>
#include <functional>
#include <mutex>
#include <thread>

namespace quorvi {

// A timer of the window's thread beats all the time. The tests run on that thread too, so a page
// that waited for a reply there would stop the test with it. A thread of the heart's own therefore
// watches: when no beat comes for long it calls `rescue`, which lets the reply go, and remembers
// that it had to.
class Heartbeat {
  public:
    // `rescue` is called on the watch's thread.
    explicit Heartbeat(std::function<void()> rescue);
    ~Heartbeat();

    [[nodiscard]] int Beats() const { return beats_; }
    // Whether the beats have stopped since this was asked last.
    [[nodiscard]] bool HasStopped() { return stopped_.exchange(false); }

  private:
    void Watch();

    std::function<void()> rescue_;
    QTimer timer_;
    std::atomic<int> beats_ = 0;
    std::atomic<bool> stopped_ = false;
    std::mutex mutex_;
    std::condition_variable ended_;
    bool ending_ = false;
    std::thread watch_;
};

}  // namespace quorvi
