#include "tests/support/Heartbeat.h"

#include <chrono>
#include <utility>

namespace quorvi {
namespace {

constexpr auto kBeat = std::chrono::milliseconds(1);
// Without a beat for so long, a heart has stopped: the machine may be busy.
constexpr auto kPatience = std::chrono::seconds(15);

}  // namespace

Heartbeat::Heartbeat(std::function<void()> rescue) : rescue_(std::move(rescue)) {
    QObject::connect(&timer_, &QTimer::timeout, &timer_, [this] { ++beats_; });
    timer_.start(kBeat);
    watch_ = std::thread([this] { Watch(); });
}

Heartbeat::~Heartbeat() {
    {
        const std::lock_guard lock(mutex_);
        ending_ = true;
    }
    ended_.notify_all();
    watch_.join();
}

void Heartbeat::Watch() {
    std::unique_lock lock(mutex_);
    for (int seen = beats_; !ended_.wait_for(lock, kPatience, [this] { return ending_; });) {
        if (std::exchange(seen, beats_) == beats_) {
            stopped_ = true;
            rescue_();
        }
    }
}

}  // namespace quorvi
