// The head of a list, by mouse: it sorts, ticks, and its borders are dragged.
#include <gtest/gtest.h>

#include <QContextMenuEvent>
#include <QLineEdit>
#include <QSignalSpy>
#include <QTest>

#include "tests/support/QtTest.h"
#include "ui/kit/QtText.h"
#include "ui/kit/SkinMenu.h"
#include "ui/list/ListFind.h"
#include "ui/list/ListSort.h"
#include "ui/list/RecordListCtrl.h"
#include "ui/list/SkinHeader.h"
#include "ui/look/Look.h"

namespace quorvi {
namespace {

using look::Metric;
using look::Tick;
using Rows = std::vector<int>;

enum Key { keyName, keyTime, keyPlace };
constexpr std::array<SortKey, 1> kNameSorts{{{keyName, u8"名称", u8"名称 A → Z", u8"名称 Z → A"}}};
constexpr std::array<SortKey, 2> kTimeSorts{{
    {keyTime, u8"时间", u8"从早到晚", u8"从晚到早"},
    {keyPlace, u8"地点", u8"地点 A → Z", u8"地点 Z → A"},
}};

enum Column { columnName, columnKind, columnTime, columnTick };
constexpr std::array<ListColumn, 4> kColumns{{
    {.caption = u8"名称", .width = 160, .kind = CellKind::text, .name = true, .sorts = kNameSorts},
    {u8"种类", 80, CellKind::text},
    {.caption = u8"时间、地点", .width = 120, .kind = CellKind::text, .sorts = kTimeSorts},
    {u8"选择", 44, CellKind::check},
}};

class SortedList : public RecordListCtrl<QString> {
  public:
    explicit SortedList(QWidget* parent) : RecordListCtrl(kColumns, Metric::rowCompact, parent) {
        EnableFind();
        EnableSort();
    }

  protected:
    [[nodiscard]] Cell CellOf(const QString& record, int column) const override {
        return {.text = column == columnName ? record : QString()};
    }
};

class Head : public QtTest {
  protected:
    void SetUp() override {
        window_.resize(600, 300);
        list_ = new SortedList(&window_);
        list_->setGeometry(0, 0, 600, 300);
        ShowActive(window_);
        Fill();
    }
    void Fill() {
        list_->SetRecords(
            {QStringLiteral("c"), QStringLiteral("a"), QStringLiteral("d"), QStringLiteral("b")});
        list_->Sorting()->SetRanks({{2, 0, 3, 1}, {0, 1, 0, kNoRank}, {1, 1, 0, 0}});
    }
    CSkinHeader& Header() { return *static_cast<CSkinHeader*>(list_->horizontalHeader()); }
    void Click(const QPoint& at) { QTest::mouseClick(Header().viewport(), Qt::LeftButton, {}, at); }
    void ClickSort(Key key) { Click(Header().SortRect(key).center()); }
    void ClickTicks() { Click(Header().HeadRect(columnTick).center()); }
    void Drag(int border, int by) {
        const QPoint from = Header().GripRect(border).center();
        const QPoint to = from + QPoint(by, 0);
        QTest::mousePress(Header().viewport(), Qt::LeftButton, {}, from);
        QTest::mouseMove(Header().viewport(), from + QPoint(by / 2, 0));
        QTest::mouseMove(Header().viewport(), to);
        QTest::mouseRelease(Header().viewport(), Qt::LeftButton, {}, to);
    }
    // The rows from top to bottom.
    [[nodiscard]] Rows Shown() const {
        Rows rows;
        for (int y = 1; y < list_->viewport()->height(); y += Metric::rowCompact) {
            for (int row = 0; row < list_->RowCount(); ++row) {
                if (list_->CellRect(row, columnName).contains(1, y)) {
                    rows.push_back(row);
                }
            }
        }
        return rows;
    }
    [[nodiscard]] QString ReadOut(int column) const {
        return list_->model()
            ->headerData(column, Qt::Horizontal, Qt::AccessibleTextRole)
            .toString();
    }
    [[nodiscard]] QImage Shot() { return Header().viewport()->grab().toImage(); }

    QWidget window_;
    SortedList* list_ = nullptr;
};

TEST_F(Head, AFirstClickSortsUpwardsASecondDownwardsAThirdNotAtAll) {
    ClickSort(keyName);
    EXPECT_EQ(Shown(), (Rows{1, 3, 0, 2}));
    ClickSort(keyName);
    EXPECT_EQ(Shown(), (Rows{2, 0, 3, 1}));
    ClickSort(keyName);
    EXPECT_EQ(Shown(), (Rows{0, 1, 2, 3}));
}

TEST_F(Head, EachPartOfACaptionSortsByItsOwn) {
    ClickSort(keyTime);
    EXPECT_EQ(Shown(), (Rows{0, 2, 1, 3}));
    ClickSort(keyPlace);
    EXPECT_EQ(Shown(), (Rows{2, 3, 0, 1}));
    EXPECT_FALSE(list_->Sorting()->IsDescending());
}

TEST_F(Head, WhereNothingSortsAClickDoesNothing) {
    Click(Header().HeadRect(columnKind).center());
    EXPECT_EQ(list_->Sorting()->Key(), -1);
    EXPECT_EQ(Shown(), (Rows{0, 1, 2, 3}));
}

TEST_F(Head, AnArrowTellsTheOrder) {
    const QImage none = Shot();
    list_->Sorting()->Sort(keyName, false);
    const QImage up = Shot();
    list_->Sorting()->Sort(keyName, true);
    const QImage down = Shot();
    EXPECT_NE(none, up);
    EXPECT_NE(up, down);
}

TEST_F(Head, TheOrderIsReadOutWithTheCaption) {
    EXPECT_EQ(ReadOut(columnTime), ToQString(u8"时间、地点"));
    ClickSort(keyPlace);
    EXPECT_EQ(ReadOut(columnTime), ToQString(u8"时间、地点，地点 A → Z"));
    ClickSort(keyPlace);
    EXPECT_EQ(ReadOut(columnTime), ToQString(u8"时间、地点，地点 Z → A"));
    EXPECT_EQ(ReadOut(columnName), ToQString(u8"名称"));
}

TEST_F(Head, TheOrderStaysWhenOtherRowsCome) {
    ClickSort(keyName);
    list_->Clear();
    Fill();
    EXPECT_EQ(Shown(), (Rows{1, 3, 0, 2}));
}

TEST_F(Head, ARowBehindTheRanksStandsLast) {
    ClickSort(keyName);
    list_->SetRecords({QStringLiteral("b"), QStringLiteral("a"), {}});
    list_->Sorting()->SetRanks({{1, 0}, {}, {}});
    EXPECT_EQ(Shown(), (Rows{1, 0, 2}));
}

TEST_F(Head, TicksAndTheSelectionStayWithTheirRows) {
    list_->SetTicked(2, true);
    list_->SelectRow(0);
    const QSignalSpy told(list_, &CSkinListCtrl::rowSelected);
    ClickSort(keyName);
    EXPECT_EQ(list_->TickedRows(), Rows{2});
    EXPECT_EQ(list_->CurrentRow(), 0);
    EXPECT_EQ(list_->selectionModel()->selectedRows().at(0).row(), 2);
    EXPECT_EQ(told.count(), 0);
}

TEST_F(Head, KeysAndClicksMeetTheRowThatIsSeen) {
    ClickSort(keyName);
    QTest::mouseClick(list_->viewport(), Qt::LeftButton, {}, {5, 5});
    EXPECT_EQ(list_->CurrentRow(), 1);
    list_->setFocus();
    QTest::keyClick(list_, Qt::Key_Down);
    EXPECT_EQ(list_->CurrentRow(), 3);
    QTest::keyClick(list_, Qt::Key_Space);
    EXPECT_EQ(list_->TickedRows(), Rows{3});
}

TEST_F(Head, WhatIsFoundStandsInTheOrder) {
    ClickSort(keyName);
    list_->ShowRows(Rows{0, 1, 2});
    EXPECT_EQ(Shown(), (Rows{1, 0, 2}));
    ClickSort(keyName);
    EXPECT_EQ(Shown(), (Rows{2, 0, 1}));
    list_->ShowRows(std::nullopt);
    EXPECT_EQ(Shown(), (Rows{2, 0, 3, 1}));
}

TEST_F(Head, ARowThatGoesLeavesTheOthersInTheirOrder) {
    ClickSort(keyName);
    list_->Remove(0);
    EXPECT_EQ(Shown(), (Rows{0, 2, 1}));
    list_->Append(QStringLiteral("e"));
    EXPECT_EQ(Shown(), (Rows{0, 2, 1, 3}));
}

TEST_F(Head, ItsMenuOffersTheOrders) {
    const QPoint at = Header().HeadRect(columnKind).center();
    QContextMenuEvent event(QContextMenuEvent::Mouse, at, Header().viewport()->mapToGlobal(at));
    QApplication::sendEvent(Header().viewport(), &event);
    auto* menu = Header().findChild<CSkinMenu*>();
    ASSERT_NE(menu, nullptr);
    QAction* down = menu->actions().at(1);
    EXPECT_EQ(down->text(), ToQString(u8"名称 Z → A"));
    menu->setActiveAction(down);
    QTest::keyClick(menu, Qt::Key_Return);
    EXPECT_EQ(Shown(), (Rows{2, 0, 3, 1}));
}

TEST_F(Head, TheTickHeadTicksAllThatIsShownAndThenNothingOfIt) {
    list_->SetTicked(3, true);
    list_->ShowRows(Rows{0, 1});
    ClickTicks();
    EXPECT_EQ(list_->TickedRows(), (Rows{0, 1, 3}));
    ClickTicks();
    EXPECT_EQ(list_->TickedRows(), Rows{3});
}

TEST_F(Head, TheTickHeadShowsAllSomeOrNone) {
    EXPECT_EQ(list_->HeadTick(), Tick::off);
    EXPECT_EQ(ReadOut(columnTick), ToQString(u8"选择，未勾选"));
    const QImage none = Shot();
    list_->SetTicked(1, true);
    EXPECT_EQ(list_->HeadTick(), Tick::mixed);
    EXPECT_EQ(ReadOut(columnTick), ToQString(u8"选择，部分已勾选"));
    const QImage some = Shot();
    list_->TickAll(true);
    EXPECT_EQ(list_->HeadTick(), Tick::on);
    EXPECT_EQ(ReadOut(columnTick), ToQString(u8"选择，全部已勾选"));
    EXPECT_NE(none, some);
    EXPECT_NE(some, Shot());
}

TEST_F(Head, WhileTheListIsNotShownItsTickHeadDoesNothing) {
    list_->SetRedraw(false);
    ClickTicks();
    EXPECT_EQ(list_->TickedCount(), 0);
}

TEST_F(Head, ABorderIsDraggedAndADoubleClickGivesTheToldWidthBack) {
    const QSignalSpy dragged(list_, &CSkinListCtrl::columnsDragged);
    const int names = list_->columnWidth(columnName);
    Drag(columnKind, -40);
    EXPECT_EQ(list_->columnWidth(columnTime), 160);
    EXPECT_EQ(list_->columnWidth(columnKind), 80);
    EXPECT_EQ(list_->columnWidth(columnName), names - 40);
    EXPECT_EQ(dragged.count(), 1);
    QTest::mouseDClick(Header().viewport(), Qt::LeftButton, {},
                       Header().GripRect(columnKind).center());
    EXPECT_EQ(list_->columnWidth(columnTime), 120);
    EXPECT_EQ(dragged.count(), 2);
}

TEST_F(Head, ADragSortsAndTicksNothing) {
    Drag(columnName, 30);
    EXPECT_EQ(list_->Sorting()->Key(), -1);
    EXPECT_TRUE(Header().GripRect(columnTime).isEmpty());  // no border beside the ticks
    EXPECT_TRUE(Header().GripRect(columnTick).isEmpty());  // nor at the end
}

TEST_F(Head, OverABorderTheCursorTellsThatItCanBeDragged) {
    QTest::mouseMove(Header().viewport(), Header().HeadRect(columnTime).center());
    QTest::mouseMove(Header().viewport(), Header().GripRect(columnKind).center());
    EXPECT_EQ(Header().viewport()->cursor().shape(), Qt::SplitHCursor);
    QTest::mouseMove(Header().viewport(), Header().HeadRect(columnKind).center());
    EXPECT_EQ(Header().viewport()->cursor().shape(), Qt::ArrowCursor);
}

TEST_F(Head, WhatWasDraggedStaysInAWiderList) {
    Drag(columnKind, -40);
    const int names = list_->columnWidth(columnName);
    list_->resize(800, 300);
    EXPECT_EQ(list_->columnWidth(columnTime), 160);
    EXPECT_EQ(list_->columnWidth(columnName), names + 200);
}

}  // namespace
}  // namespace quorvi
