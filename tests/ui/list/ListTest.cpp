// The list of the kit, driven by mouse and keys over records of a test's own.
#include <gtest/gtest.h>

#include <QClipboard>
#include <QHelpEvent>
#include <QSignalSpy>
#include <QTest>
#include <QToolTip>

#include "tests/support/PictureFiles.h"
#include "tests/support/QtTest.h"
#include "tests/support/SampleList.h"
#include "ui/kit/ControlNumber.h"
#include "ui/list/SkinHeader.h"
#include "ui/look/FocusRing.h"
#include "ui/look/Look.h"

namespace quorvi {
namespace {

class Observer : public ListObserver {
  public:
    void OnLinkClicked(int kind, int row) override { heard.emplace_back(kind, row); }
    std::vector<std::pair<int, int>> heard;
};

class ListTest : public QtTest {
  protected:
    void SetUp() override {
        window_.resize(760, 462);
        list_ = SetControlNumber(new SampleListCtrl(&window_), 1067, QStringLiteral("联系人"));
        list_->setGeometry(0, 0, 760, 462);
        list_->SetObserver(&observer_);
        ShowActive(window_);
    }
    void Fill(int count) { list_->SetRecords(SampleRecords(count)); }
    // A click in the middle of a cell, or at `at` in it.
    void Click(int row, int column, Qt::MouseButton button = Qt::LeftButton) {
        QTest::mouseClick(list_->viewport(), button, {}, list_->CellRect(row, column).center());
    }
    void Key(Qt::Key key) { QTest::keyClick(list_, key); }
    [[nodiscard]] QImage Shot() { return list_->viewport()->grab().toImage(); }

    QWidget window_;
    SampleListCtrl* list_ = nullptr;
    Observer observer_;
};

TEST_F(ListTest, RowIIsElementI) {
    Fill(20);
    EXPECT_EQ(list_->RowCount(), 20);
    EXPECT_EQ(
        list_->At(7).name,
        list_->model()->index(7, sampleName).data().toString().section(QLatin1Char('\n'), 0, 0));
}

TEST_F(ListTest, PageListsHaveRowsOfSixtyAndCompactOnesOfThirty) {
    Fill(3);
    EXPECT_EQ(list_->CellRect(1, 0).top() - list_->CellRect(0, 0).top(), 60);
    SampleListCtrl compact(&window_, look::Metric::rowCompact);
    compact.SetRecords(SampleRecords(3));
    compact.resize(760, 300);
    compact.show();
    EXPECT_EQ(compact.CellRect(1, 0).top() - compact.CellRect(0, 0).top(), 30);
}

TEST_F(ListTest, TheHeaderIsThirtyHigh) {
    EXPECT_EQ(list_->horizontalHeader()->height(), 30);
}

int WidthOfColumns(const CSkinListCtrl& list) {
    int all = 0;
    for (int i = 0; i < list.ColumnCount(); ++i) {
        all += list.columnWidth(i);
    }
    return all;
}

TEST_F(ListTest, TheColumnOfNamesTakesWhatTheOthersLeave) {
    for (const int width : {760, 1166, 1700}) {
        list_->resize(width, 462);
        for (int i = 0; i < list_->ColumnCount(); ++i) {
            if (i != sampleName) {
                EXPECT_EQ(list_->columnWidth(i), list_->Column(i).width) << width << ' ' << i;
            }
        }
        EXPECT_EQ(WidthOfColumns(*list_) + look::Metric::scrollGutter, list_->viewport()->width())
            << width;
    }
    EXPECT_TRUE(list_->isColumnHidden(sampleHidden));
}

TEST_F(ListTest, NoColumnIsNarrowerThanItsWidthButThatOfNamesByHalfAtMost) {
    list_->resize(300, 462);
    for (int column = 0; column < list_->ColumnCount(); ++column) {
        const int told = list_->Column(column).width;
        EXPECT_EQ(list_->columnWidth(column), column == sampleName ? told / 2 : told) << column;
    }
}

// A list that has no column of names.
class PlainList : public RecordListCtrl<int> {
  public:
    explicit PlainList(QWidget* parent)
        : RecordListCtrl(kColumns, look::Metric::rowCompact, parent) {}

  protected:
    [[nodiscard]] Cell CellOf(const int&, int column) const override {
        return {.text = column == 1 ? QStringLiteral("text") : QString()};
    }

  private:
    static constexpr std::array<ListColumn, 4> kColumns{
        {{u8"一", 60, CellKind::picture}, {u8"二", 60}, {u8"三", 60}, {u8"", 0}}};
};

TEST_F(ListTest, WithoutAColumnOfNamesTheLastTakesWhatIsLeft) {
    PlainList plain(&window_);
    plain.resize(400, 300);
    plain.show();
    EXPECT_EQ(plain.columnWidth(0), 60);
    EXPECT_EQ(plain.columnWidth(1), 60);
    EXPECT_EQ(WidthOfColumns(plain) + look::Metric::scrollGutter, plain.viewport()->width());
}

TEST_F(ListTest, WithoutAColumnOfNamesTheFirstWithTextStandsForIt) {
    PlainList plain(&window_);
    plain.SetRecords({1});
    EXPECT_EQ(plain.NameOf(0), QStringLiteral("text"));
}

TEST_F(ListTest, AClickOutsideTheLinkChangesOnlyTheSelection) {
    Fill(5);
    QSignalSpy clicked(list_, &CSkinListCtrl::rowClicked);
    Click(2, sampleName);
    EXPECT_EQ(list_->CurrentRow(), 2);
    // In the link's cell, but on its first line.
    QTest::mouseClick(list_->viewport(), Qt::LeftButton, {},
                      list_->CellRect(3, sampleLink).topLeft() + QPoint(40, 20));
    EXPECT_EQ(list_->CurrentRow(), 3);
    EXPECT_TRUE(observer_.heard.empty());
    EXPECT_TRUE(list_->TickedRows().empty());
    EXPECT_EQ(clicked.count(), 2);
}

TEST_F(ListTest, AClickOnALinkTellsTheObserverItsKindAndRow) {
    Fill(5);
    QTest::mouseClick(list_->viewport(), Qt::LeftButton, {},
                      list_->LinkRect(1, sampleLink).center());
    QTest::mouseClick(list_->viewport(), Qt::LeftButton, {},
                      list_->LinkRect(4, sampleSecondLink).center());
    ASSERT_EQ(observer_.heard.size(), 2U);
    EXPECT_EQ(observer_.heard[0], std::pair(0, 1));
    EXPECT_EQ(observer_.heard[1], std::pair(1, 4));
    EXPECT_EQ(list_->CurrentRow(), 4);
}

TEST_F(ListTest, ATextLinkIsHitSixPixelsFromItsColumnsEdges) {
    Fill(1);
    const QRect cell = list_->CellRect(0, sampleSecondLink);
    const QRect link = list_->LinkRect(0, sampleSecondLink);
    EXPECT_EQ(link.left() - cell.left(), 6);
    EXPECT_EQ(cell.right() - link.right(), 6);
    EXPECT_LT(link.height(), cell.height());
}

TEST_F(ListTest, AnImageLinkIsHitFourteenAndTwentyPixelsInside) {
    Fill(1);
    const QRect cell = list_->CellRect(0, sampleImageLink);
    EXPECT_EQ(list_->LinkRect(0, sampleImageLink), cell.adjusted(14, 20, -14, -20));
}

TEST_F(ListTest, TheCursorIsTheHandOverALinkAndTheArrowElsewhere) {
    Fill(5);
    QTest::mouseMove(list_->viewport(), list_->LinkRect(1, sampleLink).center());
    EXPECT_EQ(list_->viewport()->cursor().shape(), Qt::PointingHandCursor);
    QTest::mouseMove(list_->viewport(), list_->CellRect(1, sampleName).center());
    EXPECT_EQ(list_->viewport()->cursor().shape(), Qt::ArrowCursor);
}

TEST_F(ListTest, ALinkWithoutAnObserverDoesNothing) {
    Fill(2);
    list_->SetObserver(nullptr);
    QTest::mouseClick(list_->viewport(), Qt::LeftButton, {},
                      list_->LinkRect(1, sampleLink).center());
    EXPECT_EQ(list_->CurrentRow(), 1);
}

TEST_F(ListTest, AClickInTheTickColumnFlipsTheTick) {
    Fill(5);
    QSignalSpy flipped(list_, &CSkinListCtrl::tickFlipped);
    Click(1, sampleTick);
    EXPECT_EQ(list_->TickedRows(), std::vector<int>{1});
    Click(3, sampleTick);
    EXPECT_EQ(list_->TickedRows(), (std::vector<int>{1, 3}));
    Click(1, sampleTick);
    EXPECT_EQ(list_->TickedRows(), std::vector<int>{3});
    EXPECT_EQ(flipped.count(), 3);
}

TEST_F(ListTest, TwoQuickClicksFlipTheTickTwice) {
    Fill(5);
    QSignalSpy opened(list_, &CSkinListCtrl::rowOpened);
    const QPoint at = list_->CellRect(1, sampleTick).center();
    QTest::mouseClick(list_->viewport(), Qt::LeftButton, {}, at);
    QTest::mouseDClick(list_->viewport(), Qt::LeftButton, {}, at);
    EXPECT_TRUE(list_->TickedRows().empty());
    EXPECT_EQ(opened.count(), 0);
}

TEST_F(ListTest, NewRecordsComeUntickedAndUnselected) {
    Fill(5);
    Click(1, sampleTick);
    Fill(5);
    EXPECT_TRUE(list_->TickedRows().empty());
    EXPECT_EQ(list_->CurrentRow(), -1);
}

TEST_F(ListTest, RemovingARowKeepsTheTicksAndTheSelectionOnTheirRows) {
    Fill(5);
    list_->SelectRow(3);
    list_->SetTicked(4, true);
    list_->Remove(1);
    EXPECT_EQ(list_->RowCount(), 4);
    EXPECT_EQ(list_->TickedRows(), std::vector<int>{3});
    EXPECT_EQ(list_->CurrentRow(), 2);
}

TEST_F(ListTest, ARowThatIsNotThereClearsTheSelection) {
    Fill(2);
    list_->SelectRow(1);
    list_->SelectRow(2);
    EXPECT_EQ(list_->CurrentRow(), -1);
}

// ---- keys --------------------------------------------------------------------------------------

TEST_F(ListTest, KeysMoveTheSelection) {
    Fill(100);
    list_->setFocus();
    list_->SelectRow(0);
    Key(Qt::Key_Down);
    EXPECT_EQ(list_->CurrentRow(), 1);
    Key(Qt::Key_Up);
    EXPECT_EQ(list_->CurrentRow(), 0);
    Key(Qt::Key_Up);
    EXPECT_EQ(list_->CurrentRow(), 0);
    Key(Qt::Key_End);
    EXPECT_EQ(list_->CurrentRow(), 99);
    Key(Qt::Key_Home);
    EXPECT_EQ(list_->CurrentRow(), 0);
    Key(Qt::Key_PageDown);
    EXPECT_EQ(list_->CurrentRow(), 6);
    Key(Qt::Key_PageUp);
    EXPECT_EQ(list_->CurrentRow(), 0);
    Key(Qt::Key_Right);
    Key(Qt::Key_Left);
    EXPECT_EQ(list_->CurrentRow(), 0);
}

TEST_F(ListTest, TheSelectedRowIsBroughtIntoView) {
    Fill(100);
    list_->setFocus();
    list_->SelectRow(0);
    Key(Qt::Key_End);
    EXPECT_TRUE(list_->viewport()->rect().contains(list_->CellRect(99, 1).center()));
}

// Letters and Ctrl+C mean the row, whichever of its cells was clicked or is read out.
class ListNames : public ListTest, public testing::WithParamInterface<int> {
  protected:
    void SetUp() override {
        ListTest::SetUp();
        Fill(3);
        const char* names[] = {"anna", "bela", "carl"};
        for (int row = 0; row < 3; ++row) {
            list_->Edit(
                row, [&](SampleRecord& record) { record.name = QString::fromLatin1(names[row]); });
        }
        list_->setFocus();
    }
    void GoTo(int row) { list_->setCurrentIndex(list_->model()->index(row, GetParam())); }
};

TEST_P(ListNames, LettersGoToTheRowWhoseNameBeginsWithThem) {
    GoTo(0);
    Key(Qt::Key_C);
    EXPECT_EQ(list_->CurrentRow(), 2);
}

TEST_P(ListNames, ControlCCopiesTheRow) {
    QGuiApplication::clipboard()->clear();
    GoTo(1);
    QTest::keyClick(list_, Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QGuiApplication::clipboard()->text(), QStringLiteral("bela\t13800000001\t工具\tN/A"));
}

INSTANTIATE_TEST_SUITE_P(Columns, ListNames,
                         testing::Values(samplePicture, sampleName, sampleStar, sampleProgress,
                                         sampleTick));

TEST_F(ListTest, ControlCWithoutARowLeavesTheClipboardAlone) {
    QGuiApplication::clipboard()->setText(QStringLiteral("kept"));
    QTest::keyClick(list_, Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QGuiApplication::clipboard()->text(), QStringLiteral("kept"));
}

TEST_F(ListTest, SpaceFlipsTheTickOfTheRow) {
    Fill(3);
    list_->setFocus();
    list_->SelectRow(2);
    Key(Qt::Key_Space);
    EXPECT_EQ(list_->TickedRows(), std::vector<int>{2});
    Key(Qt::Key_Space);
    EXPECT_TRUE(list_->TickedRows().empty());
}

TEST_F(ListTest, ControlATicksAllRowsAndThenNone) {
    Fill(3);
    QSignalSpy flipped(list_, &CSkinListCtrl::tickFlipped);
    list_->setFocus();
    list_->SelectRow(1);
    list_->SetTicked(2, true);
    QTest::keyClick(list_, Qt::Key_A, Qt::ControlModifier);
    EXPECT_EQ(list_->TickedRows(), (std::vector<int>{0, 1, 2}));
    EXPECT_EQ(flipped.count(), 2);
    QTest::keyClick(list_, Qt::Key_A, Qt::ControlModifier);
    EXPECT_TRUE(list_->TickedRows().empty());
    EXPECT_EQ(list_->CurrentRow(), 1);
}

TEST_F(ListTest, RowsThatAreNotShownAreNotTickedAllAtOnce) {
    Fill(3);
    list_->SetRedraw(false);
    QTest::keyClick(list_, Qt::Key_A, Qt::ControlModifier);
    EXPECT_TRUE(list_->TickedRows().empty());
}

TEST_F(ListTest, TheMenuKeyBringsItsRowBackIntoView) {
    Fill(100);
    list_->SelectRow(2);
    list_->verticalScrollBar()->setValue(list_->verticalScrollBar()->maximum());
    QSignalSpy asked(list_, &CSkinListCtrl::menuAsked);
    QContextMenuEvent key(QContextMenuEvent::Keyboard, QPoint(0, 0), QPoint(0, 0));
    QApplication::sendEvent(list_->viewport(), &key);
    ASSERT_EQ(asked.count(), 1);
    const QPoint at = list_->viewport()->mapFromGlobal(asked[0][1].toPoint());
    EXPECT_TRUE(list_->viewport()->rect().contains(at));
    EXPECT_EQ(list_->rowAt(at.y()), 2);
}

TEST_F(ListTest, EnterAndADoubleClickOpenTheRow) {
    Fill(3);
    QSignalSpy opened(list_, &CSkinListCtrl::rowOpened);
    list_->setFocus();
    Key(Qt::Key_Return);
    EXPECT_EQ(opened.count(), 0);  // nothing is selected
    list_->SelectRow(2);
    Key(Qt::Key_Enter);
    QTest::mouseDClick(list_->viewport(), Qt::LeftButton, {},
                       list_->CellRect(1, sampleName).center());
    ASSERT_EQ(opened.count(), 2);
    EXPECT_EQ(opened[0][0].toInt(), 2);
    EXPECT_EQ(opened[1][0].toInt(), 1);
}

TEST_F(ListTest, TheMenuIsAskedForByRightClickAndByKey) {
    Fill(3);
    QSignalSpy asked(list_, &CSkinListCtrl::menuAsked);
    const QPoint at = list_->CellRect(1, sampleName).center();
    QContextMenuEvent mouse(QContextMenuEvent::Mouse, at, list_->viewport()->mapToGlobal(at));
    QApplication::sendEvent(list_->viewport(), &mouse);
    list_->SelectRow(2);
    QContextMenuEvent key(QContextMenuEvent::Keyboard, QPoint(0, 0), QPoint(0, 0));
    QApplication::sendEvent(list_->viewport(), &key);
    ASSERT_EQ(asked.count(), 2);
    EXPECT_EQ(asked[0][0].toInt(), 1);
    EXPECT_EQ(asked[1][0].toInt(), 2);
    EXPECT_TRUE(
        list_->CellRect(2, 0).contains(list_->viewport()->mapFromGlobal(asked[1][1].toPoint())));
}

TEST_F(ListTest, ARightClickSelectsTheRow) {
    Fill(3);
    Click(1, sampleName, Qt::RightButton);
    EXPECT_EQ(list_->CurrentRow(), 1);
    EXPECT_TRUE(observer_.heard.empty());
}

TEST_F(ListTest, TheFocusedRowHasTheRingAfterAKey) {
    Fill(3);
    list_->setFocus();
    list_->SelectRow(0);
    Key(Qt::Key_Down);
    const QImage shot = Shot();
    const QRect row = list_->CellRect(1, 0);
    EXPECT_EQ(shot.pixelColor(300, row.top() + 1), look::color(look::Color::plum6));
    Click(2, sampleName);
    EXPECT_NE(Shot().pixelColor(300, list_->CellRect(2, 0).top() + 1),
              look::color(look::Color::plum6));
}

// ---- how it looks ------------------------------------------------------------------------------

TEST_F(ListTest, RowsHaveTheirGround) {
    using look::Color;
    Fill(5);
    list_->SelectRow(3);
    QTest::mouseMove(list_->viewport(), list_->CellRect(2, sampleName).center());
    const QImage shot = Shot();
    const int x = 230;
    const auto middle = [&](int row) { return list_->CellRect(row, 0).top() + 4; };
    EXPECT_EQ(shot.pixelColor(x, middle(0)), look::color(Color::rowLight));
    EXPECT_EQ(shot.pixelColor(x, middle(1)), look::color(Color::surface));
    EXPECT_EQ(shot.pixelColor(x, middle(2)), look::color(Color::rowHover));
    EXPECT_EQ(shot.pixelColor(x, middle(3)), look::color(Color::rowSelected));
    EXPECT_EQ(shot.pixelColor(x, list_->CellRect(3, 0).top()), look::color(Color::rowBorder));
    EXPECT_EQ(shot.pixelColor(1, middle(3)), look::color(Color::plum6));
    // Rows reach under the scroll bar's place.
    EXPECT_EQ(shot.pixelColor(shot.width() - 1, middle(3)), look::color(Color::rowSelected));
}

TEST_F(ListTest, TheSelectionStaysShownWithoutFocus) {
    Fill(3);
    list_->setFocus();
    list_->SelectRow(1);
    list_->clearFocus();
    EXPECT_EQ(Shot().pixelColor(230, list_->CellRect(1, 0).top() + 4),
              look::color(look::Color::rowSelected));
}

TEST_F(ListTest, AListWithRedrawOffStaysAsItIs) {
    Fill(5);
    const QImage before = Shot();
    list_->SetRedraw(false);
    Fill(2);
    list_->SelectRow(1);
    EXPECT_EQ(Shot(), before);
    list_->SetRedraw(true);
    EXPECT_NE(Shot(), before);
}

TEST_F(ListTest, AListThatWasClearedBeforeRedrawWentOffStaysBlank) {
    Fill(5);
    list_->Clear();
    list_->SetRedraw(false);
    const QImage shot = Shot();
    for (int y = 0; y < shot.height(); y += 7) {
        for (int x = 0; x < shot.width(); x += 7) {
            ASSERT_EQ(shot.pixelColor(x, y), look::color(look::Color::surface));
        }
    }
    list_->SetRedraw(true);
    EXPECT_NE(Shot(), shot);  // now it says that it is empty
}

TEST_F(ListTest, ALoadShowsThatWorkGoesOnEvenWhileRedrawIsOff) {
    look::SetLessMotion(true);
    list_->SetRedraw(false);
    const QImage blank = Shot();
    list_->SetState(ListState::loading);
    const QImage loading = Shot();
    EXPECT_NE(loading, blank);
    list_->SetLoadProgress(1'000'000, 3'000'000);
    EXPECT_NE(Shot(), loading);
    list_->SetState(ListState::idle);
    EXPECT_EQ(Shot(), blank);
    look::SetLessMotion(false);
}

TEST_F(ListTest, EmptyAndFailedHaveEachTheirPicture) {
    const QImage empty = Shot();
    list_->SetState(ListState::failed);
    const QImage failed = Shot();
    EXPECT_NE(empty, failed);
    list_->SetFailedText(QStringLiteral("?"), QStringLiteral("?"));
    EXPECT_NE(Shot(), failed);
    Fill(1);
    const QImage filled = Shot();
    list_->SetState(ListState::idle);
    EXPECT_EQ(Shot(), filled);  // a list with rows shows them, whatever happened
}

// ---- pictures ----------------------------------------------------------------------------------

TEST_F(ListTest, APictureIsDecodedOnceAndNotAtEachPaint) {
    Fill(200);
    for (int i = 0; i < 5; ++i) {
        (void)Shot();
    }
    const int seen = list_->rowAt(list_->viewport()->height() - 1) + 1;
    EXPECT_EQ(list_->Pictures().Decodes(), seen);
}

TEST_F(ListTest, RowsThatAreOutOfSightAreNotDecoded) {
    Fill(20'000);
    (void)Shot();
    EXPECT_LT(list_->Pictures().Decodes(), 12);
}

TEST_F(ListTest, AGoodPictureIsShown) {
    Fill(1);
    list_->Edit(0, [](SampleRecord& record) { record.photo = Png(96, 96, 0xFF123456); });
    EXPECT_EQ(Shot().pixel(30, 30), 0xFF123456U);
}

TEST_F(ListTest, BrokenAndOversizedPicturesShowTheDefaultHead) {
    Fill(1);
    list_->Edit(0, [](SampleRecord& record) { record.photo.clear(); });
    const QRect cell = list_->CellRect(0, samplePicture);
    const QImage head = Shot().copy(cell);
    const std::string good = Png(8, 8, 0xFF123456);
    std::string padded = good;
    padded.resize(262'245);
    const std::string drawing =
        "<svg xmlns='http://www.w3.org/2000/svg' width='48' height='48'>"
        "<rect width='48' height='48' fill='black'/></svg>";
    std::uint64_t id = 1'000'000;
    for (const std::string& photo :
         {std::string("\xFF"), good.substr(0, 20), std::string(500, 'x'), padded, drawing,
          PngClaiming(60'000), PngClaiming(0x7FFFFFFF)}) {
        list_->Edit(0, [&](SampleRecord& record) {
            record.photo = photo;
            record.id = ++id;
        });
        EXPECT_EQ(Shot().copy(cell), head) << "a photo of " << photo.size() << " bytes";
    }
}

TEST_F(ListTest, ABrokenPictureIsNotTriedAgain) {
    Fill(1);
    list_->Edit(0, [](SampleRecord& record) {
        record.photo = "broken";
        record.id = 77;
    });
    (void)Shot();
    const int decodes = list_->Pictures().Decodes();
    (void)Shot();
    EXPECT_EQ(list_->Pictures().Decodes(), decodes);
}

// ---- tool tips ---------------------------------------------------------------------------------

TEST_F(ListTest, ATextThatIsCutOffShowsWholeInATip) {
    Fill(2);
    const QString name = QStringLiteral("<b>一二三四五六七八九十一二三四五六七八九十</b>");
    list_->Edit(1, [&](SampleRecord& record) { record.name = name; });
    const auto ask = [&](int row) {
        const QPoint at = list_->CellRect(row, sampleName).center();
        QHelpEvent help(QEvent::ToolTip, at, list_->viewport()->mapToGlobal(at));
        QApplication::sendEvent(list_->viewport(), &help);
        return QToolTip::text();
    };
    const QString tip = ask(1);
    EXPECT_TRUE(tip.contains(name.toHtmlEscaped())) << tip.toStdString();
    QToolTip::hideText();
    EXPECT_FALSE(ask(0).contains(QStringLiteral("联系人 0")));
}

TEST_F(ListTest, ALongTextIsBrokenInItsTip) {
    Fill(1);
    list_->Edit(0, [](SampleRecord& record) { record.name = QString(500, QLatin1Char('x')); });
    const QPoint at = list_->CellRect(0, sampleName).center();
    QHelpEvent help(QEvent::ToolTip, at, list_->viewport()->mapToGlobal(at));
    QApplication::sendEvent(list_->viewport(), &help);
    for (const QString& line : QToolTip::text().split(QLatin1Char('\n'))) {
        EXPECT_LE(line.size(), 60);
    }
    EXPECT_EQ(QToolTip::text().count(QLatin1Char('x')), 500);
    QToolTip::hideText();
}

// ---- what is read out --------------------------------------------------------------------------

TEST_F(ListTest, EachCellIsReadOutInWords) {
    Fill(2);
    list_->SetTicked(1, true);
    list_->Edit(1, [](SampleRecord& record) {
        record.photo.clear();
        record.number.clear();
    });
    const auto words = [&](int row, int column) {
        return list_->model()->index(row, column).data(Qt::AccessibleTextRole).toString();
    };
    EXPECT_EQ(words(0, samplePicture), QStringLiteral("有照片"));
    EXPECT_EQ(words(1, samplePicture), QStringLiteral("没有照片"));
    EXPECT_EQ(words(0, sampleName), QStringLiteral("联系人 0\n13800000000"));
    EXPECT_EQ(words(1, sampleName), QStringLiteral("联系人 1"));
    EXPECT_EQ(words(0, sampleStar), QStringLiteral("已收藏"));
    EXPECT_EQ(words(1, sampleStar), QStringLiteral("未收藏"));
    EXPECT_EQ(words(0, sampleTick), QStringLiteral("未勾选"));
    EXPECT_EQ(words(1, sampleTick), QStringLiteral("已勾选"));
    EXPECT_EQ(words(0, sampleRating), QStringLiteral("1 星"));
    EXPECT_EQ(words(0, sampleProgress), QStringLiteral("1 %"));
    EXPECT_EQ(words(1, sampleProgress), QStringLiteral("N/A"));
    EXPECT_EQ(words(0, sampleImageLink), QStringLiteral("访问"));
    EXPECT_EQ(words(0, sampleHidden), QStringLiteral("空"));
    for (int column = 0; column < list_->ColumnCount(); ++column) {
        EXPECT_FALSE(words(1, column).isEmpty()) << column;
    }
    EXPECT_EQ(list_->model()->index(1, sampleTick).data(Qt::CheckStateRole).toInt(), Qt::Checked);
    EXPECT_EQ(list_->model()->headerData(sampleName, Qt::Horizontal, Qt::DisplayRole).toString(),
              QStringLiteral("联系人"));
}

TEST_F(ListTest, ATickSetByAnAssistiveToolIsTheUsers) {
    Fill(2);
    const QSignalSpy flipped(list_, &CSkinListCtrl::tickFlipped);
    const QModelIndex tick = list_->model()->index(1, sampleTick);
    EXPECT_TRUE(list_->model()->setData(tick, Qt::Checked, Qt::CheckStateRole));
    EXPECT_TRUE(list_->IsTicked(1));
    EXPECT_TRUE(list_->model()->setData(tick, Qt::Checked, Qt::CheckStateRole));
    EXPECT_EQ(flipped.count(), 1);
}

}  // namespace
}  // namespace quorvi
