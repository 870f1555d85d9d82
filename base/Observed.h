// A value of a service that others watch.
#pragma once

#include <memory>
#include <mutex>
#include <utility>

#include "base/Observers.h"

namespace quorvi {

// Copies share one value, so that a worker may hold its own. Any thread.
template <typename Value>
class Observed {
  public:
    explicit Observed(Value value = {}) : state_(std::make_shared<State>(std::move(value))) {}

    [[nodiscard]] Value Get() const {
        const std::lock_guard lock(state_->mutex);
        return state_->value;
    }

    // Sets the value, then tells each observer of it, on this thread and outside the lock.
    void Set(const Value& value) {
        {
            const std::lock_guard lock(state_->mutex);
            state_->value = value;
        }
        state_->observers.Tell(value);
    }

    // `observer` hears each value that is set from now on, on the thread that sets it, for as long
    // as the subscription is kept. Where two threads set values, it may hear them in another order
    // than they were set: who wants the last one asks for it. What belongs to the window posts to
    // it.
    [[nodiscard]] Subscription Observe(typename Observers<Value>::Observer observer) const {
        return state_->observers.Add(std::move(observer));
    }

  private:
    struct State {
        explicit State(Value first) : value(std::move(first)) {}

        std::mutex mutex;
        Value value;
        Observers<Value> observers;
    };

    std::shared_ptr<State> state_;
};

}  // namespace quorvi
