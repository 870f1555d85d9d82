// Ticks that Shift extends, and what the chosen rows are.
#include <gtest/gtest.h>

#include <QClipboard>
#include <QGuiApplication>
#include <QSignalSpy>
#include <QTest>

#include "tests/support/QtTest.h"
#include "tests/support/SampleList.h"

namespace quorvi {
namespace {

using Rows = std::vector<int>;

class TickSpan : public QtTest {
  protected:
    void SetUp() override {
        window_.resize(760, 640);
        list_ = new SampleListCtrl(&window_);
        list_->setGeometry(0, 0, 760, 640);
        list_->SetRecords(SampleRecords(10));
        ShowActive(window_);
        list_->setFocus();
    }
    void ClickTick(int row, Qt::KeyboardModifiers held = Qt::NoModifier) {
        QTest::mouseClick(list_->viewport(), Qt::LeftButton, held,
                          list_->CellRect(row, sampleTick).center());
    }
    void Key(Qt::Key key, Qt::KeyboardModifiers held = Qt::NoModifier) {
        QTest::keyClick(list_, key, held);
    }
    [[nodiscard]] Rows Ticked() const { return list_->TickedRows(); }

    QWidget window_;
    SampleListCtrl* list_ = nullptr;
};

TEST_F(TickSpan, AClickWithShiftTicksAllRowsFromTheOneThatWasTickedLast) {
    ClickTick(2);
    ClickTick(5, Qt::ShiftModifier);
    EXPECT_EQ(Ticked(), (Rows{2, 3, 4, 5}));
    EXPECT_EQ(list_->TickedCount(), 4);
    EXPECT_EQ(list_->CurrentRow(), 5);
}

TEST_F(TickSpan, ItGoesUpwardsToo) {
    ClickTick(7);
    ClickTick(6, Qt::ShiftModifier);
    EXPECT_EQ(Ticked(), (Rows{6, 7}));
}

TEST_F(TickSpan, ATickThatWasTakenAwayIsTakenFromAllOfThem) {
    list_->TickAll(true);
    ClickTick(3);
    ClickTick(8, Qt::ShiftModifier);
    EXPECT_EQ(Ticked(), (Rows{0, 1, 2, 9}));
}

TEST_F(TickSpan, AShorterOneGivesBackWhatALongerOneHasChanged) {
    list_->SetTicked(6, true);
    ClickTick(2);
    ClickTick(8, Qt::ShiftModifier);
    ClickTick(3, Qt::ShiftModifier);
    EXPECT_EQ(Ticked(), (Rows{2, 3, 6}));
    ClickTick(1, Qt::ShiftModifier);  // from the same row, to the other side
    EXPECT_EQ(Ticked(), (Rows{1, 2, 6}));
}

TEST_F(TickSpan, WithNothingToExtendAClickWithShiftFlipsTheOneTick) {
    ClickTick(4, Qt::ShiftModifier);
    EXPECT_EQ(Ticked(), (Rows{4}));
    ClickTick(6, Qt::ShiftModifier);
    EXPECT_EQ(Ticked(), (Rows{4, 5, 6}));
}

TEST_F(TickSpan, InAnotherOrderOfTheRowsItBeginsAnew) {
    ClickTick(2);
    list_->OrderRows(Rows{9, 8, 7, 6, 5, 4, 3, 2, 1, 0});
    ClickTick(5, Qt::ShiftModifier);
    EXPECT_EQ(Ticked(), (Rows{2, 5}));
}

TEST_F(TickSpan, ShiftAndSpaceExtendToTheRowUnderTheCursor) {
    list_->SelectRow(1);
    Key(Qt::Key_Space);
    Key(Qt::Key_Down);
    Key(Qt::Key_Down);
    EXPECT_EQ(Ticked(), (Rows{1}));
    Key(Qt::Key_Space, Qt::ShiftModifier);
    EXPECT_EQ(Ticked(), (Rows{1, 2, 3}));
}

TEST_F(TickSpan, ShiftAndArrowsTickOnTheirWayAndTakeBackOnTheWayBack) {
    list_->SelectRow(3);
    Key(Qt::Key_Down, Qt::ShiftModifier);
    EXPECT_EQ(Ticked(), (Rows{3, 4}));
    Key(Qt::Key_Down, Qt::ShiftModifier);
    EXPECT_EQ(Ticked(), (Rows{3, 4, 5}));
    EXPECT_EQ(list_->CurrentRow(), 5);
    Key(Qt::Key_Up, Qt::ShiftModifier);
    EXPECT_EQ(Ticked(), (Rows{3, 4}));
    Key(Qt::Key_End, Qt::ShiftModifier);
    EXPECT_EQ(Ticked(), (Rows{3, 4, 5, 6, 7, 8, 9}));
}

TEST_F(TickSpan, ShiftAndAnArrowBeginWhereTheCursorIs) {
    ClickTick(0);
    list_->SelectRow(6);
    Key(Qt::Key_Up, Qt::ShiftModifier);
    EXPECT_EQ(Ticked(), (Rows{0, 5, 6}));
}

TEST_F(TickSpan, ArrowsWithoutShiftTickNothing) {
    ClickTick(2);
    Key(Qt::Key_Down);
    Key(Qt::Key_Down);
    EXPECT_EQ(Ticked(), (Rows{2}));
}

TEST_F(TickSpan, HiddenRowsAreNotTouched) {
    list_->EnableFind();
    list_->ShowRows(Rows{1, 4, 7, 8});
    ClickTick(1);
    ClickTick(8, Qt::ShiftModifier);
    list_->ShowRows(std::nullopt);
    EXPECT_EQ(Ticked(), (Rows{1, 4, 7, 8}));
}

TEST_F(TickSpan, ARowThatIsHiddenByNowBeginsNothing) {
    ClickTick(0);
    list_->ShowRows(Rows{1, 4, 7});
    ClickTick(4, Qt::ShiftModifier);
    EXPECT_EQ(Ticked(), (Rows{0, 4}));
}

TEST_F(TickSpan, RowsThatAreFetchedAnewAndCtrlAEndIt) {
    ClickTick(2);
    list_->SetRecords(SampleRecords(10));
    ClickTick(5, Qt::ShiftModifier);
    EXPECT_EQ(Ticked(), (Rows{5}));
    QTest::keySequence(list_, QKeySequence::SelectAll);
    ClickTick(7, Qt::ShiftModifier);
    EXPECT_EQ(Ticked(), (Rows{0, 1, 2, 3, 4, 5, 6, 8, 9}));
}

TEST_F(TickSpan, EachTickThatChangesIsToldOnce) {
    list_->SetTicked(3, true);
    ClickTick(2);
    const QSignalSpy told(list_, &CSkinListCtrl::tickFlipped);
    ClickTick(5, Qt::ShiftModifier);
    ASSERT_EQ(told.count(), 2);
    EXPECT_EQ(told.at(0).front().toInt(), 4);
    EXPECT_EQ(told.at(1).front().toInt(), 5);
}

TEST_F(TickSpan, AListThatDoesNotShowItsRowsExtendsNothing) {
    ClickTick(2);
    list_->SetRedraw(false);
    ClickTick(5, Qt::ShiftModifier);
    EXPECT_EQ(Ticked(), (Rows{2, 5}));
}

TEST_F(TickSpan, TheChosenRowsAreTheTickedOnesOrElseTheSelectedOneIfItIsSeen) {
    EXPECT_EQ(list_->ChosenRows(), Rows{});
    list_->SelectRow(4);
    EXPECT_EQ(list_->ChosenRows(), (Rows{4}));
    list_->ShowRows(Rows{1, 2});
    EXPECT_EQ(list_->ChosenRows(), Rows{});
    list_->SetTicked(7, true);
    list_->SetTicked(1, true);
    EXPECT_EQ(list_->ChosenRows(), (Rows{1, 7}));
    list_->TickAll(false);
    list_->ShowRows(std::nullopt);
    list_->SetRedraw(false);
    EXPECT_EQ(list_->ChosenRows(), Rows{});
}

TEST_F(TickSpan, CtrlCCopiesTheTextsOfTheRowWithTabsBetweenThem) {
    list_->Edit(3, [](SampleRecord& record) { record.name = QStringLiteral("甲\t乙\n丙"); });
    list_->SelectRow(3);
    QGuiApplication::clipboard()->clear();
    QTest::keySequence(list_, QKeySequence::Copy);
    EXPECT_EQ(QGuiApplication::clipboard()->text(),
              QStringLiteral("甲 乙 丙\t13800000003\t工具\tN/A"));
}

TEST_F(TickSpan, ARowIsCalledByItsFirstLineOrElseByItsSecond) {
    list_->Edit(4, [](SampleRecord& record) { record.name.clear(); });
    EXPECT_EQ(list_->NameOf(4), QStringLiteral("13800000004"));
    EXPECT_EQ(list_->NameOf(5), QStringLiteral("联系人 5"));
}

TEST_F(TickSpan, ARowThatIsNotShownIsNotCopied) {
    QGuiApplication::clipboard()->setText(QStringLiteral("before"));
    list_->SetRedraw(false);
    list_->SelectRow(5);
    QTest::keySequence(list_, QKeySequence::Copy);
    EXPECT_EQ(QGuiApplication::clipboard()->text(), QStringLiteral("before"));
}

}  // namespace
}  // namespace quorvi
