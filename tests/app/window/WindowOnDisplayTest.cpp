// The window on a display of the test's own, whose size and scale differ from run to run.
#include <xcb/xcb.h>

#include <QScreen>
#include <algorithm>
#include <cstdlib>
#include <memory>
#include <span>

#include "tests/app/window/MainDlgFixture.h"
#include "tests/support/PrintQt.h"
#include "ui/kit/SkinDialog.h"

namespace quorvi {
namespace {

class WindowOnADisplay : public MainDlgTest {
  protected:
    void SetUp() override { ASSERT_EQ(QGuiApplication::platformName(), QStringLiteral("xcb")); }

    [[nodiscard]] static QRect Free() { return QApplication::primaryScreen()->availableGeometry(); }
    [[nodiscard]] static QRect OnScreen(const QWidget& widget) {
        return {widget.mapToGlobal(QPoint()), widget.size()};
    }
    // Whether the display has `upper` in front of `lower`.
    [[nodiscard]] static bool InFront(const QWidget& upper, const QWidget& lower) {
        xcb_connection_t* display =
            qApp->nativeInterface<QNativeInterface::QX11Application>()->connection();
        const xcb_window_t root = xcb_setup_roots_iterator(xcb_get_setup(display)).data->root;
        const std::unique_ptr<xcb_query_tree_reply_t, decltype(&std::free)> tree(
            xcb_query_tree_reply(display, xcb_query_tree(display, root), nullptr), &std::free);
        // From the back to the front.
        const std::span windows(
            xcb_query_tree_children(tree.get()),
            static_cast<std::size_t>(xcb_query_tree_children_length(tree.get())));
        const auto at = [&](const QWidget& window) {
            return std::ranges::find(windows, static_cast<xcb_window_t>(window.winId()));
        };
        return at(upper) != windows.end() && at(lower) != windows.end() && at(upper) > at(lower);
    }
};

TEST_F(WindowOnADisplay, LiesInWhatIsFreeOfTheScreen) {
    MakeWindow();
    EXPECT_TRUE(WaitFor([&] { return Free().contains(window_->frameGeometry()); }));
    EXPECT_LE(window_->width(), 962);
    EXPECT_LE(window_->height(), 642);
    EXPECT_TRUE(window_->width() == 962 || window_->width() == Free().width());
    EXPECT_TRUE(window_->height() == 642 || window_->height() == Free().height());
}

TEST_F(WindowOnADisplay, CaptionAndStatusAreInReach) {
    MakeWindow();
    for (const int control : {10200, 10201, 10202, 1051, 1052, 1366}) {
        EXPECT_TRUE(Free().contains(OnScreen(Find(control)))) << control;
        EXPECT_FALSE(Find(control).visibleRegion().isEmpty()) << control;
    }
}

TEST_F(WindowOnADisplay, APlaceOnALargerDisplayIsBroughtIntoView) {
    settings_.WriteText(kSettingsKey, "window_place", "3000 -200 1900 1000");
    MakeWindow();
    EXPECT_TRUE(WaitFor([&] { return Free().contains(window_->frameGeometry()); }));
    EXPECT_TRUE(Free().contains(OnScreen(Find(10200))));
}

TEST_F(WindowOnADisplay, ADialogLargerThanTheScreenFitsIntoIt) {
    MakeWindow();
    SkinDialog dialog(141, QStringLiteral("large"), window_.get());
    dialog.SetInnerSize({760, 540});
    auto* button = dialog.AddEndButton(1, QStringLiteral("end"), QDialog::Accepted);
    dialog.open();
    EXPECT_TRUE(WaitFor([&] { return Free().contains(dialog.frameGeometry()); }));
    EXPECT_TRUE(Free().contains(OnScreen(*button)));
}

TEST_F(WindowOnADisplay, ADialogStaysInFrontOfAWindowThatIsShownLater) {
    MakeWindow(true);
    SkinDialog chooser(533, QStringLiteral("chooser"), window_.get());
    chooser.QDialog::open();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&chooser, kPatience));
    tray_.events.command(TrayCommand::showWindow);
    ASSERT_TRUE(QTest::qWaitForWindowExposed(window_.get(), kPatience));
    EXPECT_TRUE(WaitFor([&] { return InFront(chooser, *window_); }));
}

}  // namespace
}  // namespace quorvi
