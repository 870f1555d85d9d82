// Numbers out of replies, and how they are shown.
#pragma once

#include <cstdint>
#include <string>

namespace quorvi {

// The whole seconds of a time in milliseconds, as replies carry it; the sign of the type counts.
template <typename Integer>
[[nodiscard]] constexpr Integer WholeSeconds(Integer milliseconds) {
    return milliseconds / 1000;
}

// "%02d:%02d:%02d\n" of hours (modulo 24: the days are dropped), minutes and seconds. The line feed
// is kept on purpose: the call log shows it (FormatDuration.DaysAreDroppedAndALineFeedEndsTheText).
[[nodiscard]] std::string FormatDuration(std::uint32_t seconds);

// A size as the desktop shows it on a Chinese system: three significant digits, cut and not
// rounded: "532 字节", "1.30 KB", "22.9 KB", "2.28 MB", "2.23 GB". ANSI. The argument is cut to its
// lower 32 bits first, so that exactly 4 GiB shows as "0 字节". Kept on purpose: the pages have
// always shown it so (FormatByteSize.ExactlyFourGigabytesShowAsZero).
[[nodiscard]] std::string FormatByteSize(std::uint64_t bytes);

// Local time of a count of seconds since 1970 as "%4d-%02d-%02d %02d:%02d:%02d". A time that no
// calendar holds shows as the start of 1970.
[[nodiscard]] std::string FormatUnixTime(std::int64_t seconds);

}  // namespace quorvi
