// The form of phone.db: an array of region ids, one for each prefix of seven digits.
#pragma once

#include <cstddef>

namespace quorvi {

// No header and no trailer: entry i, two bytes, little-endian, belongs to prefix kFirstPrefix + i
// and holds a region id, 0 for a prefix without a record.
inline constexpr int kFirstPrefix = 1'300'000;
inline constexpr int kLastPrefix = 1'899'999;
inline constexpr std::size_t kPhoneDbEntry = 2;  // bytes
inline constexpr std::size_t kPhoneDbSize = (kLastPrefix - kFirstPrefix + 1) * kPhoneDbEntry;
// The highest region id that means something.
inline constexpr int kLastRegionId = 413;

inline constexpr const char* kPhoneDbName = "phone.db";

}  // namespace quorvi
