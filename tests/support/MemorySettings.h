// The user's settings in memory.
#pragma once

#include <map>
#include <mutex>
#include <string>
#include <utility>

#include "base/SettingsStore.h"

namespace quorvi {

// Its functions are for any thread, its maps for a test that knows nobody else is at them.
class MemorySettings : public SettingsStore {
  public:
    using Place = std::pair<std::string, std::string>;

    std::optional<std::string> ReadText(std::string_view key,
                                        std::string_view name) const override {
        const std::lock_guard lock(mutex_);
        return Find(texts, key, name);
    }
    std::optional<std::uint32_t> ReadNumber(std::string_view key,
                                            std::string_view name) const override {
        const std::lock_guard lock(mutex_);
        return Find(numbers, key, name);
    }
    bool WriteText(std::string_view key, std::string_view name, std::string_view text) override {
        const std::lock_guard lock(mutex_);
        texts[Place(key, name)] = text;
        return true;
    }
    bool WriteNumber(std::string_view key, std::string_view name, std::uint32_t value) override {
        const std::lock_guard lock(mutex_);
        numbers[Place(key, name)] = value;
        return true;
    }
    void Delete(std::string_view key, std::string_view name) override {
        const std::lock_guard lock(mutex_);
        texts.erase(Place(key, name));
        numbers.erase(Place(key, name));
    }

    std::map<Place, std::string> texts;
    std::map<Place, std::uint32_t> numbers;

  private:
    template <typename Value>
    static std::optional<Value> Find(const std::map<Place, Value>& values, std::string_view key,
                                     std::string_view name) {
        const auto found = values.find(Place(key, name));
        return found == values.end() ? std::nullopt : std::optional(found->second);
    }

    mutable std::mutex mutex_;
};

}  // namespace quorvi
