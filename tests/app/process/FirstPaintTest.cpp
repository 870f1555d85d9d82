#include "app/process/FirstPaint.h"
#include "tests/support/WidgetTest.h"

namespace quorvi {
namespace {

class PaintedWidget : public QWidget {
  public:
    using QWidget::QWidget;
    int paints = 0;

  protected:
    void paintEvent(QPaintEvent* /*event*/) override { ++paints; }
};

class FirstPaint : public WidgetTest {
  protected:
    void SetUp() override {
        window_.resize(100, 100);
        child_.resize(50, 50);
        AfterFirstPaint(window_, [this] {
            ++calls_;
            childPaintsBefore_ = child_.paints;
        });
    }

    PaintedWidget window_;
    PaintedWidget child_{&window_};
    int calls_ = 0;
    int childPaintsBefore_ = -1;
};

TEST_F(FirstPaint, ComesWhenAllThatIsInTheWindowHasBeenPainted) {
    window_.show();
    EXPECT_EQ(calls_, 0);
    ASSERT_TRUE(WaitFor([&] { return calls_ == 1; }));
    EXPECT_EQ(childPaintsBefore_, 1);
}

TEST_F(FirstPaint, ComesOnce) {
    window_.show();
    ASSERT_TRUE(WaitFor([&] { return calls_ == 1; }));
    window_.repaint();
    window_.hide();
    window_.show();
    ASSERT_TRUE(WaitFor([&] { return window_.paints >= 3; }));
    QCoreApplication::processEvents();
    EXPECT_EQ(calls_, 1);
}

TEST_F(FirstPaint, DoesNotComeForAWindowThatIsNotShown) {
    QWidget other;
    int calls = 0;
    AfterFirstPaint(other, [&] { ++calls; });
    window_.show();
    ASSERT_TRUE(WaitFor([&] { return calls_ == 1; }));
    EXPECT_EQ(calls, 0);
}

}  // namespace
}  // namespace quorvi
