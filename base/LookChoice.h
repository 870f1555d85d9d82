// What the user has chosen of the window's look: its theme, and how large its text is.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string_view>

#include "base/SettingsStore.h"

namespace quorvi {

enum class LookChoice : std::uint8_t {
    system,  // as the desktop wishes
    light,
    dark,
    contrast,  // high contrast
};

// The sizes of text that can be chosen, in percent of the usual one.
inline constexpr std::array<int, 4> kTextPercents{100, 110, 125, 150};

// By its name: system, light, dark, contrast.
[[nodiscard]] std::optional<LookChoice> LookOfName(std::string_view name);

// What is stored; `system` and 100 where nothing is, or something else.
[[nodiscard]] LookChoice ChosenLook(const SettingsStore& settings);
[[nodiscard]] int ChosenTextPercent(const SettingsStore& settings);

// Stores the choice.
void ChooseLook(SettingsStore& settings, LookChoice look);
void ChooseTextPercent(SettingsStore& settings, int percent);

}  // namespace quorvi
