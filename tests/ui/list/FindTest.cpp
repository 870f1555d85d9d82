// Finding in a list: the bar over it, and the rows that it leaves.
#include <gtest/gtest.h>

#include <QClipboard>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTest>

#include "tests/support/QtTest.h"
#include "tests/support/SampleList.h"
#include "tests/support/WaitFor.h"
#include "ui/kit/QtText.h"
#include "ui/list/ListFind.h"
#include "ui/look/Look.h"

namespace quorvi {
namespace {

SampleRecord Named(std::u8string_view name, const char* number) {
    SampleRecord record;
    record.name = ToQString(name);
    record.number = QString::fromLatin1(number);
    return record;
}

class Find : public QtTest {
  protected:
    void SetUp() override {
        window_.resize(760, 462);
        list_ = new SampleListCtrl(&window_);
        list_->setGeometry(0, 0, 760, 462);
        list_->EnableFind();
        list_->SetRecords({
            Named(u8"林远舟", "138-6123-4567"),
            Named(u8"Anna", "10086"),
            Named(u8"李雨泽", "13600001357"),
            Named(u8"", "95588"),
            Named(u8"表妹罗忆中", "13700008642"),
        });
        ShowActive(window_);
        list_->setFocus();
    }
    QLineEdit& Field() { return *window_.findChild<QLineEdit*>(QStringLiteral("find")); }
    QString Count() { return window_.findChild<QLabel*>(QStringLiteral("findCount"))->text(); }
    bool IsOpen() { return Field().isVisible(); }
    void Type(std::u8string_view text) {
        QTest::keySequence(QGuiApplication::focusWindow(), QKeySequence::Find);
        Field().setText(ToQString(text));
    }
    std::vector<int> Shown() {
        std::vector<int> rows;
        for (int row = 0; row < list_->RowCount(); ++row) {
            if (list_->IsShown(row)) {
                rows.push_back(row);
            }
        }
        return rows;
    }
    // The names as the view has them, from its top.
    QStringList Names() {
        QStringList names;
        for (int i = 0; i < list_->model()->rowCount(); ++i) {
            names.append(
                list_->model()->index(i, sampleName).data().toString().section(u'\n', 0, 0));
        }
        return names;
    }

    QWidget window_;
    SampleListCtrl* list_ = nullptr;
};

TEST_F(Find, CtrlFOpensTheBarAndEscapeClosesIt) {
    EXPECT_FALSE(IsOpen());
    QTest::keySequence(list_, QKeySequence::Find);
    EXPECT_TRUE(IsOpen());
    EXPECT_TRUE(Field().hasFocus());
    QTest::keyClick(&Field(), Qt::Key_Escape);
    EXPECT_FALSE(IsOpen());
    EXPECT_TRUE(list_->hasFocus());
}

TEST_F(Find, AListThatHasItNotEnabledDoesNotOpenOne) {
    SampleListCtrl plain(&window_);
    EXPECT_EQ(plain.Find(), nullptr);
    EXPECT_EQ(plain.findChild<QLineEdit*>(QStringLiteral("find")), nullptr);
}

TEST_F(Find, TheBarStandsOverTheHeaderWithinTheListsFrame) {
    const int top = list_->CellRect(0, sampleName).top();
    const int viewportTop = list_->viewport()->mapTo(&window_, QPoint()).y();
    QTest::keySequence(list_, QKeySequence::Find);
    const auto* bar = window_.findChild<QWidget*>(QStringLiteral("findBar"));
    EXPECT_EQ(bar->height(), look::Metric::findBar);
    EXPECT_EQ(bar->mapTo(list_, QPoint()).y(), list_->frameWidth());
    EXPECT_EQ(bar->width(), list_->horizontalHeader()->width());
    EXPECT_EQ(list_->viewport()->mapTo(&window_, QPoint()).y(),
              viewportTop + look::Metric::findBar);
    EXPECT_EQ(list_->CellRect(0, sampleName).top(), top);
    EXPECT_EQ(list_->geometry(), QRect(0, 0, 760, 462));
    QTest::keyClick(&Field(), Qt::Key_Escape);
    EXPECT_EQ(list_->viewport()->mapTo(&window_, QPoint()).y(), viewportTop);
}

TEST_F(Find, RowsNarrowWhileOneTypes) {
    QTest::keySequence(list_, QKeySequence::Find);
    QTest::keyClicks(&Field(), QStringLiteral("l"));
    EXPECT_EQ(Shown(), (std::vector<int>{0, 2, 4}));
    QTest::keyClicks(&Field(), QStringLiteral("iny"));
    EXPECT_EQ(Shown(), (std::vector<int>{0}));
    QTest::keyClick(&Field(), Qt::Key_Backspace);
    QTest::keyClick(&Field(), Qt::Key_Backspace);
    QTest::keyClick(&Field(), Qt::Key_Backspace);
    QTest::keyClick(&Field(), Qt::Key_Backspace);
    EXPECT_EQ(Shown(), (std::vector<int>{0, 1, 2, 3, 4}));
}

TEST_F(Find, NamesAreFoundByInitialsAndNumbersByDigits) {
    Type(u8"lyz");
    EXPECT_EQ(Names(), (QStringList{ToQString(u8"林远舟"), ToQString(u8"李雨泽"),
                                    ToQString(u8"表妹罗忆中")}));
    EXPECT_EQ(Count(), ToQString(u8"找到 3 项"));
    Field().setText(QStringLiteral("13861"));
    EXPECT_EQ(Shown(), (std::vector<int>{0}));
    Field().setText(QStringLiteral("95588"));
    EXPECT_EQ(Shown(), (std::vector<int>{3}));
}

TEST_F(Find, WhereNothingIsFoundTheListSaysSoAndTheBarStays) {
    Type(u8"xyz");
    EXPECT_EQ(Shown(), std::vector<int>{});
    EXPECT_EQ(list_->Find()->NothingFound(), ToQString(u8"没有找到“xyz”"));
    EXPECT_EQ(Count(), ToQString(u8"找到 0 项"));
    EXPECT_TRUE(IsOpen());
    const QImage nothing = list_->viewport()->grab().toImage();
    Field().setText(QStringLiteral("xyzw"));
    EXPECT_NE(list_->viewport()->grab().toImage(), nothing);
}

TEST_F(Find, ClosedTheListIsAsItWas) {
    list_->SetRecords(SampleRecords(200));
    list_->SelectRow(3);
    list_->verticalScrollBar()->setValue(900);
    Type(u8"联系人 7");
    EXPECT_EQ(list_->model()->rowCount(), 11);
    QTest::keyClick(&Field(), Qt::Key_Escape);
    EXPECT_EQ(list_->model()->rowCount(), 200);
    EXPECT_EQ(list_->verticalScrollBar()->value(), 900);
    EXPECT_EQ(list_->CurrentRow(), 3);
    EXPECT_EQ(list_->selectionModel()->selectedRows().size(), 1);
}

TEST_F(Find, ARowThatWasChosenMeanwhileIsInViewWhenItIsClosed) {
    list_->SetRecords(SampleRecords(200));
    Type(u8"联系人 150");
    list_->SelectRow(150);
    QTest::keyClick(&Field(), Qt::Key_Escape);
    EXPECT_EQ(list_->CurrentRow(), 150);
    EXPECT_TRUE(list_->viewport()->rect().contains(list_->CellRect(150, sampleName)));
}

TEST_F(Find, TicksOfHiddenRowsStayAndCount) {
    list_->SetTicked(1, true);
    Type(u8"lyz");
    list_->SetTicked(2, true);
    EXPECT_EQ(list_->TickedRows(), (std::vector<int>{1, 2}));
    EXPECT_EQ(list_->CountText(), ToQString(u8"共 5 项 · 已选 2 项"));
    QTest::keyClick(&Field(), Qt::Key_Escape);
    EXPECT_EQ(list_->TickedRows(), (std::vector<int>{1, 2}));
}

TEST_F(Find, TheSelectionOfAHiddenRowStaysUntold) {
    list_->SelectRow(1);
    const QSignalSpy told(list_, &CSkinListCtrl::rowSelected);
    Type(u8"lyz");
    EXPECT_EQ(list_->CurrentRow(), 1);
    EXPECT_TRUE(list_->selectionModel()->selectedRows().empty());
    Field().setText(QStringLiteral("a"));  // Anna comes back
    EXPECT_EQ(list_->selectionModel()->selectedRows().size(), 1);
    EXPECT_EQ(told.count(), 0);
}

TEST_F(Find, CtrlATicksWhatIsShown) {
    list_->SetTicked(1, true);
    Type(u8"lyz");
    list_->setFocus();
    QTest::keySequence(list_, QKeySequence::SelectAll);
    EXPECT_EQ(list_->TickedRows(), (std::vector<int>{0, 1, 2, 4}));
    QTest::keySequence(list_, QKeySequence::SelectAll);
    EXPECT_EQ(list_->TickedRows(), (std::vector<int>{1}));
}

TEST_F(Find, MouseAndKeysMeetTheRowThatIsSeen) {
    const QSignalSpy clicked(list_, &CSkinListCtrl::rowClicked);
    const QSignalSpy opened(list_, &CSkinListCtrl::rowOpened);
    const QSignalSpy menu(list_, &CSkinListCtrl::menuAsked);
    Type(u8"lyz");
    const QPoint second = list_->CellRect(2, sampleName).center();
    EXPECT_EQ(second.y(), look::Metric::rowTall * 3 / 2 - 1);
    QTest::mouseClick(list_->viewport(), Qt::LeftButton, {}, second);
    EXPECT_EQ(clicked.back().front().toInt(), 2);
    EXPECT_EQ(list_->CurrentRow(), 2);
    QTest::keyClick(list_, Qt::Key_Down);
    EXPECT_EQ(list_->CurrentRow(), 4);
    QTest::keyClick(list_, Qt::Key_Return);
    EXPECT_EQ(opened.back().front().toInt(), 4);
    QTest::keyClick(list_, Qt::Key_Space);
    EXPECT_EQ(list_->TickedRows(), (std::vector<int>{4}));
    QTest::keySequence(list_, QKeySequence::Copy);
    EXPECT_TRUE(QGuiApplication::clipboard()->text().startsWith(ToQString(u8"表妹罗忆中")));
    QContextMenuEvent event(QContextMenuEvent::Mouse, second, QPoint());
    QApplication::sendEvent(list_->viewport(), &event);
    EXPECT_EQ(menu.back().front().toInt(), 2);
    QTest::mouseClick(list_->viewport(), Qt::LeftButton, {},
                      list_->CellRect(0, sampleTick).center());
    EXPECT_EQ(list_->TickedRows(), (std::vector<int>{0, 4}));
}

TEST_F(Find, DownLeadsFromTheFieldToTheFirstRowThatIsShown) {
    Type(u8"leibie");
    Field().setText(QStringLiteral("lyz"));
    list_->SelectRow(-1);
    QTest::keyClick(&Field(), Qt::Key_Down);
    EXPECT_TRUE(list_->hasFocus());
    EXPECT_EQ(list_->CurrentRow(), 0);
    QTest::keyClick(list_, Qt::Key_Escape);  // and Escape closes the bar from there
    EXPECT_FALSE(IsOpen());
}

TEST_F(Find, DownLeavesTheSelectionWhereNothingIsFound) {
    list_->SelectRow(1);
    Type(u8"xyz");
    QTest::keyClick(&Field(), Qt::Key_Down);
    EXPECT_EQ(list_->CurrentRow(), 1);
}

TEST_F(Find, TheTabKeyLeadsThroughTheBarToTheList) {
    QPushButton before(&window_);
    QPushButton after(&window_);
    QWidget::setTabOrder(&before, list_);
    QWidget::setTabOrder(list_, &after);
    before.show();
    after.show();
    for (int time = 0; time < 2; ++time) {
        Type(u8"lyz");
        QTest::keyClick(&Field(), Qt::Key_Tab);
        EXPECT_EQ(QApplication::focusWidget()->objectName(), QStringLiteral("findClose"));
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        EXPECT_TRUE(list_->hasFocus());
        QTest::keyClick(list_, Qt::Key_Tab);
        EXPECT_TRUE(after.hasFocus());
        before.setFocus();
        QTest::keyClick(&before, Qt::Key_Tab);
        EXPECT_TRUE(Field().hasFocus());
        QTest::keyClick(&Field(), Qt::Key_Escape);
    }
    before.setFocus();
    QTest::keyClick(&before, Qt::Key_Tab);
    EXPECT_TRUE(list_->hasFocus());
}

TEST_F(Find, CtrlFOnceMoreLeadsBackToTheField) {
    Type(u8"lyz");
    list_->setFocus();
    QTest::keySequence(list_, QKeySequence::Find);
    EXPECT_TRUE(Field().hasFocus());
    EXPECT_EQ(Field().selectedText(), QStringLiteral("lyz"));
}

TEST_F(Find, TheButtonClosesIt) {
    Type(u8"lyz");
    QTest::mouseClick(window_.findChild<QPushButton*>(QStringLiteral("findClose")), Qt::LeftButton);
    EXPECT_FALSE(IsOpen());
    EXPECT_EQ(Shown().size(), 5U);
}

TEST_F(Find, RowsThatAreFetchedAnewAreNarrowedToo) {
    Type(u8"lyz");
    list_->SetRecords({Named(u8"王朝", "1"), Named(u8"刘易之", "2")});
    ASSERT_TRUE(WaitFor([&] { return Shown() == std::vector<int>{1}; }));
    list_->Append(Named(u8"吕英姿", "3"));
    ASSERT_TRUE(WaitFor([&] { return Shown() == (std::vector<int>{1, 2}); }));
    list_->Edit(0, [](SampleRecord& record) { record.name = ToQString(u8"梁元正"); });
    ASSERT_TRUE(WaitFor([&] { return Shown() == (std::vector<int>{0, 1, 2}); }));
    EXPECT_EQ(Count(), ToQString(u8"找到 3 项"));
}

TEST_F(Find, AListWithoutRowsCountsNothing) {
    Type(u8"lyz");
    list_->SetRecords({});
    EXPECT_TRUE(WaitFor([&] { return Count().isEmpty(); }));
}

TEST_F(Find, ARowThatIsTakenAwayTakesNoOtherWithIt) {
    list_->SelectRow(3);
    Type(u8"lyz");
    list_->Remove(1);  // hidden
    EXPECT_EQ(Names().size(), 3);
    EXPECT_EQ(list_->CurrentRow(), 2);
    list_->Remove(0);  // shown
    EXPECT_EQ(Names(), (QStringList{ToQString(u8"李雨泽"), ToQString(u8"表妹罗忆中")}));
    EXPECT_EQ(list_->CurrentRow(), 1);
    list_->Remove(1);  // the selected one, hidden
    EXPECT_EQ(list_->CurrentRow(), -1);
    ASSERT_TRUE(WaitFor([&] { return Shown() == (std::vector<int>{0, 1}); }));
}

TEST_F(Find, WhatWasFoundStandsOut) {
    Type(u8"lyz");
    const QRect first = list_->CellRect(0, sampleName);
    const QImage found = list_->viewport()->grab(first).toImage();
    bool hasAccent = false;
    for (int y = 0; y < found.height(); ++y) {
        for (int x = 0; x < found.width(); ++x) {
            hasAccent = hasAccent || found.pixelColor(x, y) == look::color(look::Color::plum7);
        }
    }
    EXPECT_TRUE(hasAccent);
    list_->ShowRows(std::vector<int>{0});
    EXPECT_EQ(list_->viewport()->grab(first).toImage(), found);
}

TEST_F(Find, EveryOtherRowIsTintedAsItIsSeen) {
    Type(u8"lyz");
    const auto ground = [&](int row) {
        const QRect cell = list_->CellRect(row, sampleHidden - 1);
        return list_->viewport()->grab().toImage().pixelColor(cell.left() + 2, cell.top() + 5);
    };
    EXPECT_EQ(ground(0), look::color(look::Color::rowLight));
    EXPECT_NE(ground(2), look::color(look::Color::rowLight));
    EXPECT_EQ(ground(4), look::color(look::Color::rowLight));
}

}  // namespace
}  // namespace quorvi
