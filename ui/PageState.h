// What pages remember for the whole process.
#pragma once

#include <cstdint>
#include <map>
#include <mutex>
#include <optional>

namespace quorvi {

// From a page's load key to 0 (a load runs) or 1 (a load has ended). That a key is there at all
// keeps the page from loading by itself again. Any thread.
class PageLoadState {
  public:
    void Set(int key, int value) {
        const std::lock_guard lock(mutex_);
        values_[key] = value;
    }
    [[nodiscard]] bool Contains(int key) const {
        const std::lock_guard lock(mutex_);
        return values_.contains(key);
    }
    [[nodiscard]] std::optional<int> Value(int key) const {
        const std::lock_guard lock(mutex_);
        const auto found = values_.find(key);
        return found == values_.end() ? std::nullopt : std::optional(found->second);
    }

  private:
    mutable std::mutex mutex_;
    std::map<int, int> values_;
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
