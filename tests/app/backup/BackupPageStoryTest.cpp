// A user's story with a backup: from a phone behind the real adb through the settings page onto the
// disk, and from there back to the phone, which has lost everything.
#include <QLabel>
#include <memory>

#include "agent/Wire.h"
#include "pages/settings/SettingsPage.h"
#include "tests/support/DialogDriver.h"
#include "tests/support/PageTest.h"
#include "tests/support/PhoneRig.h"
#include "tests/support/PrintQt.h"
#include "tests/support/QtTest.h"

namespace quorvi {
namespace {

// Numbers of the dialog with the plan and its controls.
constexpr int kPlan = 690;
constexpr int kGo = 1215;
constexpr int kStop = 1216;
constexpr int kClose = 1021;
constexpr int kState = 1220;

// One rig for all tests: each begins with a phone as delivered, and with no backup.
class BackupPageStory : public PageTest {
  public:
    static void SetUpTestSuite() {
        QtTest::SetUpTestSuite();
        rig_ = std::make_unique<e2e::PhoneRig>(1);
    }
    static void TearDownTestSuite() { rig_.reset(); }

  protected:
    void SetUp() override {
        ASSERT_EQ(rig_->Error(), "");
        Tell("faults clear");
        Tell("release");
        Tell("data");
        ASSERT_TRUE(rig_->WaitForDevices(1));
        ASSERT_EQ(rig_->BringAgentUp(0), "");
        host_.settings.WriteText(kSettingsKey, "backup_folder", folder_.Path().string());
        page_ = std::make_unique<SettingsPage>(host_, services_.At(AgentPort));
        page_->resize(760, 462);
        page_->show();
        ASSERT_TRUE(WaitForPage());
    }
    void TearDown() override { EXPECT_EQ(rig_->Control(0, "deviations"), "ok\n"); }

    static void Tell(std::string_view line) { rig_->Control(0, line); }
    // What the phone lists, without the ids that it gives anew.
    // So many of them the phone lists.
    static auto CountOf(const char* what) {
        const std::string listed = rig_->Suite({what, "list"}).output;
        return std::count(listed.begin(), listed.end(), '\n');
    }
    [[nodiscard]] bool WaitForPage() const {
        return WaitFor([&] { return !page_->IsAtWork(); });
    }
    void Click(const char* name) {
        page_->findChild<QAbstractButton*>(QString::fromLatin1(name))->click();
    }
    QString TextOf(const char* name) {
        return page_->findChild<QLabel*>(QString::fromLatin1(name))->text();
    }
    void BackUp() {
        Click("backupStart");
        ASSERT_TRUE(WaitForPage());
        ASSERT_TRUE(TextOf("backupState").startsWith(ToQString(u8"备份完成：")))
            << TextOf("backupState").toStdString();
        ASSERT_EQ(TextOf("restoreState"), ToQString(u8"文件完整，校验通过"));
    }
    static QString State() { return FindControl<QLabel>(OpenDialog(kPlan), kState)->text(); }
    static bool CanBePressed(int button) {
        const auto* found = FindControl<QAbstractButton>(OpenDialog(kPlan), button);
        return found->isVisible() && found->isEnabled();
    }
    void ShowPlan() {
        Click("restoreAsk");
        ASSERT_TRUE(WaitFor([] {
            return CanBePressed(kGo) || State() == ToQString(u8"没有要写入的内容，不用恢复");
        }));
    }
    static void ClosePlan() {
        PressIn(kPlan, kClose);
        ASSERT_TRUE(WaitFor([] { return OpenDialog(kPlan) == nullptr; }));
    }
    void ExpectNothingToRestore() {
        ShowPlan();
        EXPECT_EQ(State(), ToQString(u8"没有要写入的内容，不用恢复"));
        ClosePlan();
    }

    static std::unique_ptr<e2e::PhoneRig> rig_;
    TemporaryFolder folder_;
    std::unique_ptr<SettingsPage> page_;
};

std::unique_ptr<e2e::PhoneRig> BackupPageStory::rig_;

TEST_F(BackupPageStory, WhatWasBackedUpComesBackToAnEmptiedPhone) {
    const auto contacts = CountOf("contacts");
    const auto alarms = CountOf("alarms");
    const auto bookmarks = CountOf("bookmarks");
    ASSERT_GT(contacts, 10);
    BackUp();
    ExpectNothingToRestore();

    Tell("data contacts 0 alarms 0 bookmarks 0");
    ASSERT_LT(CountOf("contacts"), contacts);
    ShowPlan();
    EXPECT_EQ(State(), ToQString(u8"还没有写入任何内容"));
    PressIn(kPlan, kGo);
    ASSERT_TRUE(WaitFor([] { return CanBePressed(kClose); }));
    EXPECT_TRUE(State().startsWith(ToQString(u8"恢复完成"))) << State().toStdString();
    ClosePlan();

    EXPECT_EQ(CountOf("contacts"), contacts);
    EXPECT_EQ(CountOf("alarms"), alarms);
    EXPECT_EQ(CountOf("bookmarks"), bookmarks);
    ExpectNothingToRestore();
}

TEST_F(BackupPageStory, AStoppedRestoreGoesOnWithoutDoublingAnything) {
    BackUp();
    const auto contacts = CountOf("contacts");
    Tell("data contacts 0");
    ShowPlan();
    PressIn(kPlan, kGo);
    ASSERT_TRUE(WaitFor([] { return CanBePressed(kStop); }));
    PressIn(kPlan, kStop);
    const auto isDone = [] { return State().startsWith(ToQString(u8"恢复完成")); };
    ASSERT_TRUE(WaitFor([&] { return CanBePressed(kGo) || isDone(); }));
    if (CanBePressed(kGo)) {
        PressIn(kPlan, kGo);
        ASSERT_TRUE(WaitFor(isDone)) << State().toStdString();
    }
    ClosePlan();
    EXPECT_EQ(CountOf("contacts"), contacts);
    ExpectNothingToRestore();
}

TEST_F(BackupPageStory, AnAgentThatStopsLeavesNoBackupAndIsTold) {
    Tell("agent stop");
    Click("backupStart");
    ASSERT_TRUE(WaitForPage());
    EXPECT_TRUE(TextOf("backupDetail").endsWith(ToQString(u8"没有留下备份")));
    EXPECT_TRUE(std::filesystem::is_empty(folder_.Path()));
}

}  // namespace
}  // namespace quorvi
