// The tray icon on a display of the test's own, on which a tray comes and goes.
#include <QProcess>

#include "app/platform/BalloonCard.h"
#include "app/platform/DesktopTray.h"
#include "tests/support/AwaitTimer.h"
#include "tests/support/WidgetTest.h"

namespace quorvi {
namespace {

// The tray icon's own look for a tray that went or came is once in two seconds.
constexpr std::chrono::milliseconds kLongerThanTheWatch{2500};

class TrayOnADisplay : public WidgetTest {
  protected:
    void SetUp() override { ASSERT_EQ(QGuiApplication::platformName(), QStringLiteral("xcb")); }
    void TearDown() override { EndTray(); }

    void StartTray() {
        program_.setStandardErrorFile(QProcess::nullDevice());
        program_.start(QStringLiteral("trayer"), QStringList());
        ASSERT_TRUE(program_.waitForStarted());
        ASSERT_TRUE(WaitFor([] { return QSystemTrayIcon::isSystemTrayAvailable(); }));
        // Asking made Qt want to hear of the tray's end, but Qt sends that wish only with its next
        // one. Without it a tray that is killed at once would be there for good.
        QGuiApplication::sync();
    }
    void EndTray() {
        if (program_.state() != QProcess::NotRunning) {
            program_.kill();
            EXPECT_TRUE(program_.waitForFinished());
            EXPECT_TRUE(WaitFor([] { return !QSystemTrayIcon::isSystemTrayAvailable(); }));
        }
    }
    void Add() {
        tray_.Listen({[this](TrayMouse mouse) { mice_.push_back(mouse); },
                      [this](TrayCommand command) { commands_.push_back(command); },
                      [this] { ++recreated_; }});
        tray_.Add(QStringLiteral("tip"));
    }
    // The icon's own window in the tray, once it has its place there; else null.
    [[nodiscard]] static QWidget* Icon() {
        const QWidgetList widgets = QApplication::topLevelWidgets();
        for (QWidget* widget : widgets) {
            if (widget->inherits("QSystemTrayIconSys") && widget->isVisible()) {
                return widget;
            }
        }
        return nullptr;
    }
    [[nodiscard]] static BalloonCard* Balloon() {
        const QWidgetList widgets = QApplication::topLevelWidgets();
        for (QWidget* widget : widgets) {
            if (auto* card = qobject_cast<BalloonCard*>(widget); card && card->isVisible()) {
                return card;
            }
        }
        return nullptr;
    }

    QProcess program_;
    DesktopTray tray_;
    std::vector<TrayMouse> mice_;
    std::vector<TrayCommand> commands_;
    int recreated_ = 0;
};

TEST_F(TrayOnADisplay, TheIconStandsInATrayThatIsThere) {
    StartTray();
    Add();
    EXPECT_TRUE(tray_.Available());
    ASSERT_TRUE(WaitFor([] { return Icon() != nullptr; }));
    EXPECT_EQ(Icon()->toolTip(), QStringLiteral("tip"));
    EXPECT_EQ(recreated_, 0);
    tray_.Remove();
    EXPECT_TRUE(WaitFor([] { return Icon() == nullptr; }));
}

TEST_F(TrayOnADisplay, ABalloonStandsBesideTheIcon) {
    StartTray();
    Add();
    EXPECT_TRUE(tray_.ShowBalloon(QStringLiteral("title"), QStringLiteral("text")));
    ASSERT_TRUE(WaitFor([] { return Balloon() != nullptr; }));
    EXPECT_EQ(Balloon()->Title(), QStringLiteral("title"));
    EXPECT_EQ(Balloon()->Text(), QStringLiteral("text"));
}

TEST_F(TrayOnADisplay, TheLeftButtonIsTold) {
    StartTray();
    Add();
    ASSERT_TRUE(WaitFor([] { return Icon() != nullptr; }));
    QTest::mouseClick(Icon(), Qt::LeftButton);
    EXPECT_TRUE(WaitFor([&] { return !mice_.empty(); }));
    EXPECT_EQ(mice_, std::vector{TrayMouse::leftDown});
}

TEST_F(TrayOnADisplay, ATrayThatComesLaterAsksForTheIcon) {
    Add();
    EXPECT_EQ(Icon(), nullptr);
    EXPECT_FALSE(tray_.ShowBalloon(QStringLiteral("title"), QStringLiteral("text")));
    StartTray();
    EXPECT_TRUE(WaitFor([&] { return recreated_ == 1; }));
}

TEST_F(TrayOnADisplay, ATrayThatGoesTakesTheBalloonsWithItAndComesBack) {
    StartTray();
    Add();
    ASSERT_TRUE(WaitFor([] { return Icon() != nullptr; }));
    EndTray();
    EXPECT_FALSE(tray_.ShowBalloon(QStringLiteral("title"), QStringLiteral("text")));
    ASSERT_TRUE(WaitFor([] { return Icon() == nullptr; }));
    AwaitTimer(kLongerThanTheWatch);
    StartTray();
    EXPECT_TRUE(WaitFor([&] { return recreated_ == 1; }));
}

}  // namespace
}  // namespace quorvi
