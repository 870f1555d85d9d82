#include <QMouseEvent>

#include "tests/support/PrintQt.h"
#include "tests/support/WidgetTest.h"
#include "ui/kit/ResizeEdges.h"

namespace quorvi {
namespace {

constexpr QRect kPlace(100, 80, 600, 400);
constexpr QSize kLeast(500, 300);

// A window whose grips resize it themselves, as the platform does not.
class EdgesTest : public WidgetTest {
  protected:
    void SetUp() override {
        window_.setMinimumSize(kLeast);
        window_.setGeometry(kPlace);
        ResizeEdges::Attach(window_);
        window_.show();
        Settle();
    }
    [[nodiscard]] QWidget& Grip(const char* name) const {
        return *window_.findChild<QWidget*>(QLatin1StringView(name));
    }
    // The cursor at a point of the window.
    [[nodiscard]] Qt::CursorShape CursorAt(QPoint at) const {
        const QWidget* child = window_.childAt(at);
        return child == nullptr ? Qt::ArrowCursor : child->cursor().shape();
    }
    // Presses a grip, moves the pointer and lets go.
    QRect Drag(const char* name, QPoint by) {
        QWidget& grip = Grip(name);
        const QPoint from = grip.mapToGlobal(grip.rect().center());
        const auto send = [&](QEvent::Type type, QPoint at, Qt::MouseButtons held) {
            QMouseEvent event(type, grip.mapFromGlobal(at), at, Qt::LeftButton, held,
                              Qt::NoModifier);
            QApplication::sendEvent(&grip, &event);
        };
        send(QEvent::MouseButtonPress, from, Qt::LeftButton);
        send(QEvent::MouseMove, from + by / 2, Qt::LeftButton);
        send(QEvent::MouseMove, from + by, Qt::LeftButton);
        send(QEvent::MouseButtonRelease, from + by, Qt::NoButton);
        send(QEvent::MouseMove, from, Qt::NoButton);
        return window_.geometry();
    }

    QWidget window_{nullptr, Qt::Window | Qt::FramelessWindowHint};
};

TEST_F(EdgesTest, EachEdgeIsDraggedAloneAndACornerWithBoth) {
    EXPECT_EQ(Drag("resize right", {40, 30}), QRect(100, 80, 640, 400));
    EXPECT_EQ(Drag("resize bottom", {40, 30}), QRect(100, 80, 640, 430));
    EXPECT_EQ(Drag("resize left", {-20, 30}), QRect(80, 80, 660, 430));
    EXPECT_EQ(Drag("resize top", {40, -10}), QRect(80, 70, 660, 440));
    EXPECT_EQ(Drag("resize top left", {20, 10}), QRect(100, 80, 640, 430));
    EXPECT_EQ(Drag("resize bottom right", {-40, -30}), kPlace);
    EXPECT_EQ(Drag("resize top right", {10, -10}), QRect(100, 70, 610, 410));
    EXPECT_EQ(Drag("resize bottom left", {-10, 10}), QRect(90, 70, 620, 420));
}

TEST_F(EdgesTest, TheOppositeEdgeStaysWhereTheWindowIsSmallest) {
    EXPECT_EQ(Drag("resize top left", {500, 500}), QRect(QPoint(200, 180), kLeast));
    EXPECT_EQ(Drag("resize bottom right", {-500, -500}), QRect(QPoint(200, 180), kLeast));
}

TEST_F(EdgesTest, TheCursorTellsTheDirection) {
    EXPECT_EQ(CursorAt({1, 200}), Qt::SizeHorCursor);
    EXPECT_EQ(CursorAt({598, 200}), Qt::SizeHorCursor);
    EXPECT_EQ(CursorAt({300, 1}), Qt::SizeVerCursor);
    EXPECT_EQ(CursorAt({300, 398}), Qt::SizeVerCursor);
    EXPECT_EQ(CursorAt({1, 1}), Qt::SizeFDiagCursor);
    EXPECT_EQ(CursorAt({598, 398}), Qt::SizeFDiagCursor);
    EXPECT_EQ(CursorAt({598, 1}), Qt::SizeBDiagCursor);
    EXPECT_EQ(CursorAt({1, 398}), Qt::SizeBDiagCursor);
    EXPECT_EQ(CursorAt({300, 200}), Qt::ArrowCursor);
}

TEST_F(EdgesTest, TheGripsFollowTheWindowsSize) {
    window_.resize(900, 700);
    Settle();
    EXPECT_EQ(CursorAt({898, 350}), Qt::SizeHorCursor);
    EXPECT_EQ(CursorAt({450, 698}), Qt::SizeVerCursor);
    EXPECT_EQ(CursorAt({598, 350}), Qt::ArrowCursor);
}

TEST_F(EdgesTest, AWindowThatFillsItsScreenHasNoGrips) {
    window_.showMaximized();
    Settle();
    EXPECT_TRUE(Grip("resize left").isHidden());
    window_.showNormal();
    Settle();
    EXPECT_FALSE(Grip("resize left").isHidden());
}

TEST_F(EdgesTest, AnotherButtonDoesNotResize) {
    QTest::mousePress(&Grip("resize right"), Qt::RightButton);
    QMouseEvent move(QEvent::MouseMove, QPointF(0, 0), QPointF(900, 200), Qt::NoButton,
                     Qt::RightButton, Qt::NoModifier);
    QApplication::sendEvent(&Grip("resize right"), &move);
    EXPECT_EQ(window_.geometry(), kPlace);
    QTest::mouseRelease(&Grip("resize right"), Qt::RightButton);
}

}  // namespace
}  // namespace quorvi
