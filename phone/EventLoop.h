// One thread that waits for sockets and timers: everything a simulated phone does runs on it, so
// that its state needs no lock.
#pragma once

#include <poll.h>

#include <chrono>
#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <mutex>
#include <vector>

#include "base/os/Wakeup.h"

namespace quorvi::phone {

class EventLoop {
  public:
    using Task = std::function<void()>;
    using Ready = std::function<void(short events)>;
    using TimerId = std::uint64_t;

    EventLoop();
    ~EventLoop() = default;
    EventLoop(const EventLoop&) = delete;
    EventLoop& operator=(const EventLoop&) = delete;

    // The loop's thread only, or before Run. `ready` is told what poll reported. Unwatch before the
    // descriptor is closed; from inside `ready` too.
    void Watch(int descriptor, short events, Ready ready);
    void SetEvents(int descriptor, short events);
    void Unwatch(int descriptor);

    // The loop's thread only. Zero is no timer's id.
    TimerId After(std::chrono::milliseconds time, Task task);
    void Cancel(TimerId timer);

    // Runs `task` on the loop's thread, behind what runs there now. Any thread.
    void Post(Task task);

    // Runs until Stop. Tasks posted before Stop are run.
    void Run();
    // Any thread; safe in a signal handler.
    void Stop();

  private:
    using Time = std::chrono::steady_clock::time_point;

    struct Watched {
        short events;
        Ready ready;
    };
    struct Timer {
        TimerId id;
        Task task;
    };

    void RunPosted();
    void RunTimers();
    void PollOnce();
    [[nodiscard]] int TimeToNextTimer() const;

    std::map<int, std::shared_ptr<Watched>> watched_;
    std::multimap<Time, Timer> timers_;
    TimerId lastTimer_ = 0;
    std::mutex mutex_;
    std::vector<Task> posted_;
    Wakeup wakeup_;
    bool stopping_ = false;
};

}  // namespace quorvi::phone
