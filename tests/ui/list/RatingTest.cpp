// The rating of a row: five stars, and what stands in for a value that is none.
#include <gtest/gtest.h>

#include "tests/support/QtTest.h"
#include "ui/list/RecordListCtrl.h"
#include "ui/look/Look.h"

namespace quorvi {
namespace {

using look::Metric;

constexpr std::array<ListColumn, 1> kColumns{{{u8"评级", 130, CellKind::rating}}};

class RatingList : public RecordListCtrl<int> {
  public:
    RatingList() : RecordListCtrl(kColumns, Metric::rowTall) {}

  protected:
    [[nodiscard]] Cell CellOf(const int& rating, int) const override { return {.value = rating}; }
};

class Rating : public QtTest {
  protected:
    void SetUp() override {
        list_.resize(400, 700);
        list_.show();
    }
    // The cell of the first row, of a list with this rating.
    QImage CellWith(int rating) {
        list_.SetRecords({rating});
        return list_.viewport()->grab().toImage().copy(list_.CellRect(0, 0));
    }

    RatingList list_;
};

// The strip holds whole and half ratings from the top, 0, 1, 1½ and so on, 24 pixels each.
TEST_F(Rating, EachOneIsItsPartOfTheStripAtEachScale) {
    constexpr std::array kTops{0, 24, 72, 120, 168, 216};
    for (const int scale : {1, 2}) {
        const QImage strip =
            look::picture(QStringLiteral("rating-strip"), {Metric::ratingWidth, 240}, scale)
                .toImage();
        ASSERT_EQ(strip.width(), Metric::ratingWidth * scale);
        for (std::size_t rating = 0; rating < kTops.size(); ++rating) {
            const QImage stars = look::picture(QStringLiteral("rating-%1").arg(rating),
                                               {Metric::ratingWidth, Metric::ratingHeight}, scale)
                                     .toImage();
            EXPECT_EQ(stars, strip.copy(0, kTops[rating] * scale, Metric::ratingWidth * scale,
                                        Metric::ratingHeight * scale))
                << rating << " at " << scale;
        }
    }
}

TEST_F(Rating, EachOneLooksOfItsOwn) {
    for (int rating = 0; rating < 5; ++rating) {
        EXPECT_NE(CellWith(rating), CellWith(rating + 1)) << rating;
    }
}

TEST_F(Rating, AnyOtherValueShowsNoStar) {
    const QImage none = CellWith(0);
    for (const int rating : {-1, 6, 2147483647, -2147483647}) {
        EXPECT_EQ(CellWith(rating), none) << rating;
    }
}

}  // namespace
}  // namespace quorvi
