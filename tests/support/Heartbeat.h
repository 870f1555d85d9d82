// Whether the window's thread is alive, told by the events that it takes.
#pragma once

#include <QTimer>
#include <atomic>
#include <condition_variable>
#include <functional>
#include <mutex>
#include <thread>

namespace quorvi {

// Beats on the window's thread, on which the tests run too: whoever awaited a reply there would
// stop the heart and the test alike. So a watch on a thread of its own sees the heart stand still
// for long; it has the reply let go then, and remembers that it had to.
class Heartbeat {
  public:
    // `rescue` is called on the watch's thread.
    explicit Heartbeat(std::function<void()> rescue);
    ~Heartbeat();

    [[nodiscard]] int Beats() const { return beats_; }
    // Whether it has, since this was asked last.
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
