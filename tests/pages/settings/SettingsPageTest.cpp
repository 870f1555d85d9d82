#include <QAccessible>
#include <QLineEdit>
#include <QSignalSpy>

#include "agent/Wire.h"
#include "base/CodePageChoice.h"
#include "pages/settings/SettingsPage.h"
#include "tests/support/FakeHost.h"
#include "tests/support/PrintQt.h"
#include "tests/support/TestServices.h"
#include "tests/support/WidgetTest.h"
#include "ui/kit/ControlNumber.h"
#include "ui/kit/QtText.h"
#include "ui/kit/SkinButtons.h"
#include "ui/kit/SkinChecks.h"
#include "ui/kit/SkinLabels.h"

namespace quorvi {
namespace {

class SettingsPageTest : public WidgetTest {
  protected:
    // The page, shown, after it has read what is written.
    void Open() {
        page_ = std::make_unique<SettingsPage>(host_, services_.At(AgentPort));
        page_->resize(760, 462);
        page_->show();
        Rest();
    }
    void Rest() {
        ASSERT_TRUE(WaitFor([&] { return !page_->IsAtWork(); }));
    }
    template <typename T>
    T& Control(int number) {
        return *FindControl<T>(page_.get(), number);
    }
    void Click(int number) {
        Control<QAbstractButton>(number).click();
        Rest();
    }

    TestServices services_;
    std::shared_ptr<FakeDesktop> desktop_ = services_.desktop;
    FakeHost host_;
    std::unique_ptr<SettingsPage> page_;
};

TEST_F(SettingsPageTest, ControlsHaveTheirCaptionsAndFourAreNeverShown) {
    Open();
    EXPECT_EQ(page_->objectName(), QStringLiteral("dialog 202"));
    const std::tuple<int, std::u8string_view, bool> buttons[] = {
        {1016, u8"启动Windows时自动运行奎维掌上工坊", true},
        {1017, u8"USB 连接到智能手机时自动运行 Quorvi", false},
        {1018, u8"隐藏到系统右下角托盘区", false},
        {1019, u8"完全退出 奎维掌上工坊", false},
        {1355, u8"修复组件", true},
    };
    for (const auto& [number, caption, shown] : buttons) {
        EXPECT_EQ(Control<QAbstractButton>(number).text(), ToQString(caption));
        EXPECT_EQ(Control<QAbstractButton>(number).isVisible(), shown) << number;
    }
    EXPECT_EQ(Control<CSkinStateLabel>(1109).text(), ToQString(u8"就绪"));
    EXPECT_EQ(Control<CSkinProgress>(1356).value(), 0);
    EXPECT_EQ(Control<CSkinCheck>(1017).GetCheck(), 1);
}

TEST_F(SettingsPageTest, BoxShowsWhetherTheDesktopStartsTheProgram) {
    Open();
    EXPECT_EQ(Control<CSkinCheck>(1016).GetCheck(), 0);
    desktop_->autoRuns = true;
    Open();
    EXPECT_EQ(Control<CSkinCheck>(1016).GetCheck(), 1);
}

TEST_F(SettingsPageTest, BoxWritesAndDeletesTheCommand) {
    Open();
    Click(1016);
    EXPECT_EQ(Control<CSkinCheck>(1016).GetCheck(), 1);
    Click(1016);
    EXPECT_EQ(Control<CSkinCheck>(1016).GetCheck(), 0);
    EXPECT_EQ(desktop_->Asked(), (std::vector<std::string>{"auto run", "no auto run"}));
}

TEST_F(SettingsPageTest, BoxThatAnAssistiveToolFlipsWritesTheCommand) {
    Open();
    QAccessible::queryAccessibleInterface(&Control<CSkinCheck>(1016))
        ->actionInterface()
        ->doAction(QAccessibleActionInterface::toggleAction());
    Rest();
    EXPECT_EQ(Control<CSkinCheck>(1016).GetCheck(), 1);
    EXPECT_EQ(desktop_->Asked(), std::vector<std::string>{"auto run"});
}

TEST_F(SettingsPageTest, CommandThatCannotBeWrittenLeavesTheBoxUnchecked) {
    desktop_->writable = false;
    Open();
    Click(1016);
    EXPECT_EQ(Control<CSkinCheck>(1016).GetCheck(), 0);
    EXPECT_TRUE(host_.statuses.isEmpty());
}

TEST_F(SettingsPageTest, RepairGoesThroughItsStepsInOrder) {
    Open();
    QSignalSpy progress(&Control<CSkinProgress>(1356), &QProgressBar::valueChanged);
    Click(1355);
    QList<int> values;
    for (const auto& signal : progress) {
        values.append(signal.front().toInt());
    }
    EXPECT_EQ(values, (QList<int>{10, 20, 30, 40, 100}));
    EXPECT_EQ(desktop_->Asked(), (std::vector<std::string>{"shortcut", "protocol"}));
    EXPECT_EQ(Control<CSkinStateLabel>(1109).text(),
              ToQString(u8"修复完成,仍然存在问题请尝试重装 Quorvi"));
}

TEST_F(SettingsPageTest, ControlsRestWhileWorkGoesOnAndTheFocusComesBack) {
    Open();
    page_->activateWindow();
    Control<CSkinButton>(1355).setFocus();
    Control<CSkinButton>(1355).click();
    EXPECT_FALSE(Control<CSkinButton>(1355).isEnabled());
    EXPECT_FALSE(Control<CSkinCheck>(1016).isEnabled());
    Rest();
    EXPECT_EQ(page_->focusWidget(), &Control<CSkinButton>(1355));
}

// The page in a window that has a field of its own, as the main window has its search box.
class SettingsBesideAField : public SettingsPageTest {
  protected:
    void SetUp() override {
        Open();
        page_->setParent(&window_);
        page_->show();
        window_.show();
        window_.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&window_));
    }
    void TearDown() override { page_.reset(); }

    QWidget window_;
    QLineEdit field_{&window_};
};

TEST_F(SettingsBesideAField, WorkHandsTheFocusToNoOtherControl) {
    auto& repair = Control<CSkinButton>(1355);
    repair.setFocus();
    QTest::keyClick(&repair, Qt::Key_Space);
    ASSERT_FALSE(repair.isEnabled());
    EXPECT_FALSE(field_.hasFocus());
    Rest();
    EXPECT_TRUE(repair.hasFocus());
}

TEST_F(SettingsBesideAField, WorkThatEndsLeavesTheFocusWhereTheUserHasPutIt) {
    auto& repair = Control<CSkinButton>(1355);
    repair.setFocus();
    QTest::keyClick(&repair, Qt::Key_Space);
    field_.setFocus();
    Rest();
    EXPECT_TRUE(field_.hasFocus());
}

TEST_F(SettingsPageTest, HiddenChoiceOfTheEndIsReadAndWritten) {
    host_.settings.WriteNumber(kSettingsKey, "exit_mode", 3);
    Open();
    EXPECT_TRUE(Control<SkinRadio>(1019).isChecked());
    Click(1018);
    EXPECT_EQ(host_.settings.ReadNumber(kSettingsKey, "exit_mode"), 0U);
    EXPECT_TRUE(Control<SkinRadio>(1018).isChecked());
    EXPECT_FALSE(Control<SkinRadio>(1019).isChecked());
    Click(1019);
    EXPECT_EQ(host_.settings.ReadNumber(kSettingsKey, "exit_mode"), 3U);
    EXPECT_FALSE(Control<SkinRadio>(1018).isChecked());
}

TEST_F(SettingsPageTest, CodePageOfTheNextStartIsReadAndWritten) {
    Open();
    auto* gbk = page_->findChild<SkinRadio*>(QStringLiteral("codePageGbk"));
    auto* gb18030 = page_->findChild<SkinRadio*>(QStringLiteral("codePageGb18030"));
    ASSERT_TRUE(gbk != nullptr && gbk->isVisible() && gb18030 != nullptr && gb18030->isVisible());
    EXPECT_TRUE(gbk->isChecked());  // the active one
    EXPECT_TRUE(host_.settings.texts.empty());
    gb18030->click();
    EXPECT_FALSE(gbk->isEnabled());
    Rest();
    EXPECT_EQ(ChosenCodePage(host_.settings, CodePage::gbk), CodePage::gb18030);
    EXPECT_EQ(ActiveCodePage(), CodePage::gbk);  // until the next start
    Open();
    EXPECT_TRUE(page_->findChild<SkinRadio*>(QStringLiteral("codePageGb18030"))->isChecked());
    page_->findChild<SkinRadio*>(QStringLiteral("codePageGbk"))->click();
    Rest();
    EXPECT_EQ(ChosenCodePage(host_.settings, CodePage::gb18030), CodePage::gbk);
}

TEST_F(SettingsPageTest, TabGoesFromTheTopToTheBottom) {
    Open();
    ShowActive(*page_);
    Control<CSkinCheck>(1016).setFocus();
    QStringList order;
    for (int i = 0; i < 21; ++i) {
        order.append(page_->focusWidget()->objectName());
        QTest::keyClick(page_->focusWidget(), Qt::Key_Tab);
    }
    // Of a choice, what is chosen; the arrow keys choose.
    EXPECT_EQ(order.join(QLatin1Char(' ')),
              QStringLiteral("1016 1355 backupKind0 backupKind1 backupKind2 backupKind3 "
                             "backupKind4 backupKind5 backupKind6 backupKind7 backupFolder "
                             "backupChoose backupZip backupStart restoreBrowse deletedList "
                             "lookSystem textSize codePageGbk diagnosisShow diagnosisSave"));
}

TEST_F(SettingsPageTest, AnyOtherStoredChoiceCountsAsHiding) {
    host_.settings.WriteNumber(kSettingsKey, "exit_mode", 7);
    Open();
    EXPECT_TRUE(Control<SkinRadio>(1018).isChecked());
}

}  // namespace
}  // namespace quorvi
