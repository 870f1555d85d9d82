#include "find/RowOrder.h"

#include <algorithm>
#include <numeric>

namespace quorvi {
namespace {

std::vector<int> Rows(std::size_t count) {
    std::vector<int> rows(count);
    std::iota(rows.begin(), rows.end(), 0);
    return rows;
}

}  // namespace

std::vector<RowRank> RanksOf(std::span<const std::string> keys) {
    const auto key = [keys](int row) -> const std::string& {
        return keys[static_cast<std::size_t>(row)];
    };
    std::vector<int> rows = Rows(keys.size());
    std::ranges::sort(rows, [&](int a, int b) { return key(a) < key(b); });
    std::vector<RowRank> ranks(keys.size(), kNoRank);
    RowRank rank = 0;
    const std::string* before = nullptr;
    for (const int row : rows) {
        if (key(row).empty()) {
            continue;
        }
        if (before != nullptr && *before != key(row)) {
            ++rank;
        }
        before = &key(row);
        ranks[static_cast<std::size_t>(row)] = rank;
    }
    return ranks;
}

std::vector<int> RowsInOrder(std::span<const RowRank> ranks, bool descending) {
    const auto rank = [ranks](int row) { return ranks[static_cast<std::size_t>(row)]; };
    std::vector<int> rows = Rows(ranks.size());
    std::ranges::stable_sort(rows, [&](int a, int b) {
        if (!descending || rank(a) == kNoRank || rank(b) == kNoRank) {
            return rank(a) < rank(b);
        }
        return rank(a) > rank(b);
    });
    return rows;
}

}  // namespace quorvi
