#include "base/LookChoice.h"

#include <algorithm>

#include "base/Text.h"

namespace quorvi {
namespace {

constexpr std::string_view kLook = "look";
constexpr std::string_view kTextPercent = "text_percent";

// By LookChoice.
constexpr std::array<std::string_view, 4> kNames{"system", "light", "dark", "contrast"};

}  // namespace

std::optional<LookChoice> LookOfName(std::string_view name) {
    for (std::size_t i = 0; i < kNames.size(); ++i) {
        if (EqualsNoCase(name, kNames[i])) {
            return static_cast<LookChoice>(i);
        }
    }
    return std::nullopt;
}

LookChoice ChosenLook(const SettingsStore& settings) {
    return LookOfName(settings.ReadText(kSettingsKey, kLook).value_or(""))
        .value_or(LookChoice::system);
}

int ChosenTextPercent(const SettingsStore& settings) {
    const auto percent = settings.ReadNumber(kSettingsKey, kTextPercent).value_or(0);
    const bool known = std::any_of(kTextPercents.begin(), kTextPercents.end(), [percent](int each) {
        return static_cast<std::uint32_t>(each) == percent;
    });
    return known ? static_cast<int>(percent) : kTextPercents.front();
}

void ChooseLook(SettingsStore& settings, LookChoice look) {
    settings.WriteText(kSettingsKey, kLook, kNames[static_cast<std::size_t>(look)]);
}

void ChooseTextPercent(SettingsStore& settings, int percent) {
    settings.WriteNumber(kSettingsKey, kTextPercent, static_cast<std::uint32_t>(percent));
}

}  // namespace quorvi
