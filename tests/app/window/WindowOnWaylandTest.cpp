// The window on a Wayland desktop of the test's own, used with the mouse and looked at from
// outside: there a program neither hears nor tells where its windows stand.
#include <QFileDialog>
#include <QLabel>
#include <QPushButton>
#include <QWindow>
#include <functional>

#include "app/platform/BalloonCard.h"
#include "app/platform/DesktopTray.h"
#include "tests/app/window/MainDlgFixture.h"
#include "tests/support/FileDialogDriver.h"
#include "tests/support/PrintQt.h"
#include "tests/support/SeenScreen.h"
#include "ui/kit/FileDialogs.h"
#include "ui/kit/SkinDialog.h"
#include "ui/kit/SkinMenu.h"

namespace quorvi {
namespace {

// A colour that nothing else on the screen has.
const QColor kMark(1, 2, 250);

class WindowOnWayland : public MainDlgTest {
  protected:
    void SetUp() override {
        ASSERT_TRUE(QGuiApplication::platformName().startsWith(QStringLiteral("wayland")));
        ASSERT_TRUE(screen_.IsThere());
    }
    // Leaves the screen to the next, with nothing but the mouse's pointer on it.
    void TearDown() override {
        CloseFileDialog();
        window_.reset();
        EXPECT_TRUE(Stands([](const QRect& seen) { return seen.width() < kMarkSize.width(); }));
    }

    // What stands on the screen comes to meet this. The mouse's pointer is part of it, and waits in
    // the middle of the display, over the window wherever the desktop puts that.
    [[nodiscard]] testing::AssertionResult Stands(const std::function<bool(const QRect&)>& met) {
        QRect seen;
        if (WaitFor([&] {
                screen_.EnterAt(kMiddle);
                seen = screen_.Standing();
                return met(seen);
            })) {
            place_ = seen;
            return testing::AssertionSuccess();
        }
        return testing::AssertionFailure() << "seen " << seen.x() << ' ' << seen.y() << ' '
                                           << seen.width() << 'x' << seen.height();
    }
    // Shows the window, and waits until all of it is on the screen.
    void Open() {
        MakeWindow();
        EXPECT_TRUE(Stands([this](const QRect& seen) { return seen.size() == window_->size(); }));
    }
    // Drags, and waits until the window stands there.
    void DragTo(QPoint from, QPoint by, const QRect& expected) {
        SeenScreen::Drag(place_.topLeft() + from, by,
                         [&] { return screen_.Standing().contains(expected); });
        EXPECT_TRUE(Stands([&](const QRect& seen) { return seen == expected; }))
            << "expected " << expected.x() << ' ' << expected.y() << ' ' << expected.width() << 'x'
            << expected.height();
    }
    // The desktop puts it anywhere: there is room on all sides then.
    void DragToTheMiddle() {
        const QPoint by = QPoint(120, 60) - place_.topLeft();
        DragTo({330, 12}, by, place_.translated(by));
    }
    // Something that is all of kMark.
    static QLabel* Marked(QWidget* parent) {
        auto* label = new QLabel(parent);
        label->setFixedSize(kMarkSize);
        QPalette palette = label->palette();
        palette.setColor(QPalette::Window, kMark);
        label->setPalette(palette);
        label->setAutoFillBackground(true);
        return label;
    }
    [[nodiscard]] bool SeesAllOfTheMark() {
        return WaitFor([this] { return screen_.Around(kMark).size() == kMarkSize; });
    }

    static constexpr QPoint kMiddle{600, 400};
    static constexpr QSize kMarkSize{200, 60};
    SeenScreen screen_;
    QRect place_;  // of the window on the display
};

TEST_F(WindowOnWayland, AllOfItStandsOnTheScreenAndItsCornersAreRound) {
    Open();
    EXPECT_EQ(place_.size(), QSize(962, 642));
    const QImage picture = screen_.Picture();
    for (const QPoint corner :
         {place_.topLeft(), place_.topRight(), place_.bottomLeft(), place_.bottomRight()}) {
        EXPECT_EQ(picture.pixelColor(corner), QColor(0, 255, 0));
    }
    EXPECT_EQ(picture.pixelColor(place_.topLeft() + QPoint(330, 12)),
              window_->grab().toImage().pixelColor(330, 12));
}

TEST_F(WindowOnWayland, ItsCaptionDragsIt) {
    Open();
    DragToTheMiddle();
    DragTo({330, 12}, {-60, 40}, place_.translated(-60, 40));
}

TEST_F(WindowOnWayland, ItsEdgesAndCornersResizeIt) {
    Open();
    DragToTheMiddle();
    DragTo({961, 300}, {40, 0}, place_.adjusted(0, 0, 40, 0));
    DragTo({300, 641}, {0, 32}, place_.adjusted(0, 0, 0, 32));
    EXPECT_EQ(window_->size(), place_.size());
    // weston itself leaves the right edge behind when the pointer begins faster than a hand.
    const QRect before = place_;
    SeenScreen::Drag(place_.topLeft(), {-20, -16}, [this, grown = place_.size() + QSize(20, 16)] {
        return window_->size() == grown;
    });
    EXPECT_TRUE(Stands([&](const QRect& seen) {
        return seen.size() == window_->size() && seen.left() < before.left() &&
               seen.top() < before.top();
    }));
}

TEST_F(WindowOnWayland, ADialogStandsOverTheWindowAndItsCaptionDragsIt) {
    Open();
    SkinDialog dialog(141, QStringLiteral("over"), window_.get());
    dialog.SetInnerSize({400, 240});
    Marked(&dialog)->move(100, 100);
    dialog.open();
    ASSERT_TRUE(SeesAllOfTheMark());
    EXPECT_EQ(dialog.windowHandle()->transientParent(), window_->windowHandle());
    const QPoint before = screen_.Around(kMark).topLeft();
    // A click beside it leaves it in front.
    SeenScreen::Click(place_.topLeft() + QPoint(330, 12));
    EXPECT_TRUE(SeesAllOfTheMark());
    SeenScreen::Drag(before + QPoint(-80, -85), {24, 16}, [&] {
        return screen_.Around(kMark) == QRect(before + QPoint(24, 16), kMarkSize);
    });
    EXPECT_TRUE(SeesAllOfTheMark());
}

TEST_F(WindowOnWayland, AMenuOpensWhereItIsAskedForAndTakesAClick) {
    Open();
    CSkinMenu menu(window_.get());
    menu.AddItem(CSkinMenu::normal, 11, -1, QStringLiteral("one"));
    menu.AddItem(CSkinMenu::normal, 12, -1, QStringLiteral("two"));
    int chosen = 0;
    QObject::connect(&menu, &CSkinMenu::commandChosen, &menu,
                     [&chosen](int command) { chosen = command; });
    QPushButton button(QStringLiteral("menu"), window_.get());
    button.setGeometry(400, 300, 120, 32);
    button.show();
    QObject::connect(&button, &QPushButton::pressed, &menu,
                     [&] { menu.popup(button.mapToGlobal(QPoint(0, button.height()))); });
    SeenScreen::Click(place_.topLeft() + button.geometry().center());
    ASSERT_TRUE(WaitFor([&] { return menu.isVisible() && menu.windowHandle()->isExposed(); }));
    const QRect second = menu.actionGeometry(menu.actions().at(1));
    SeenScreen::Click(place_.topLeft() + button.geometry().bottomLeft() + second.center());
    EXPECT_TRUE(WaitFor([&chosen] { return chosen == 12; })) << chosen;
    EXPECT_FALSE(menu.isVisible());
}

TEST_F(WindowOnWayland, TheChooserOpensOverTheWindow) {
    Open();
    AskOpenFile(*window_,
                {.title = QStringLiteral("open"),
                 .filters = {QStringLiteral("all (*)")},
                 .folder = QDir::tempPath()},
                [](const QString&) {});
    ASSERT_TRUE(WaitFor([] { return OpenFileDialog() != nullptr; }));
    QFileDialog& chooser = *OpenFileDialog();
    Marked(&chooser)->show();
    EXPECT_TRUE(SeesAllOfTheMark());
    EXPECT_EQ(chooser.windowHandle()->transientParent(), window_->windowHandle());
}

// Wayland itself has no tray; where the desktop brings none either, the window shows its balloons.
TEST_F(WindowOnWayland, WithoutATrayABalloonStandsInTheWindow) {
    DesktopTray tray;
    EXPECT_FALSE(tray.Available());
    tray.Add(QStringLiteral("tip"));
    EXPECT_FALSE(tray.ShowBalloon(QStringLiteral("title"), QStringLiteral("text")));
    tray_.available = false;
    notifier_.available = false;
    Open();
    window_->ShowBalloon(QStringLiteral("title"), QStringLiteral("text"));
    const auto* card = window_->findChild<BalloonCard*>();
    ASSERT_NE(card, nullptr);
    EXPECT_TRUE(card->isVisible());
    EXPECT_FALSE(card->isWindow());
    EXPECT_TRUE(window_->rect().contains(card->geometry().center()));
}

}  // namespace
}  // namespace quorvi
