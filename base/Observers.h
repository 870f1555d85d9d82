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
        auto added = std::make_shared<const Observer>(std::move(observer));
        const std::lock_guard lock(mutex_);
        observers_.push_back(added);
        return added;
    }

    // Calls every observer on this thread, in the order in which they were added, and holds no lock
    // meanwhile: an observer may add others, or give up its own subscription. One whose
    // subscription goes while it is told on another thread hears that call to its end.
    void Tell(const Event& event) {
        for (const auto& observer : Present()) {
            (*observer)(event);
        }
    }

  private:
    std::vector<std::shared_ptr<const Observer>> Present() {
        const std::lock_guard lock(mutex_);
        std::vector<std::shared_ptr<const Observer>> present;
        std::erase_if(observers_, [&](const std::weak_ptr<const Observer>& observer) {
            auto there = observer.lock();
            if (!there) {
                return true;
            }
            present.push_back(std::move(there));
            return false;
        });
        return present;
    }

    std::mutex mutex_;
    std::vector<std::weak_ptr<const Observer>> observers_;
};

}  // namespace quorvi
