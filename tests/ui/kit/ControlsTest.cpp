// The small controls, found by number and driven by mouse and keys.
#include <gtest/gtest.h>

#include <QHelpEvent>
#include <QScrollArea>
#include <QSignalSpy>
#include <QTest>
#include <QToolTip>
#include <QVBoxLayout>

#include "tests/support/QtTest.h"
#include "ui/kit/ControlNumber.h"
#include "ui/kit/QtText.h"
#include "ui/kit/SkinButtons.h"
#include "ui/kit/SkinChecks.h"
#include "ui/kit/SkinFields.h"
#include "ui/kit/SkinLabels.h"
#include "ui/kit/SkinMenu.h"
#include "ui/look/Look.h"

namespace quorvi {
namespace {

const QPoint kOutside(-30, -30);

class ControlsTest : public QtTest {
  protected:
    void SetUp() override {
        layout_ = new QVBoxLayout(&window_);
        window_.resize(400, 400);
    }
    template <typename Control>
    Control* Add(Control* control, int number, const QString& name = {}) {
        layout_->addWidget(SetControlNumber(control, number, name));
        return control;
    }
    void Show() { ShowActive(window_); }
    static QPoint Middle(const QWidget* widget) { return widget->rect().center(); }

    QWidget window_;
    QVBoxLayout* layout_ = nullptr;
};

TEST_F(ControlsTest, AControlIsFoundByItsNumber) {
    auto* toggle = Add(new CSkinToggle, 1351, QStringLiteral("蓝牙"));
    EXPECT_EQ(FindControl<CSkinToggle>(&window_, 1351), toggle);
    EXPECT_EQ(toggle->accessibleName(), QStringLiteral("蓝牙"));
    EXPECT_EQ(FindControl(&window_, 1352), nullptr);
}

TEST_F(ControlsTest, ALabelKeepsItsTextReadable) {
    auto* label = Add(new CSkinStateLabel(QStringLiteral("就绪")), 1366, QStringLiteral("状态"));
    EXPECT_TRUE(label->accessibleName().isEmpty());
}

TEST_F(ControlsTest, APressReleasedOutsideLeavesAToggleAsItWasAndSendsNothing) {
    auto* toggle = Add(new CSkinToggle, 1);
    Show();
    QSignalSpy clicked(toggle, &QAbstractButton::clicked);
    QTest::mousePress(toggle, Qt::LeftButton, {}, Middle(toggle));
    EXPECT_TRUE(toggle->isDown());
    QTest::mouseMove(toggle, kOutside);
    QTest::mouseRelease(toggle, Qt::LeftButton, {}, kOutside);
    EXPECT_EQ(toggle->GetCheck(), 0);
    EXPECT_EQ(clicked.count(), 0);
    EXPECT_FALSE(toggle->isDown());
}

TEST_F(ControlsTest, APressReleasedOutsideACheckLeavesItAsItWas) {
    auto* check = Add(new CSkinCheck(QStringLiteral("隐藏系统应用")), 1043);
    check->SetCheck(1);
    Show();
    QSignalSpy clicked(check, &QAbstractButton::clicked);
    QTest::mousePress(check, Qt::LeftButton, {}, Middle(check));
    QTest::mouseRelease(check, Qt::LeftButton, {}, kOutside);
    EXPECT_EQ(check->GetCheck(), 1);
    EXPECT_EQ(clicked.count(), 0);
}

TEST_F(ControlsTest, AToggleFlipsBeforeTheParentHears) {
    auto* toggle = Add(new CSkinToggle, 1);
    Show();
    int seen = -1;
    QObject::connect(toggle, &QAbstractButton::clicked, toggle, [&] { seen = toggle->GetCheck(); });
    QTest::mouseClick(toggle, Qt::LeftButton, {}, Middle(toggle));
    EXPECT_EQ(seen, 1);
    QTest::mouseClick(toggle, Qt::LeftButton, {}, Middle(toggle));
    EXPECT_EQ(seen, 0);
}

TEST_F(ControlsTest, SettingTheCheckTurnsOnForOneAndOffForAnyOtherValue) {
    CSkinToggle toggle;
    CSkinCheck check;
    for (const int value : {0, 2, -1, 255, INT_MAX, INT_MIN}) {
        toggle.SetCheck(1);
        check.SetCheck(1);
        ASSERT_EQ(toggle.GetCheck(), 1);
        ASSERT_EQ(check.GetCheck(), 1);
        toggle.SetCheck(value);
        check.SetCheck(value);
        EXPECT_EQ(toggle.GetCheck(), 0) << value;
        EXPECT_EQ(check.GetCheck(), 0) << value;
    }
}

TEST_F(ControlsTest, SettingTheCheckTellsTheParentNothing) {
    CSkinToggle toggle;
    QSignalSpy clicked(&toggle, &QAbstractButton::clicked);
    toggle.SetCheck(1);
    toggle.SetCheck(0);
    EXPECT_EQ(clicked.count(), 0);
}

TEST_F(ControlsTest, ACheckThatShowsAFactCannotBeChanged) {
    auto* check = Add(new CSkinCheck(QStringLiteral("自动安装")), 1382);
    check->ShowFact(1);
    Show();
    QTest::mouseClick(check, Qt::LeftButton, {}, Middle(check));
    EXPECT_EQ(check->GetCheck(), 1);
    EXPECT_FALSE(check->isEnabled());
}

TEST_F(ControlsTest, TheCaptionOfAFactIsNotGreyedOut) {
    auto* fact = Add(new CSkinCheck(QStringLiteral("自动安装")), 1);
    auto* off = Add(new CSkinCheck(QStringLiteral("自动安装")), 2);
    fact->ShowFact(1);
    off->SetCheck(1);
    off->setEnabled(false);
    Show();
    EXPECT_NE(fact->grab().toImage(), off->grab().toImage());
}

TEST_F(ControlsTest, AnElidedLabelSaysAllOfItsTextInItsTip) {
    const QString text = QStringLiteral("/home/user/QuorviDownload/com.example.xingtu.apk");
    auto* label = Add(new ElidedLabel(text, look::Size::s13, look::Color::ink), 1393);
    Show();
    const auto askForTheTip = [&] {
        QHelpEvent help(QEvent::ToolTip, Middle(label), label->mapToGlobal(Middle(label)));
        QApplication::sendEvent(label, &help);
    };
    label->setFixedWidth(100);
    askForTheTip();
    EXPECT_EQ(QToolTip::text(), text);
    label->setFixedWidth(2'000);
    askForTheTip();
    EXPECT_TRUE(WaitFor([] { return QToolTip::text().isEmpty(); }));
}

TEST_F(ControlsTest, AToggleSaysItsStateInWords) {
    CSkinToggle toggle;
    EXPECT_EQ(toggle.text(), ToQString(u8"已禁用"));
    toggle.SetCheck(1);
    EXPECT_EQ(toggle.text(), ToQString(u8"已启用"));
}

TEST_F(ControlsTest, TheCursorOverAButtonIsTheHand) {
    EXPECT_EQ(CSkinButton(QString()).cursor().shape(), Qt::PointingHandCursor);
    EXPECT_EQ(SkinLink(QString()).cursor().shape(), Qt::PointingHandCursor);
    EXPECT_EQ(CSkinToggle().cursor().shape(), Qt::PointingHandCursor);
}

TEST_F(ControlsTest, AButtonIsClickedByMouseAndBySpace) {
    auto* button = Add(new CSkinButton(QStringLiteral("刷新")), 1047);
    Show();
    QSignalSpy clicked(button, &QAbstractButton::clicked);
    QTest::mouseClick(button, Qt::LeftButton, {}, Middle(button));
    EXPECT_EQ(clicked.count(), 1);
    button->setFocus();
    QTest::keyClick(button, Qt::Key_Space);
    EXPECT_EQ(clicked.count(), 2);
    QTest::mouseClick(button, Qt::RightButton, {}, Middle(button));
    EXPECT_EQ(clicked.count(), 2);
}

TEST_F(ControlsTest, AQuickSecondClickCounts) {
    auto* toggle = Add(new CSkinToggle, 1);
    Show();
    QTest::mouseClick(toggle, Qt::LeftButton, {}, Middle(toggle));
    // The second press of a double click comes as an event of its own.
    QTest::mouseDClick(toggle, Qt::LeftButton, {}, Middle(toggle));
    QTest::mouseRelease(toggle, Qt::LeftButton, {}, Middle(toggle));
    EXPECT_EQ(toggle->GetCheck(), 0);
}

TEST_F(ControlsTest, ADisabledButtonDoesNothing) {
    auto* button = Add(new CSkinButton(QStringLiteral("刷新")), 1047);
    button->setEnabled(false);
    Show();
    QSignalSpy clicked(button, &QAbstractButton::clicked);
    QTest::mouseClick(button, Qt::LeftButton, {}, Middle(button));
    EXPECT_EQ(clicked.count(), 0);
}

TEST_F(ControlsTest, AButtonDisabledWhilePressedLetsGo) {
    auto* button = Add(new CSkinButton(QStringLiteral("刷新")), 1047);
    Show();
    QSignalSpy clicked(button, &QAbstractButton::clicked);
    QTest::mousePress(button, Qt::LeftButton, {}, Middle(button));
    button->setEnabled(false);
    button->setEnabled(true);
    QTest::mouseRelease(button, Qt::LeftButton, {}, Middle(button));
    EXPECT_EQ(clicked.count(), 0);
    EXPECT_FALSE(button->isDown());
}

TEST_F(ControlsTest, CommandButtonsHaveTheirPlaceAndTakeANewImage) {
    CSkinStripButton button(QStringLiteral("重新获取"));
    EXPECT_EQ(button.sizeHint(), QSize(124, 32));
    button.SetImage(QStringLiteral("refresh"));
    EXPECT_EQ(button.Image(), QStringLiteral("refresh"));
    EXPECT_EQ(button.sizeHint(), QSize(124, 32));
}

TEST_F(ControlsTest, TheRingShowsAfterAKeyAndNotAfterAClick) {
    auto* first = Add(new CSkinButton(QStringLiteral("一")), 1);
    auto* second = Add(new CSkinButton(QStringLiteral("二")), 2);
    Show();
    QTest::mouseClick(first, Qt::LeftButton, {}, Middle(first));
    EXPECT_FALSE(FocusRing::ShownOn(first));
    QTest::keyClick(first, Qt::Key_Tab);
    EXPECT_TRUE(second->hasFocus());
    EXPECT_TRUE(FocusRing::ShownOn(second));
    QTest::mouseClick(second, Qt::LeftButton, {}, Middle(second));
    EXPECT_FALSE(FocusRing::ShownOn(second));
}

TEST_F(ControlsTest, TheRingIsDrawnOutsideTheControl) {
    auto* first = Add(new CSkinButton(QStringLiteral("一")), 1);
    auto* second = Add(new CSkinButton(QStringLiteral("二")), 2);
    Show();
    first->setFocus();
    QTest::keyClick(first, Qt::Key_Tab);
    ASSERT_TRUE(second->hasFocus());
    const QImage shown = window_.grab().toImage();
    const QPoint at = second->mapTo(&window_, QPoint(second->width() / 2, -3));
    EXPECT_EQ(shown.pixelColor(at), look::color(look::Color::plum6));
}

// A control whose inside takes the focus, as a view's does.
class Holder : public QWidget, public RingShape {
  public:
    QWidget inside{this};

    Holder() {
        setFixedSize(60, 30);
        inside.setFocusPolicy(Qt::TabFocus);
    }
    [[nodiscard]] QRectF RingRect() const override { return rect(); }
    [[nodiscard]] qreal RingRadius() const override { return 0; }
};

TEST_F(ControlsTest, TheRingGoesAroundAControlWhoseInsideHasTheFocus) {
    auto* first = Add(new CSkinButton(QStringLiteral("一")), 1);
    auto* holder = Add(new Holder, 2);
    Show();
    first->setFocus();
    QTest::keyClick(first, Qt::Key_Tab);
    ASSERT_TRUE(holder->inside.hasFocus());
    const QImage shown = window_.grab().toImage();
    const QPoint at = holder->mapTo(&window_, QPoint(30, -3));
    EXPECT_EQ(shown.pixelColor(at), look::color(look::Color::ring));
}

// The page cuts off what is drawn beyond its edge.
TEST_F(ControlsTest, TheRingIsWholeAtTheEdgeOfAPageThatScrolls) {
    QScrollArea area;
    area.setFrameShape(QFrame::NoFrame);
    area.resize(80, 32);
    auto* button = new CSkinButton(QStringLiteral("一"));
    button->resize(80, 32);
    area.setWidget(button);
    ShowActive(area);
    button->setFocus();
    QTest::keyClick(button, Qt::Key_Home);
    ASSERT_TRUE(FocusRing::ShownOn(button));
    const QImage shown = area.grab().toImage();
    const QColor ring = look::color(look::Color::ring);
    EXPECT_EQ(shown.pixelColor(40, 0), ring);
    EXPECT_EQ(shown.pixelColor(40, 31), ring);
    EXPECT_EQ(shown.pixelColor(0, 16), ring);
    EXPECT_EQ(shown.pixelColor(79, 16), ring);
}

TEST_F(ControlsTest, StateLabelsTakeTheStatedColours) {
    struct Case {
        int state;
        QRgb dot;
    };
    for (const Case& each :
         {Case{0, 0xFF0000FF}, Case{1, 0xFFFF0000}, Case{2, 0xFF1D9014}, Case{7, 0xFF0000FF}}) {
        CSkinStateLabel label(QStringLiteral("连接成功:)"));
        label.SetState(each.state);
        label.resize(120, 18);
        const QImage image = label.grab().toImage();
        EXPECT_EQ(image.pixel(4, 9), each.dot) << each.state;
    }
}

TEST_F(ControlsTest, SearchIsAskedForByEnterWhateverTheBoxHolds) {
    auto* search = Add(new CSearchEdit(QStringLiteral("搜索软件、游戏")), 1026);
    Show();
    QSignalSpy asked(search, &CSearchEdit::searchAsked);
    search->setFocus();
    QTest::keyClick(search, Qt::Key_Return);
    ASSERT_EQ(asked.count(), 1);
    EXPECT_EQ(asked[0][0].toString(), QString());
    QTest::keyClicks(search, QStringLiteral("ab"));
    QTest::keyClick(search, Qt::Key_Enter);
    ASSERT_EQ(asked.count(), 2);
    EXPECT_EQ(asked[1][0].toString(), QStringLiteral("ab"));
}

TEST_F(ControlsTest, AMenuKnowsItsItemsByCommand) {
    CSkinMenu menu;
    menu.SetStrip({QStringLiteral("run"), QStringLiteral("uninstall")});
    menu.AddItem(CSkinMenu::normal, 32790, 0, QStringLiteral("立即运行"));
    QAction* off = menu.AddItem(CSkinMenu::disabled, 32791, 1, QStringLiteral("删除卸载"));
    QAction* bare = menu.AddItem(CSkinMenu::normal, 32792, 7, QStringLiteral("商城搜索"));
    EXPECT_FALSE(off->isEnabled());
    EXPECT_TRUE(bare->icon().isNull());
    EXPECT_EQ(CSkinMenu::CommandOf(nullptr), 0);
    QSignalSpy chosen(&menu, &CSkinMenu::commandChosen);
    menu.popup(QPoint(0, 0));
    QTest::keyClick(&menu, Qt::Key_Down);
    QTest::keyClick(&menu, Qt::Key_Return);
    ASSERT_EQ(chosen.count(), 1);
    EXPECT_EQ(chosen[0][0].toInt(), 32790);
}

TEST_F(ControlsTest, AnImageComboShowsTheIconOfEachIndex) {
    CSkinImageCombo combo;
    combo.addItems({QStringLiteral("个人"), QStringLiteral("手机")});
    combo.resize(160, 30);
    const QImage plain = combo.grab().toImage();
    combo.SetImageList({QStringLiteral("call")});
    EXPECT_NE(combo.grab().toImage(), plain);
    combo.setCurrentIndex(1);
    const QImage second = combo.grab().toImage();
    combo.SetImageList({});
    EXPECT_EQ(combo.grab().toImage(), second);  // there was none for index 1
}

}  // namespace
}  // namespace quorvi
