// The kinds of cells that the sample list does not have: plates, states, and icons of a theme.
#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QHelpEvent>
#include <QTextDocument>
#include <QToolTip>
#include <cstdlib>

#include "tests/support/QtTest.h"
#include "ui/kit/QtText.h"
#include "ui/list/RecordListCtrl.h"
#include "ui/look/Look.h"

namespace quorvi {
namespace {

using look::Color;
using look::Metric;

enum Column { columnPicture, columnPlate, columnState, columnThemed };
constexpr std::array<ListColumn, 4> kColumns{{
    {.caption = u8"缩略图", .width = 60, .kind = CellKind::picture, .holds = u8"缩略图"},
    {u8"图例", 60, CellKind::plate},
    {u8"状态", 200, CellKind::state},
    {u8"文件", 100, CellKind::iconText},
}};

constexpr int kNear = 90;  // of 765

struct Item {
    bool off = false;
};

class KindsList : public RecordListCtrl<Item> {
  public:
    KindsList() : RecordListCtrl(kColumns, Metric::rowTall) {}

  protected:
    [[nodiscard]] Cell CellOf(const Item& item, int column) const override {
        switch (column) {
            case columnPlate:
                return {.icon = QStringLiteral("alarms"), .off = item.off};
            case columnState:
                return {.text = ToQString(item.off ? u8"已禁用" : u8"已启用"),
                        .iconInk = Color::greenMark,
                        .off = item.off,
                        .note = item.off ? ToQString(u8"<b>自己停用的</b>") : QString()};
            case columnThemed: {
                QPixmap red(Metric::rowIcon, Metric::rowIcon);
                red.fill(Qt::red);
                return {.icon = QStringLiteral("file"),
                        .themeIcon = item.off ? QIcon() : QIcon(red)};
            }
            default:
                return {};
        }
    }
    [[nodiscard]] RowPicture PictureOf(const Item&) const override {
        return {.plate = u"file-web"};
    }
};

class CellKinds : public QtTest {
  protected:
    void SetUp() override {
        list_.resize(760, 300);
        list_.SetRecords({{.off = false}, {.off = true}, {.off = false}});
        ShowActive(list_);
    }
    // Without a row under the cursor, wherever that stands.
    [[nodiscard]] QImage Shot() {
        QEvent leave(QEvent::Leave);
        QCoreApplication::sendEvent(list_.viewport(), &leave);
        return list_.viewport()->grab().toImage();
    }
    // The ground of a plate, a pixel beside its icon.
    [[nodiscard]] QColor Ground(int row, int column, int side) {
        const QRect cell = list_.CellRect(row, column);
        return Shot().pixelColor(cell.center() + QPoint(0, 4 - side / 2));
    }
    // How many pixels of the cell have this colour, or nearly: a thin round line is smoothed.
    [[nodiscard]] int CountOf(int row, int column, Color color) {
        const QImage shot = Shot();
        const QRect cell = list_.CellRect(row, column);
        int count = 0;
        for (int y = cell.top(); y <= cell.bottom(); ++y) {
            for (int x = cell.left(); x <= cell.right(); ++x) {
                const QColor seen = shot.pixelColor(x, y);
                const QColor asked = look::color(color);
                const int apart = std::abs(seen.red() - asked.red()) +
                                  std::abs(seen.green() - asked.green()) +
                                  std::abs(seen.blue() - asked.blue());
                count += apart < kNear ? 1 : 0;
            }
        }
        return count;
    }
    KindsList list_;
};

TEST_F(CellKinds, APlateStandsInTheColourOfAHoveredRow) {
    EXPECT_EQ(Ground(0, columnPlate, Metric::rowPlate), look::color(Color::rowHover));
}

TEST_F(CellKinds, APlateThatIsOffIsGrey) {
    EXPECT_EQ(Ground(1, columnPlate, Metric::rowPlate), look::color(Color::fieldOff));
}

TEST_F(CellKinds, APlateOnASelectedRowIsWhite) {
    list_.SelectRow(0);
    EXPECT_EQ(Ground(0, columnPlate, Metric::rowPlate), look::color(Color::surface));
    EXPECT_EQ(Ground(2, columnPlate, Metric::rowPlate), look::color(Color::rowHover));
}

TEST_F(CellKinds, APlateTakesThePlaceOfAPictureThatIsMissing) {
    EXPECT_EQ(Ground(0, columnPicture, Metric::rowPicture), look::color(Color::rowHover));
}

TEST_F(CellKinds, AStateHasItsDotAndOneThatIsOffAnEmptyRing) {
    EXPECT_GT(CountOf(0, columnState, Color::greenMark), 20);
    EXPECT_EQ(CountOf(1, columnState, Color::greenMark), 0);
    EXPECT_GT(CountOf(1, columnState, Color::ink3), 0);
}

TEST_F(CellKinds, AnIconOfTheThemeStandsInThePlaceOfTheSuitesOwn) {
    EXPECT_EQ(CountOf(2, columnThemed, Color::redMark), Metric::rowIcon * Metric::rowIcon);
    EXPECT_EQ(CountOf(2, columnThemed, Color::plum6), 0);
    EXPECT_EQ(CountOf(1, columnThemed, Color::redMark), 0);
    EXPECT_GT(CountOf(1, columnThemed, Color::plum6), 0);
}

TEST_F(CellKinds, WhatAPictureHoldsIsReadOut) {
    EXPECT_EQ(list_.model()->index(0, columnPicture).data(Qt::AccessibleTextRole).toString(),
              ToQString(u8"没有缩略图"));
}

TEST_F(CellKinds, AStateIsReadOutByItsWordAndItsNote) {
    EXPECT_EQ(list_.model()->index(1, columnState).data(Qt::AccessibleTextRole).toString(),
              ToQString(u8"已禁用\n<b>自己停用的</b>"));
    EXPECT_EQ(list_.model()->index(0, columnState).data(Qt::AccessibleTextRole).toString(),
              ToQString(u8"已启用"));
}

TEST_F(CellKinds, ANoteIsSaidByTheToolTipAsItStands) {
    const auto ask = [&](int row) {
        const QPoint at = list_.CellRect(row, columnState).center();
        QHelpEvent help(QEvent::ToolTip, at, list_.viewport()->mapToGlobal(at));
        QCoreApplication::sendEvent(list_.viewport(), &help);
        return QToolTip::text();
    };
    EXPECT_EQ(ask(0), QString());
    EXPECT_EQ(ask(1), ToQString(u8"已禁用\n<b>自己停用的</b>"));
    EXPECT_FALSE(Qt::mightBeRichText(QToolTip::text()));
    QToolTip::hideText();
}

}  // namespace
}  // namespace quorvi
