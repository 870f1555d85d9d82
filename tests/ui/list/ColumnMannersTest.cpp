// What a column can be told beside its kind: a link that leads nowhere, a tick at the left, an icon
// of another size.
#include <gtest/gtest.h>

#include <QTest>

#include "tests/support/QtTest.h"
#include "ui/kit/QtText.h"
#include "ui/list/RecordListCtrl.h"
#include "ui/look/Look.h"

namespace quorvi {
namespace {

using look::Color;
using look::Metric;

enum Column { columnName, columnDead, columnLarge, columnSmall, columnTick };
constexpr std::array<ListColumn, 5> kColumns{{
    {.caption = u8"名称", .width = 100, .kind = CellKind::text, .name = true},
    {.caption = u8"详细", .width = 60, .kind = CellKind::link, .dead = true},
    {u8"大", 60, CellKind::icon},
    {u8"小", 60, CellKind::icon},
    {u8"选择", 60, CellKind::check, CellAlign::left},
}};

class MannersList : public RecordListCtrl<int> {
  public:
    MannersList() : RecordListCtrl(kColumns, Metric::rowTall) {}

  protected:
    [[nodiscard]] Cell CellOf(const int&, int column) const override {
        switch (column) {
            case columnDead:
                return {.text = ToQString(u8"详细")};
            case columnLarge:
                return {.icon = QStringLiteral("success"), .iconSide = Metric::iconTab};
            case columnSmall:
                return {.icon = QStringLiteral("success")};
            default:
                return {};
        }
    }
};

class ColumnManners : public QtTest {
  protected:
    void SetUp() override {
        list_.resize(400, 200);
        list_.SetRecords({1});
        list_.show();
    }
    // The columns of pixels in a cell that hold anything but the row's ground.
    [[nodiscard]] std::pair<int, int> InkOf(int column) {
        const QImage shot = list_.viewport()->grab().toImage();
        const QRect cell = list_.CellRect(0, column);
        std::pair<int, int> ink{-1, -1};
        for (int x = cell.left(); x <= cell.right(); ++x) {
            for (int y = cell.top(); y <= cell.bottom(); ++y) {
                if (shot.pixelColor(x, y).rgb() != look::color(Color::rowLight).rgb()) {
                    ink = {ink.first < 0 ? x - cell.left() : ink.first, x - cell.left()};
                }
            }
        }
        return ink;
    }

    MannersList list_;
};

TEST_F(ColumnManners, ADeadLinkHasTheHandAndIsReadOutAsEmpty) {
    QTest::mouseMove(list_.viewport(), list_.LinkRect(0, columnDead).center());
    EXPECT_EQ(list_.viewport()->cursor().shape(), Qt::PointingHandCursor);
    const QModelIndex cell = list_.model()->index(0, columnDead);
    EXPECT_EQ(cell.data(Qt::DisplayRole).toString(), ToQString(u8"详细"));
    EXPECT_EQ(cell.data(Qt::AccessibleTextRole).toString(), ToQString(u8"空"));
}

TEST_F(ColumnManners, ATickOfALeftColumnStandsUnderItsCaption) {
    const auto [first, last] = InkOf(columnTick);
    EXPECT_EQ(first, Metric::cellPadding);
    EXPECT_EQ(last, Metric::cellPadding + Metric::tickInRow - 1);
}

TEST_F(ColumnManners, AnIconAloneHasTheSizeThatItsCellSays) {
    const auto [large, largeEnd] = InkOf(columnLarge);
    const auto [small, smallEnd] = InkOf(columnSmall);
    ASSERT_GE(small, 0);
    EXPECT_GT(largeEnd - large, smallEnd - small);
}

}  // namespace
}  // namespace quorvi
