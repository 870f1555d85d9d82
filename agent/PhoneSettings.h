// The settings of a phone that commands 871501 and 871502 read and write: their numbers, their
// values, and what each is called. The one table of them: the page's controls, the command line and
// the simulated phone go by it.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

namespace quorvi {

// The key by which command 871502 names a setting, u32.
enum class PhoneSetting : std::uint32_t {
    wifi = 0,
    bluetooth = 1,
    airplane = 2,
    gps = 3,
    gravity = 4,
    vibrate = 5,
    backlight = 6,
    ringVolume = 7,
    musicVolume = 8,
    time24 = 9,
    dateFormat = 10,
};

// One value that a user can choose: how it is called, and what goes over the wire for it.
struct SettingEntry {
    std::u8string_view text;
    std::uint32_t value;
};

struct PhoneSettingRow {
    PhoneSetting key;
    // Which of the fields of command 871501's reply holds it, counted from 0. Keys 9 and 10 stand
    // the other way round there: kept on purpose, as agents send them
    // (PhoneSettingsReading.TheDateFormatStandsInFrontOfTheTimeFormat).
    std::size_t place;
    std::string_view name;       // on the command line, and in logs
    std::u8string_view caption;  // on the page
    // All values that may be written, in the order of the page's list. Of a toggle: off, on.
    std::span<const SettingEntry> entries;
    bool isToggle;
};

inline constexpr std::size_t kPhoneSettings = 11;

// In the order of their keys: row n is the setting with key n.
[[nodiscard]] const std::array<PhoneSettingRow, kPhoneSettings>& PhoneSettingTable();

[[nodiscard]] const PhoneSettingRow& RowOf(PhoneSetting setting);

// By the name on the command line; nullptr for a name that is none.
[[nodiscard]] const PhoneSettingRow* FindPhoneSetting(std::string_view name);

// Whether this is one of the values that a user can choose.
[[nodiscard]] bool CanBeWritten(const PhoneSettingRow& setting, std::uint32_t value);

}  // namespace quorvi
