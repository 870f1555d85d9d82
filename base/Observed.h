// A value of a service that others watch.
#pragma once

#include <functional>
#include <memory>
#include <mutex>
#include <utility>
#include <vector>

namespace quorvi {

// Keeps an observer: it is called until this has gone. A call that another thread has begun by then
// still runs.
using Observation = std::shared_ptr<const std::function<void()>>;

// Copies share one value, so that a worker may hold its own. Any thread.
template <typename Value>
class Observed {
  public:
    explicit Observed(Value value = {}) : state_(std::make_shared<State>(std::move(value))) {}

    [[nodiscard]] Value Get() const {
        const std::lock_guard lock(state_->mutex);
        return state_->value;
    }

    // Sets the value, then tells each observer, on this thread and outside the lock.
    void Set(Value value) {
        for (const Observation& observer : state_->Take(std::move(value))) {
            (*observer)();
        }
    }

    // `changed` is called after each Set, on the thread that sets: it asks for the value itself,
    // since another may have been set meanwhile. What belongs to the window posts to it.
    [[nodiscard]] Observation Observe(std::function<void()> changed) const {
        auto observer = std::make_shared<const std::function<void()>>(std::move(changed));
        const std::lock_guard lock(state_->mutex);
        state_->observers.emplace_back(observer);
        return observer;
    }

  private:
    struct State {
        explicit State(Value first) : value(std::move(first)) {}

        // Takes the value over and gives the observers that are still there.
        std::vector<Observation> Take(Value next) {
            std::vector<Observation> there;
            const std::lock_guard lock(mutex);
            value = std::move(next);
            std::erase_if(observers, [&](const auto& observer) {
                Observation found = observer.lock();
                if (found == nullptr) {
                    return true;
                }
                there.push_back(std::move(found));
                return false;
            });
            return there;
        }

        std::mutex mutex;
        Value value;
        std::vector<std::weak_ptr<const std::function<void()>>> observers;
    };

    std::shared_ptr<State> state_;
};

}  // namespace quorvi
