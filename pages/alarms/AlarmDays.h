// The days on which an alarm repeats: a mask, and its words.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

namespace quorvi {

struct AlarmDay {
    std::u8string_view word;  // as lists show the day
    std::u8string_view tick;  // the caption of its tick box in the editor
};

// Day i of the table is bit i of a mask: Monday is bit 0, Sunday bit 6.
inline constexpr std::array<AlarmDay, 7> kAlarmDays{{
    {u8"一", u8"周一"},
    {u8"二", u8"周二"},
    {u8"三", u8"周三"},
    {u8"四", u8"周四"},
    {u8"五", u8"周五"},
    {u8"六", u8"周六"},
    {u8"日", u8"周日"},
}};

inline constexpr std::uint32_t kNoAlarmDay = 0;
inline constexpr std::uint32_t kEveryAlarmDay = 0x7F;

// The days in words, ANSI: "无重复", "每天", or the word of each day with a blank behind it, the
// last one included: "一 日 ". The blank is kept on purpose: the page has always shown it so (test
// AlarmDays.EachDayHasItsWordWithABlankBehindIt). Bits above Sunday's have no word.
[[nodiscard]] std::string AlarmRepeatText(std::uint32_t days);

// Whether it repeats at all, as the list's column says it: "有重复" or "仅一次". ANSI.
[[nodiscard]] std::string AlarmRepetitionText(std::uint32_t days);

}  // namespace quorvi
