#include <gtest/gtest.h>

#include <QApplication>
#include <QScreen>
#include <QTest>

#include "agent/Wire.h"
#include "pages/settings/LookGroup.h"
#include "pages/settings/SettingsPage.h"
#include "tests/support/FakeHost.h"
#include "tests/support/PrintQt.h"
#include "tests/support/TestServices.h"
#include "tests/support/WidgetTest.h"
#include "ui/kit/SkinChecks.h"
#include "ui/kit/SkinFields.h"
#include "ui/look/Theme.h"

namespace quorvi {
namespace {

using look::Theme;

class LookGroupTest : public WidgetTest {
  protected:
    LookGroupTest() { Open(); }
    void TearDown() override {
        look::ChooseTheme(std::nullopt);
        look::SetDesktopDark(false);
    }

    void Open() {
        page_ = std::make_unique<SettingsPage>(host_, services_.At(AgentPort));
        page_->resize(760, 1200);  // the group stands low
        page_->show();
        Rest();
    }
    void Rest() {
        ASSERT_TRUE(WaitFor([&] { return !page_->IsAtWork(); }));
    }
    SkinRadio& Radio(const char* name) {
        return *page_->findChild<SkinRadio*>(QString::fromLatin1(name));
    }
    CSkinCombo& Size() { return *page_->findChild<CSkinCombo*>(QStringLiteral("textSize")); }

    TestServices services_;
    FakeHost host_;
    std::unique_ptr<SettingsPage> page_;
};

TEST_F(LookGroupTest, WithoutAChoiceTheDesktopIsFollowed) {
    EXPECT_TRUE(Radio("lookSystem").isChecked());
    look::SetDesktopDark(true);
    EXPECT_EQ(look::CurrentTheme(), Theme::dark);
}

TEST_F(LookGroupTest, AChosenThemeIsDrawnAtOnceAndKept) {
    const std::tuple<const char*, Theme, LookChoice> all[] = {
        {"lookDark", Theme::dark, LookChoice::dark},
        {"lookContrast", Theme::contrast, LookChoice::contrast},
        {"lookLight", Theme::light, LookChoice::light},
    };
    for (const auto& [name, theme, choice] : all) {
        QTest::mouseClick(&Radio(name), Qt::LeftButton, {}, {8, 14});
        EXPECT_EQ(look::CurrentTheme(), theme) << name;
        Rest();
        EXPECT_EQ(ChosenLook(host_.Settings()), choice) << name;
    }
    Open();
    EXPECT_TRUE(Radio("lookLight").isChecked());
}

TEST_F(LookGroupTest, AClickOnAPictureChoosesItsTheme) {
    SkinRadio& radio = Radio("lookDark");
    const QPoint above = radio.mapTo(page_.get(), QPoint(radio.width() / 2, -20));
    QTest::mouseClick(page_->childAt(above), Qt::LeftButton);
    EXPECT_TRUE(radio.isChecked());
    EXPECT_EQ(look::CurrentTheme(), Theme::dark);
    Rest();
}

TEST_F(LookGroupTest, TheArrowKeysGoFromThemeToTheme) {
    QApplication::setActiveWindow(page_.get());
    Radio("lookSystem").setFocus();
    QTest::keyClick(&Radio("lookSystem"), Qt::Key_Right);
    EXPECT_TRUE(Radio("lookLight").isChecked());
    EXPECT_EQ(look::CurrentTheme(), Theme::light);
    QTest::keyClick(&Radio("lookLight"), Qt::Key_Right);
    EXPECT_EQ(look::CurrentTheme(), Theme::dark);
    Rest();
    EXPECT_EQ(ChosenLook(host_.Settings()), LookChoice::dark);
}

TEST_F(LookGroupTest, AChosenSizeOfTextIsKept) {
    EXPECT_EQ(Size().currentText(), QStringLiteral("100 %"));
    Size().setFocus();
    QTest::keyClick(&Size(), Qt::Key_Down);
    Rest();
    EXPECT_EQ(ChosenTextPercent(host_.Settings()), 110);
    Open();
    EXPECT_EQ(Size().currentText(), QStringLiteral("110 %"));
}

TEST_F(LookGroupTest, SizesWithWhichTheWindowFitsItsScreenAreOffered) {
    ASSERT_EQ(page_->screen()->availableSize(), QSize(1280, 1024));
    EXPECT_EQ(Size().count(), 4);
}

TEST_F(LookGroupTest, ASizeFitsWhereTheLeastWindowHasRoom) {
    EXPECT_TRUE(WindowFits({1280, 720}, 100, 150));
    EXPECT_FALSE(WindowFits({1280, 719}, 100, 150));
    EXPECT_FALSE(WindowFits({1024, 768}, 100, 150));
    EXPECT_TRUE(WindowFits({1024, 768}, 100, 125));
    // The screen seems smaller the larger the text is with which the program runs.
    EXPECT_TRUE(WindowFits({853, 480}, 150, 150));
    EXPECT_TRUE(WindowFits({800, 480}, 150, 125));
}

}  // namespace
}  // namespace quorvi
