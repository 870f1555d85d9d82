// The newest of many values, on the window's thread.
#pragma once

#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <utility>

#include "ui/page/Job.h"

namespace quorvi {

// Told a value by a worker as often as it likes, shows the window's thread the newest one whenever
// that is free: a worker that tells more than can be drawn does not fill its queue. Copies share
// their state. `show` is dropped when the receiver is gone.
template <typename Value>
class LatestPost {
  public:
    LatestPost(QPointer<QObject> receiver, std::function<void(const Value&)> show)
        : receiver_(std::move(receiver)), state_(std::make_shared<State>()) {
        state_->show = std::move(show);
    }

    // Any thread.
    void operator()(Value value) const {
        {
            const std::lock_guard lock(state_->mutex);
            const bool waits = state_->newest.has_value();
            state_->newest = std::move(value);
            if (waits) {
                return;
            }
        }
        PostToWindow(receiver_, [state = state_] {
            std::optional<Value> newest;
            {
                const std::lock_guard lock(state->mutex);
                newest.swap(state->newest);
            }
            if (newest) {
                state->show(*newest);
            }
        });
    }

  private:
    struct State {
        std::mutex mutex;
        std::optional<Value> newest;
        std::function<void(const Value&)> show;
    };
    QPointer<QObject> receiver_;
    std::shared_ptr<State> state_;
};

}  // namespace quorvi
