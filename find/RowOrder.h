// The order of a list's rows by a column of theirs.
#pragma once

#include <cstdint>
#include <limits>
#include <span>
#include <string>
#include <vector>

namespace quorvi {

// What a row is ordered by: less comes first. Rows of one rank keep their order.
using RowRank = std::uint32_t;
// Of a row that has nothing to be ordered by: it stands behind all others, in either direction.
inline constexpr RowRank kNoRank = std::numeric_limits<RowRank>::max();

// The rank of each row by its key; kNoRank for an empty one. Any thread.
[[nodiscard]] std::vector<RowRank> RanksOf(std::span<const std::string> keys);

// The rows in order of their ranks, those of one rank in the order in which they came. Any thread.
[[nodiscard]] std::vector<int> RowsInOrder(std::span<const RowRank> ranks, bool descending);

}  // namespace quorvi
