#include "phone/EventLoop.h"

#include <algorithm>
#include <utility>

namespace quorvi::phone {
namespace {

// Stop adds this to the wake-up counter. Post adds 1, and so many posts never wait at once: the
// loop tells the two apart by the sum.
constexpr std::uint64_t kStopCount = std::uint64_t{1} << 40;

}  // namespace

EventLoop::EventLoop() {
    Watch(wakeup_.Descriptor(), POLLIN, [this](short) {
        if (wakeup_.Take() >= kStopCount) {
            stopping_ = true;
        }
    });
}

void EventLoop::Watch(int descriptor, short events, Ready ready) {
    watched_[descriptor] = std::make_shared<Watched>(Watched{events, std::move(ready)});
}

void EventLoop::SetEvents(int descriptor, short events) {
    if (const auto found = watched_.find(descriptor); found != watched_.end()) {
        found->second->events = events;
    }
}

void EventLoop::Unwatch(int descriptor) {
    watched_.erase(descriptor);
}

EventLoop::TimerId EventLoop::After(std::chrono::milliseconds time, Task task) {
    const TimerId id = ++lastTimer_;
    timers_.emplace(std::chrono::steady_clock::now() + time, Timer{id, std::move(task)});
    return id;
}

void EventLoop::Cancel(TimerId timer) {
    std::erase_if(timers_, [&](const auto& entry) { return entry.second.id == timer; });
}

void EventLoop::Post(Task task) {
    {
        const std::lock_guard lock(mutex_);
        posted_.push_back(std::move(task));
    }
    wakeup_.Raise();
}

void EventLoop::Stop() {
    wakeup_.Raise(kStopCount);
}

void EventLoop::Run() {
    while (!stopping_) {
        PollOnce();
        RunTimers();
        RunPosted();
    }
    stopping_ = false;
}

void EventLoop::RunPosted() {
    std::vector<Task> tasks;
    {
        const std::lock_guard lock(mutex_);
        tasks.swap(posted_);
    }
    for (const Task& task : tasks) {
        task();
    }
}

void EventLoop::RunTimers() {
    const Time now = std::chrono::steady_clock::now();
    while (!timers_.empty() && timers_.begin()->first <= now) {
        const Task task = std::move(timers_.begin()->second.task);
        timers_.erase(timers_.begin());
        task();
    }
}

int EventLoop::TimeToNextTimer() const {
    if (timers_.empty()) {
        return -1;
    }
    using std::chrono::milliseconds;
    const auto left = timers_.begin()->first - std::chrono::steady_clock::now();
    return static_cast<int>(
        std::clamp(std::chrono::ceil<milliseconds>(left), milliseconds(0), milliseconds(60'000))
            .count());
}

void EventLoop::PollOnce() {
    std::vector<pollfd> descriptors;
    std::vector<std::shared_ptr<Watched>> watched;
    for (const auto& [descriptor, entry] : watched_) {
        descriptors.push_back({descriptor, entry->events, 0});
        watched.push_back(entry);
    }
    if (poll(descriptors.data(), descriptors.size(), TimeToNextTimer()) < 0) {
        return;
    }
    for (std::size_t i = 0; i < descriptors.size(); ++i) {
        const auto& [descriptor, events, happened] = descriptors[i];
        // A callback that ran earlier in this turn may have closed the descriptor, and opened
        // another one under the same number.
        const auto found = watched_.find(descriptor);
        if (happened != 0 && found != watched_.end() && found->second == watched[i]) {
            watched[i]->ready(happened);
        }
    }
}

}  // namespace quorvi::phone
