// The events of a phone on which applications are started, by the numbers that command 871701
// sends. The one table of them: the page's branches, the command line and the simulated phone go by
// it.
#pragma once

#include <array>
#include <cstddef>
#include <string_view>

namespace quorvi {

// A number from here on is no event.
inline constexpr std::size_t kStartEvents = 145;

// What the event is called; `event` is below kStartEvents.
[[nodiscard]] std::u8string_view StartEventCaption(std::size_t event);

}  // namespace quorvi
