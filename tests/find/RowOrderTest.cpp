#include <gtest/gtest.h>

#include "find/RowOrder.h"

namespace quorvi {
namespace {

using Rows = std::vector<int>;

TEST(RowOrder, RowsOfOneKeyShareARank) {
    EXPECT_EQ(RanksOf(std::vector<std::string>{"b", "a", "b", ""}),
              (std::vector<RowRank>{1, 0, 1, kNoRank}));
}

TEST(RowOrder, RowsOfOneRankKeepTheirOrderInEitherDirection) {
    const std::vector<RowRank> ranks{1, 0, 1, 0};
    EXPECT_EQ(RowsInOrder(ranks, false), (Rows{1, 3, 0, 2}));
    EXPECT_EQ(RowsInOrder(ranks, true), (Rows{0, 2, 1, 3}));
}

TEST(RowOrder, RowsWithoutARankStandLastInEitherDirection) {
    const std::vector<RowRank> ranks{kNoRank, 1, kNoRank, 0};
    EXPECT_EQ(RowsInOrder(ranks, false), (Rows{3, 1, 0, 2}));
    EXPECT_EQ(RowsInOrder(ranks, true), (Rows{1, 3, 0, 2}));
}

TEST(RowOrder, NoRowsAreInOrder) {
    EXPECT_TRUE(RowsInOrder({}, true).empty());
    EXPECT_TRUE(RanksOf({}).empty());
}

}  // namespace
}  // namespace quorvi
