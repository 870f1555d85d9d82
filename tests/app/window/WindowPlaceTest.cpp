// Where the main window stands: in view, where it was left, and with its caption in reach.
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
#include <array>
#include <future>
#include <map>

#include "app/window/WindowPlace.h"
#include "tests/app/window/MainDlgFixture.h"
#include "tests/support/PrintQt.h"
#include "ui/page/Job.h"

namespace quorvi {
namespace {

const std::string kKey(kSettingsKey);
const std::string kName(kWindowPlace);

class PlaceOfTheWindow : public MainDlgTest {
  protected:
    void TearDown() override {
        EXPECT_TRUE(WaitFor([] { return RunningJobs() == 0; }));
    }
    [[nodiscard]] std::string Stored() const {
        return settings_.ReadText(kKey, kName).value_or("");
    }
    void SetStored(const std::string& text) { settings_.WriteText(kKey, kName, text); }
    [[nodiscard]] static QRect Free() { return QApplication::primaryScreen()->availableGeometry(); }
    QRect PlaceOfNewWindow() {
        MakeWindow();
        return window_->geometry();
    }
};

TEST_F(PlaceOfTheWindow, AtFirstItStandsInTheMiddleOfTheScreenInItsUsualSize) {
    const QRect place = PlaceOfNewWindow();
    EXPECT_EQ(place.size(), QSize(962, 642));
    EXPECT_EQ(place.center(), Free().center());
}

TEST_F(PlaceOfTheWindow, SizeAndPlaceAreThoseOfTheLastTime) {
    MakeWindow();
    const QRect chosen(40, 50, 1100, 700);
    window_->setGeometry(chosen);
    ASSERT_TRUE(WaitFor([&] { return Stored() == "40 50 1100 700"; }));
    window_.reset();
    EXPECT_EQ(PlaceOfNewWindow(), chosen);
}

TEST_F(PlaceOfTheWindow, AWindowThatNobodyMovedStoresNothing) {
    MakeWindow();
    const QRect place = window_->geometry();
    window_->move(place.topLeft() + QPoint(9, 9));
    window_->move(place.topLeft());
    window_->close();
    ASSERT_TRUE(WaitFor([&] { return ended_ == 1; }));
    EXPECT_EQ(Stored(), "");
}

TEST_F(PlaceOfTheWindow, ClosingStoresTheLastMoveBeforeTheEnd) {
    MakeWindow();
    window_->move(7, 8);
    window_->close();
    ASSERT_TRUE(WaitFor([&] { return ended_ == 1; }));
    EXPECT_EQ(Stored(), "7 8 962 642");
}

TEST_F(PlaceOfTheWindow, AMinimisedWindowIsStoredAsItStoodBefore) {
    MakeWindow();
    window_->showMinimized();
    Settle();
    window_->close();
    ASSERT_TRUE(WaitFor([&] { return ended_ == 1; }));
    EXPECT_EQ(Stored(), "");
}

TEST_F(PlaceOfTheWindow, APlaceOnAScreenThatIsGoneIsBroughtIntoView) {
    SetStored("5000 -4000 1000 700");
    EXPECT_EQ(PlaceOfNewWindow(), QRect(Free().right() + 1 - 1000, Free().top(), 1000, 700));
}

TEST_F(PlaceOfTheWindow, ASizeOfALargerScreenIsReduced) {
    SetStored("100 100 4000 3000");
    EXPECT_EQ(PlaceOfNewWindow(), Free());
}

TEST_F(PlaceOfTheWindow, ASizeThatHoldsNoPageIsMadeLarger) {
    SetStored("100 100 5 5");
    EXPECT_EQ(PlaceOfNewWindow(), QRect(100, 100, 802, 482));
}

TEST_F(PlaceOfTheWindow, AValueThatIsNoPlaceCountsForNone) {
    const QRect usual = PlaceOfNewWindow();
    for (const char* text : {"", "1 2 900", "1 2 900 600 5", "a b c d", "1 2 0 600", "1 2 -900 600",
                             "99999999999 2 900 600", "1,2,900,600"}) {
        SetStored(text);
        EXPECT_EQ(PlaceOfNewWindow(), usual) << text;
    }
}

TEST_F(PlaceOfTheWindow, AScreenThatGoesBringsTheWindowIntoView) {
    MakeWindow();
    window_->move(5000, 100);
    Q_EMIT qApp->screenRemoved(QApplication::primaryScreen());
    EXPECT_TRUE(WaitFor([&] { return Free().contains(window_->geometry()); }));
}

TEST_F(PlaceOfTheWindow, APanelThatComesBringsTheWindowIntoView) {
    MakeWindow();
    window_->move(Free().bottomRight() - QPoint(50, 50));
    QScreen& screen = *QApplication::primaryScreen();
    Q_EMIT screen.availableGeometryChanged(screen.availableGeometry());
    EXPECT_TRUE(WaitFor([&] { return Free().contains(window_->geometry()); }));
}

// Settings on a disk that does not answer.
class StalledSettings : public MemorySettings {
  public:
    ~StalledSettings() override { Go(); }
    bool WriteText(std::string_view, std::string_view, std::string_view) override {
        answer_.get_future().wait();
        return false;
    }
    void Go() {
        if (!std::exchange(gone_, true)) {
            answer_.set_value();
        }
    }

  private:
    std::promise<void> answer_;
    bool gone_ = false;
};

TEST_F(PlaceOfTheWindow, ADiskThatDoesNotAnswerDoesNotKeepTheProgram) {
    StalledSettings stalled;
    QWidget window;
    window.show();
    auto* place = new WindowPlace(window, stalled, {.usual = {300, 200}, .least = {100, 100}});
    place->Restore();
    window.move(3, 4);
    int ended = 0;
    place->StoreThen([&] { ++ended; });
    EXPECT_EQ(ended, 0);
    EXPECT_TRUE(WaitFor([&] { return ended == 1; }));
    stalled.Go();
    ASSERT_TRUE(WaitFor([] { return RunningJobs() == 0; }));
    EXPECT_EQ(ended, 1);
}

// ---- what a small window shows -----------------------------------------------------------------

class SmallWindow : public MainDlgTest {
  protected:
    static constexpr std::array kCaptionButtons = {10200, 10201, 10202, 1051, 1052};
    std::map<int, int> usualWidths_;

    void SetUp() override {
        MakeWindow();
        for (const int button : kCaptionButtons) {
            usualWidths_[button] = Find(button).width();
        }
        window_->resize(window_->minimumSize());
        Settle();
    }
    [[nodiscard]] QScrollArea& View() const { return *window_->findChild<QScrollArea*>(); }
};

TEST_F(SmallWindow, KeepsCaptionStatusAndItemsInReach) {
    const QRect inside = window_->contentsRect();
    for (const char* name : {"caption", "navigation", "commands", "status"}) {
        const auto* part = window_->findChild<QWidget*>(QLatin1StringView(name));
        EXPECT_TRUE(inside.contains(QRect(part->mapTo(window_.get(), QPoint()), part->size())))
            << name;
    }
    for (const int button : kCaptionButtons) {
        const QWidget& control = Find(button);
        EXPECT_TRUE(inside.contains(QRect(control.mapTo(window_.get(), QPoint()), control.size())))
            << button;
        EXPECT_EQ(control.width(), usualWidths_.at(button)) << button;
    }
    EXPECT_TRUE(ItemsOf(*window_).viewport()->rect().contains(
        ItemsOf(*window_).visualItemRect(ItemsOf(*window_).item(6))));
}

TEST_F(SmallWindow, APageThatNeedsMoreHeightScrolls) {
    EXPECT_EQ(View().verticalScrollBar()->maximum(), 0);
    window_->ShownPage()->setMinimumHeight(462);
    ASSERT_TRUE(WaitFor([&] { return View().verticalScrollBar()->maximum() > 0; }));
    EXPECT_EQ(window_->ShownPage()->height(), 462);
    window_->resize(962, 642);
    EXPECT_TRUE(WaitFor([&] { return View().verticalScrollBar()->maximum() == 0; }));
}

TEST_F(SmallWindow, APageIsNeverNarrowerThanItsListsCanBe) {
    EXPECT_EQ(window_->ShownPage()->width(), 690);
    EXPECT_GT(View().horizontalScrollBar()->maximum(), 0);
}

TEST_F(SmallWindow, OnAScreenOf960ByTheHalfNothingScrolls) {
    window_->resize(960, 540);
    Settle();
    EXPECT_EQ(View().horizontalScrollBar()->maximum(), 0);
    EXPECT_EQ(View().verticalScrollBar()->maximum(), 0);
}

}  // namespace
}  // namespace quorvi
