// What pages remember for the whole process.
#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <mutex>
#include <optional>

namespace quorvi {

// From a page's load key to 0 (a load runs) or 1 (a load has ended). That a key is there at all
// keeps the page from loading by itself again, for a new phone too; it goes only when something
// else than the page has changed what the page shows. Copies share one map, so that a worker may
// hold its own. Any thread.
class PageLoadState {
  public:
    static constexpr int kRunning = 0;
    static constexpr int kEnded = 1;

    void Set(int key, int value) {
        const std::lock_guard lock(shared_->mutex);
        shared_->values[key] = value;
    }
    // The page loads again when it is shown the next time.
    void Forget(int key) {
        const std::lock_guard lock(shared_->mutex);
        shared_->values.erase(key);
    }
    [[nodiscard]] bool Contains(int key) const {
        const std::lock_guard lock(shared_->mutex);
        return shared_->values.contains(key);
    }
    [[nodiscard]] std::optional<int> Value(int key) const {
        const std::lock_guard lock(shared_->mutex);
        const auto found = shared_->values.find(key);
        return found == shared_->values.end() ? std::nullopt : std::optional(found->second);
    }

  private:
    struct Shared {
        std::mutex mutex;
        std::map<int, int> values;
    };
    std::shared_ptr<Shared> shared_ = std::make_shared<Shared>();
};

// From a small key to the id of the row selected last. Any thread.
class PageSelection {
  public:
    static constexpr int kContact = 0;
    static constexpr int kBookmark = 1;
    static constexpr int kAlarm = 2;

    void Set(int key, std::uint32_t id) {
        const std::lock_guard lock(mutex_);
        ids_[key] = id;
    }
    [[nodiscard]] std::optional<std::uint32_t> Id(int key) const {
        const std::lock_guard lock(mutex_);
        const auto found = ids_.find(key);
        return found == ids_.end() ? std::nullopt : std::optional(found->second);
    }

  private:
    mutable std::mutex mutex_;
    std::map<int, std::uint32_t> ids_;
};

}  // namespace quorvi
