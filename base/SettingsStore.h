// The user's settings: values by key and name. Keys are written as "Software\Quorvi"; names as the
// pages give them ("exit_mode", "screen_shot").
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace quorvi {

// The key that nearly all values stand under.
inline constexpr std::string_view kSettingsKey = "Software\\Quorvi";

class SettingsStore {
  public:
    virtual ~SettingsStore() = default;

    // Text is ANSI. Empty when there is no such value. Any thread.
    [[nodiscard]] virtual std::optional<std::string> ReadText(std::string_view key,
                                                              std::string_view name) const = 0;
    [[nodiscard]] virtual std::optional<std::uint32_t> ReadNumber(std::string_view key,
                                                                  std::string_view name) const = 0;
    // Creates the key where it is missing. False when the value could not be written.
    virtual bool WriteText(std::string_view key, std::string_view name, std::string_view text) = 0;
    virtual bool WriteNumber(std::string_view key, std::string_view name, std::uint32_t value) = 0;
    // No error when there is nothing to delete.
    virtual void Delete(std::string_view key, std::string_view name) = 0;
};

}  // namespace quorvi
