// Who is told of what a service does. For services that several threads use.
//
//   Observers<InstallEvent> observers;
//   const Subscription heard = observers.Add([](const InstallEvent& event) { … });
//   observers.Tell(event);
#pragma once

#include <functional>
#include <memory>
#include <mutex>
#include <utility>
#include <vector>

namespace quorvi {

// Keeps an observer in its list: it is told until the last copy goes.
using Subscription = std::shared_ptr<const void>;

// Any thread.
template <typename Event>
class Observers {
  public:
    using Observer = std::function<void(const Event& event)>;

    [[nodiscard]] Subscription Add(Observer observer) {
        Subscription subscription = std::make_shared<char>();
        const std::lock_guard lock(mutex_);
        observers_.push_back({subscription, std::make_shared<const Observer>(std::move(observer))});
        return subscription;
    }

    // Calls every observer on this thread, in the order in which they were added, and holds no lock
    // meanwhile: an observer may add others, or give up its own subscription, and is told of
    // nothing more then. One whose subscription goes while it is told on another thread hears that
    // call to its end.
    void Tell(const Event& event) {
        for (const Entry& entry : Present()) {
            if (!entry.subscription.expired()) {
                (*entry.observer)(event);
            }
        }
    }

  private:
    struct Entry {
        std::weak_ptr<const void> subscription;
        std::shared_ptr<const Observer> observer;
    };

    std::vector<Entry> Present() {
        const std::lock_guard lock(mutex_);
        std::erase_if(observers_, [](const Entry& entry) { return entry.subscription.expired(); });
        return observers_;
    }

    std::mutex mutex_;
    std::vector<Entry> observers_;
};

}  // namespace quorvi
