// Who is told of what a service does. For services that several threads use.
//
//   Observers<InstallEvent> observers;
//   const Subscription heard = observers.Add([](const InstallEvent& event) { … });
//   observers.Tell(event);
#pragma once

#include <atomic>
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
        auto slot = std::make_shared<Slot>(std::move(observer));
        const std::lock_guard lock(mutex_);
        slots_.push_back(slot);
        return std::make_shared<const Ticket>(std::move(slot));
    }

    // Calls every observer on this thread, in the order in which they were added, and holds no lock
    // meanwhile: an observer may add others, or give up its own subscription, and is told of
    // nothing more then. One whose subscription goes while it is told on another thread hears that
    // call to its end.
    void Tell(const Event& event) {
        for (const std::weak_ptr<Slot>& present : Present()) {
            if (const auto slot = present.lock(); slot && !slot->over) {
                slot->observer(event);
            }
        }
    }

  private:
    struct Slot {
        explicit Slot(Observer told) : observer(std::move(told)) {}
        const Observer observer;
        std::atomic<bool> over = false;  // its subscription has gone, maybe inside its own call
    };

    // What a subscription is: it alone keeps the observer, so that all that the observer holds goes
    // with it.
    class Ticket {
      public:
        explicit Ticket(std::shared_ptr<Slot> slot) : slot_(std::move(slot)) {}
        ~Ticket() { slot_->over = true; }
        Ticket(const Ticket&) = delete;
        Ticket& operator=(const Ticket&) = delete;

      private:
        std::shared_ptr<Slot> slot_;
    };

    std::vector<std::weak_ptr<Slot>> Present() {
        const std::lock_guard lock(mutex_);
        std::erase_if(slots_, [](const std::weak_ptr<Slot>& slot) { return slot.expired(); });
        return slots_;
    }

    std::mutex mutex_;
    std::vector<std::weak_ptr<Slot>> slots_;
};

}  // namespace quorvi
