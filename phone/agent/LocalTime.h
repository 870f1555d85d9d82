// Times of the phone, whose clock is in the PC's time zone.
#pragma once

#include <cstdint>
#include <string_view>

namespace quorvi::phone {

// Milliseconds since 1970 of a local time as "2011-06-18 09:42:10".
[[nodiscard]] std::uint64_t LocalMilliseconds(std::string_view time);

// Milliseconds since 1970 at this moment.
[[nodiscard]] std::uint64_t MillisecondsNow();

}  // namespace quorvi::phone
