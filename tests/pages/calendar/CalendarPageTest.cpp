// The calendar page, driven by control number.
#include <gtest/gtest.h>

#include <QAccessible>
#include <QComboBox>
#include <QHeaderView>
#include <QSignalSpy>
#include <QTableView>
#include <QTest>

#include "pages/calendar/CalendarPage.h"
#include "tests/support/PageTest.h"
#include "tests/support/QtTest.h"
#include "ui/kit/ControlNumber.h"
#include "ui/kit/QtText.h"
#include "ui/kit/SkinButtons.h"
#include "ui/look/Look.h"

namespace quorvi {
namespace {

class CalendarPageTest : public QtTest {
  protected:
    void SetUp() override {
        page_ = std::make_unique<CalendarPage>(host_, nullptr, [this] { return today_; });
        page_->resize(look::Metric::pageWidth, look::Metric::contentHeight);
        page_->show();
        page_->activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(page_.get()));
    }

    template <typename Control = QWidget>
    [[nodiscard]] Control& Find(int number) const {
        return *FindControl<Control>(page_.get(), number);
    }
    [[nodiscard]] QComboBox& Box(int number) const { return Find<QComboBox>(number); }
    [[nodiscard]] QTableView& Grid() const { return Find<QTableView>(1102); }
    [[nodiscard]] QString Text(int number) const { return Find<QLabel>(number).text(); }
    // What the three boxes show.
    [[nodiscard]] QString Boxes() const {
        return Box(1103).currentText() + QLatin1Char('/') + Box(1104).currentText() +
               QLatin1Char('/') + Box(1105).currentText();
    }
    [[nodiscard]] QString Expect(int year, std::u8string_view month, int day) const {
        return QString::number(year) + QLatin1Char('/') + ToQString(month) + QLatin1Char('/') +
               QString::number(day);
    }
    // The user takes an entry of a box.
    void Take(int number, int index) {
        Box(number).setCurrentIndex(index);
        Q_EMIT Box(number).activated(index);
    }
    void Click(int number) { QTest::mouseClick(&Find(number), Qt::LeftButton); }
    void Key(Qt::Key key) { QTest::keyClick(&Grid(), key); }
    // The cell with a day's number in it.
    [[nodiscard]] QModelIndex CellOf(int day) const {
        const QAbstractItemModel& model = *Grid().model();
        for (int row = 0; row < model.rowCount(); ++row) {
            for (int column = 0; column < model.columnCount(); ++column) {
                const QModelIndex index = model.index(row, column);
                if (index.data().toString().section(QLatin1Char('\n'), 0, 0) ==
                    QString::number(day)) {
                    return index;
                }
            }
        }
        return {};
    }
    void ClickCell(const QModelIndex& index) {
        QTest::mouseClick(Grid().viewport(), Qt::LeftButton, {}, Grid().visualRect(index).center());
    }
    [[nodiscard]] QString Note(int day) const {
        return CellOf(day).data().toString().section(QLatin1Char('\n'), 1);
    }
    // The day marked in the grid; 0 for none.
    [[nodiscard]] int Chosen() const {
        const QModelIndexList chosen = Grid().selectionModel()->selectedIndexes();
        return chosen.isEmpty()
                   ? 0
                   : chosen.front().data().toString().section(QLatin1Char('\n'), 0, 0).toInt();
    }

    CalendarDate today_{2011, 6, 18};
    FakeHost host_;
    std::unique_ptr<CalendarPage> page_;
};

TEST_F(CalendarPageTest, IsDialog404AndShowsToday) {
    EXPECT_EQ(page_->objectName(), QStringLiteral("dialog 404"));
    EXPECT_EQ(Boxes(), Expect(2011, u8"六月", 18));
    EXPECT_EQ(Text(1106), ToQString(u8"星期六"));
    EXPECT_EQ(Text(1108), ToQString(u8"农历: 辛卯 免年 　五月 十七"));
    EXPECT_EQ(Chosen(), 18);
}

TEST_F(CalendarPageTest, BoxesHoldYearsMonthsAndTheMonthsDays) {
    EXPECT_EQ(Box(1103).count(), 68);
    EXPECT_EQ(Box(1103).itemText(0), QStringLiteral("1970"));
    EXPECT_EQ(Box(1103).itemText(67), QStringLiteral("2037"));
    EXPECT_EQ(Box(1104).count(), 12);
    EXPECT_EQ(Box(1104).itemText(0), ToQString(u8"一月"));
    EXPECT_EQ(Box(1104).itemText(11), ToQString(u8"十二月"));
    EXPECT_EQ(Box(1105).count(), 30);
    EXPECT_EQ(Box(1105).itemText(0), QStringLiteral("1"));
}

TEST_F(CalendarPageTest, EachBoxShowsItsDate) {
    Take(1103, 42);
    EXPECT_EQ(Boxes(), Expect(2012, u8"六月", 18));
    Take(1104, 0);
    EXPECT_EQ(Boxes(), Expect(2012, u8"一月", 18));
    EXPECT_EQ(Box(1105).count(), 31);
    Take(1105, 22);
    EXPECT_EQ(Text(1106), ToQString(u8"星期一"));
    EXPECT_EQ(Text(1108), ToQString(u8"春节 农历: 壬辰 龙年 　正月 初一"));
    EXPECT_EQ(Chosen(), 23);
}

TEST_F(CalendarPageTest, FebruaryOfALeapYearOffers29Days) {
    page_->ShowDate(2012, 2, 1);
    EXPECT_EQ(Box(1105).count(), 29);
    page_->ShowDate(2011, 2, 1);
    EXPECT_EQ(Box(1105).count(), 28);
}

TEST_F(CalendarPageTest, ADayBeyondTheNewMonthSelectsNothing) {
    page_->ShowDate(2012, 1, 31);
    Take(1104, 1);
    EXPECT_EQ(Box(1105).count(), 29);
    EXPECT_EQ(Box(1105).currentIndex(), -1);
    EXPECT_EQ(Chosen(), 0);
    EXPECT_EQ(Box(1104).currentIndex(), 1);
    // From there any day can be chosen again.
    ClickCell(CellOf(29));
    EXPECT_EQ(Boxes(), Expect(2012, u8"二月", 29));
}

TEST_F(CalendarPageTest, TodayButtonGoesToToday) {
    page_->ShowDate(1999, 12, 31);
    today_ = {2012, 6, 21};
    Click(1107);
    EXPECT_EQ(Boxes(), Expect(2012, u8"六月", 21));
    EXPECT_EQ(Text(1108), ToQString(u8"农历: [夏至] 壬辰 龙年 　五月 初三"));
}

TEST_F(CalendarPageTest, BackAndForwardAreADay) {
    Click(1111);
    EXPECT_EQ(Boxes(), Expect(2011, u8"六月", 17));
    Click(1112);
    Click(1112);
    EXPECT_EQ(Boxes(), Expect(2011, u8"六月", 19));
    page_->ShowDate(2011, 12, 31);
    Click(1112);
    EXPECT_EQ(Boxes(), Expect(2012, u8"一月", 1));
    Click(1111);
    EXPECT_EQ(Boxes(), Expect(2011, u8"十二月", 31));
}

TEST_F(CalendarPageTest, BackOnTheFirstDayStays) {
    page_->ShowDate(1970, 1, 1);
    Click(1111);
    EXPECT_EQ(Boxes(), Expect(1970, u8"一月", 1));
}

TEST_F(CalendarPageTest, ForwardOnTheLastDayStays) {
    page_->ShowDate(2037, 12, 31);
    Click(1112);
    EXPECT_EQ(Boxes(), Expect(2037, u8"十二月", 31));
}

TEST_F(CalendarPageTest, GridHasTheMonthUnderTheNamesOfTheDays) {
    const QAbstractItemModel& model = *Grid().model();
    EXPECT_EQ(model.columnCount(), 7);
    EXPECT_EQ(model.rowCount(), 5);
    EXPECT_EQ(model.headerData(0, Qt::Horizontal).toString(), ToQString(u8"星期日"));
    EXPECT_EQ(model.headerData(6, Qt::Horizontal).toString(), ToQString(u8"星期六"));
    EXPECT_EQ(CellOf(1).column(), 3);
    EXPECT_EQ(CellOf(30), model.index(4, 4));
    EXPECT_TRUE(model.index(0, 0).data().isNull());
}

TEST_F(CalendarPageTest, CellsSayFestivalElseTermElseLunarDay) {
    page_->ShowDate(2012, 6, 1);
    EXPECT_EQ(Note(1), ToQString(u8"儿童节"));
    EXPECT_EQ(Note(5), ToQString(u8"环保日"));  // and not the term of that day
    EXPECT_EQ(Note(21), ToQString(u8"夏至"));
    EXPECT_EQ(Note(19), ToQString(u8"初一"));
    EXPECT_EQ(Note(23), ToQString(u8"端午节"));
    page_->ShowDate(2012, 1, 1);
    EXPECT_EQ(Note(1), ToQString(u8"元旦"));
}

TEST_F(CalendarPageTest, AClickChoosesADay) {
    ClickCell(CellOf(22));
    EXPECT_EQ(Boxes(), Expect(2011, u8"六月", 22));
    EXPECT_EQ(Chosen(), 22);
    EXPECT_EQ(Text(1106), ToQString(u8"星期三"));
    EXPECT_EQ(Text(1108), ToQString(u8"农历: [夏至] 辛卯 免年 　五月 廿一"));
}

TEST_F(CalendarPageTest, AClickOnAnEmptyCellChangesNothing) {
    ClickCell(Grid().model()->index(0, 0));
    EXPECT_EQ(Boxes(), Expect(2011, u8"六月", 18));
    EXPECT_EQ(Chosen(), 18);
    QTest::mouseClick(Grid().viewport(), Qt::LeftButton, Qt::ControlModifier,
                      Grid().visualRect(CellOf(18)).center());
    EXPECT_EQ(Chosen(), 18);
}

TEST_F(CalendarPageTest, ArrowsMoveByDaysAndWeeks) {
    Key(Qt::Key_Right);
    EXPECT_EQ(Chosen(), 19);
    Key(Qt::Key_Down);
    EXPECT_EQ(Chosen(), 26);
    Key(Qt::Key_Left);
    EXPECT_EQ(Chosen(), 25);
    Key(Qt::Key_Up);
    EXPECT_EQ(Boxes(), Expect(2011, u8"六月", 18));
}

TEST_F(CalendarPageTest, ArrowsGoOnIntoTheNeighbouringMonth) {
    page_->ShowDate(2011, 6, 30);
    Key(Qt::Key_Right);
    EXPECT_EQ(Boxes(), Expect(2011, u8"七月", 1));
    Key(Qt::Key_Up);
    EXPECT_EQ(Boxes(), Expect(2011, u8"六月", 24));
    page_->ShowDate(2011, 12, 28);
    Key(Qt::Key_Down);
    EXPECT_EQ(Boxes(), Expect(2012, u8"一月", 4));
}

TEST_F(CalendarPageTest, HomeEndAndPageKeys) {
    Key(Qt::Key_Home);
    EXPECT_EQ(Chosen(), 1);
    Key(Qt::Key_End);
    EXPECT_EQ(Chosen(), 30);
    Key(Qt::Key_PageUp);
    EXPECT_EQ(Boxes(), Expect(2011, u8"五月", 30));
    page_->ShowDate(2012, 3, 31);
    Key(Qt::Key_PageUp);
    EXPECT_EQ(Boxes(), Expect(2012, u8"二月", 29));
    Key(Qt::Key_PageDown);
    EXPECT_EQ(Boxes(), Expect(2012, u8"三月", 29));
}

TEST_F(CalendarPageTest, KeysStayWithinTheYears) {
    page_->ShowDate(1970, 1, 1);
    for (const auto key : {Qt::Key_Left, Qt::Key_Up, Qt::Key_PageUp}) {
        Key(key);
        EXPECT_EQ(Boxes(), Expect(1970, u8"一月", 1));
    }
}

TEST_F(CalendarPageTest, FirstAndLastColumnAreRedAndTheOthersBlack) {
    page_->ShowDate(2011, 6, 1);
    const QImage image = Grid().viewport()->grab().toImage();
    const auto has = [&](int day, look::Color color) {
        const QRect cell = Grid().visualRect(CellOf(day));
        for (int y = cell.top(); y < cell.center().y(); ++y) {
            for (int x = cell.left(); x < cell.right(); ++x) {
                if (image.pixelColor(x, y) == look::color(color)) {
                    return true;
                }
            }
        }
        return false;
    };
    EXPECT_TRUE(has(11, look::Color::red));
    EXPECT_TRUE(has(12, look::Color::red));
    EXPECT_FALSE(has(13, look::Color::red));
    EXPECT_TRUE(has(13, look::Color::ink));
    EXPECT_FALSE(has(12, look::Color::ink));
}

TEST_F(CalendarPageTest, TodayIsMarkedApartFromTheChosenDay) {
    page_->ShowDate(2011, 6, 1);
    const auto disc = [&](int day) {
        const QRect cell = Grid().visualRect(CellOf(day));
        const QImage image = Grid().viewport()->grab().toImage();
        return image.pixelColor(
                   cell.right() - look::Metric::calendarTodayInset - look::Metric::badge / 2,
                   cell.top() + look::Metric::calendarTodayInset + 2) ==
               look::color(look::Color::plum6);
    };
    EXPECT_TRUE(disc(18));
    EXPECT_FALSE(disc(17));
    EXPECT_FALSE(disc(1));
}

TEST_F(CalendarPageTest, AScreenReaderHearsTheWholeDay) {
    EXPECT_EQ(CellOf(18).data(Qt::AccessibleTextRole).toString(),
              ToQString(u8"2011-06-18 星期六 十七 今天"));
    QAccessibleInterface* grid = QAccessible::queryAccessibleInterface(&Grid());
    ASSERT_NE(grid, nullptr);
    ASSERT_NE(grid->tableInterface(), nullptr);
    EXPECT_EQ(grid->tableInterface()->cellAt(3, 0)->text(QAccessible::Name),
              CellOf(19).data(Qt::AccessibleTextRole).toString());
    EXPECT_EQ(grid->tableInterface()->cellAt(0, 0)->text(QAccessible::Name),
              ToQString(u8"空"));  // June began on a Wednesday
    for (const int number : {1102, 1103, 1104, 1105, 1107, 1111, 1112}) {
        EXPECT_FALSE(Find(number).accessibleName().isEmpty()) << number;
    }
}

TEST_F(CalendarPageTest, EveryMonthOfThePageCanBeShown) {
    for (int year = kFirstCalendarYear; year <= kLastCalendarYear; ++year) {
        for (int month = 1; month <= 12; ++month) {
            page_->ShowDate(year, month, 1);
            ASSERT_EQ(Chosen(), 1);
            ASSERT_EQ(CellOf(1).row(), 0);
        }
    }
}

TEST_F(CalendarPageTest, EachWeekHasRoomForItsLinesHoweverLowThePage) {
    today_ = {2026, 8, 1};  // a Saturday
    Click(1107);
    ASSERT_EQ(Grid().model()->rowCount(), 6);
    page_->resize(look::Metric::pageWidth, 1);
    QCoreApplication::processEvents();
    for (int week = 0; week < 6; ++week) {
        EXPECT_GE(Grid().rowHeight(week), 42) << week;
    }
}

}  // namespace
}  // namespace quorvi
