#include "agent/PhoneSettings.h"

#include <algorithm>

namespace quorvi {
namespace {

constexpr SettingEntry kToggle[] = {{u8"关", 0}, {u8"开", 1}};

// Milliseconds.
constexpr SettingEntry kBacklightTimes[] = {
    {u8"15 秒", 15'000},   {u8"30 秒", 30'000},    {u8"1 分钟", 60'000},
    {u8"2 分钟", 120'000}, {u8"10 分钟", 600'000}, {u8"30 分钟", 1'800'000},
};

// Steps. The blanks at the ends of some texts are kept on purpose: the lists have always had them
// (PhoneSettingTable.HasTheTextsOfTheLists).
constexpr SettingEntry kRingVolumes[] = {
    {u8"0 静音", 0}, {u8"1 最小", 1}, {u8"2 ", 2}, {u8"3 ", 3},
    {u8"4 中", 4},   {u8"5 ", 5},     {u8"6 ", 6}, {u8"7 最大", 7},
};
constexpr SettingEntry kMusicVolumes[] = {
    {u8"0 静音", 0}, {u8"1 最小", 1}, {u8"2", 2},   {u8"3", 3},        {u8"4", 4},    {u8"5 ", 5},
    {u8"6", 6},      {u8"7 中", 7},   {u8"8 ", 8},  {u8"9 ", 9},       {u8"10 ", 10}, {u8"11", 11},
    {u8"12", 12},    {u8"13", 13},    {u8"14", 14}, {u8"15 最大", 15},
};

constexpr SettingEntry kDateFormats[] = {
    {u8"XXXX年XX月XX日", 0},
    {u8"XX月XX日XXXX年", 1},
    {u8"XX日XX月XXXX年", 2},
};

using enum PhoneSetting;

constexpr std::array<PhoneSettingRow, kPhoneSettings> kTable{{
    {wifi, 0, "wifi", u8"WiFi", kToggle, true},
    {bluetooth, 1, "bluetooth", u8"蓝牙", kToggle, true},
    {airplane, 2, "airplane", u8"飞行模式", kToggle, true},
    {gps, 3, "gps", u8"GPS", kToggle, true},
    {gravity, 4, "gravity", u8"重力", kToggle, true},
    {vibrate, 5, "vibrate", u8"来电振动", kToggle, true},
    {backlight, 6, "backlight", u8"背光时间", kBacklightTimes, false},
    {ringVolume, 7, "ring_volume", u8"来电铃声音量", kRingVolumes, false},
    {musicVolume, 8, "music_volume", u8"音乐播放音量", kMusicVolumes, false},
    {time24, 10, "time_24", u8"使用24小时时间格式", kToggle, true},
    {dateFormat, 9, "date_format", u8"日期格式", kDateFormats, false},
}};

constexpr bool IsInOrder() {
    for (std::size_t i = 0; i < kTable.size(); ++i) {
        if (static_cast<std::size_t>(kTable[i].key) != i) {
            return false;
        }
    }
    return true;
}
static_assert(IsInOrder(), "the table is indexed by the key");

}  // namespace

const std::array<PhoneSettingRow, kPhoneSettings>& PhoneSettingTable() {
    return kTable;
}

const PhoneSettingRow& RowOf(PhoneSetting setting) {
    return kTable[static_cast<std::size_t>(setting)];
}

const PhoneSettingRow* FindPhoneSetting(std::string_view name) {
    const auto found = std::find_if(kTable.begin(), kTable.end(),
                                    [&](const PhoneSettingRow& row) { return row.name == name; });
    return found == kTable.end() ? nullptr : &*found;
}

bool CanBeWritten(const PhoneSettingRow& setting, std::uint32_t value) {
    return std::any_of(setting.entries.begin(), setting.entries.end(),
                       [&](const SettingEntry& entry) { return entry.value == value; });
}

}  // namespace quorvi
