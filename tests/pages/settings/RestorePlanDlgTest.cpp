#include <QAccessible>
#include <QLabel>
#include <QTest>
#include <fstream>

#include "pages/settings/PlanCounter.h"
#include "pages/settings/PlanListCtrl.h"
#include "pages/settings/RestorePlanDlg.h"
#include "tests/pages/settings/BackupPhone.h"
#include "ui/kit/ControlNumber.h"
#include "ui/kit/SkinButtons.h"

namespace quorvi {
namespace {

// Numbers of the controls.
constexpr int kState = 1220;
constexpr int kGo = 1215;
constexpr int kStop = 1216;
constexpr int kClose = 1021;

class RestorePlanTest : public BackupPhoneTest {
  protected:
    // The backup has the groups family and friends and the alarm "wake up"; the phone has friends,
    // work and the alarm "lunch".
    RestorePlanTest() {
        SetGroups({"friends", "work"});
        SetAlarms({"lunch"});
        agent_.AnswerAcknowledged(AgentCommand::addGroup);
        agent_.AnswerAcknowledged(AgentCommand::addAlarm);
    }
    ~RestorePlanTest() override { delete dialog_; }

    void OpenAt(std::uint16_t port) {
        dialog_ = new RestorePlanDlg(port, backup_, &window_);
        window_.resize(960, 640);
        window_.show();
        dialog_->Open();
    }
    void Open() {
        OpenAt(agent_.Port());
        Settle();
    }
    CSkinButton& Button(int number) { return *FindControl<CSkinButton>(dialog_, number); }
    PlanListCtrl& List() { return *dialog_->findChild<PlanListCtrl*>(); }
    QString State() { return FindControl<QLabel>(dialog_, kState)->text(); }
    QStringList Column(int column) {
        QStringList texts;
        for (int row = 0; row < List().RowCount(); ++row) {
            texts.append(List().CellAt(row, column).text);
        }
        return texts;
    }
    PlanCounter& Counter(int index) {
        return *dialog_->findChild<PlanCounter*>(QStringLiteral("planCounter%1").arg(index));
    }
    // Begins to write; the phone keeps its answer to the alarm.
    void WriteAndHold() {
        agent_.Hold(AgentCommand::addAlarm);
        Button(kGo).click();
        ASSERT_TRUE(WaitFor([&] { return !agent_.Requests(AgentCommand::addAlarm).empty(); }));
        DrainWindow();
    }
    std::size_t Sent() {
        return agent_.Requests(AgentCommand::addGroup).size() +
               agent_.Requests(AgentCommand::addAlarm).size();
    }

    std::filesystem::path backup_ = [this] {
        return BackUp("backup", {BackupKind::groups, BackupKind::alarms});
    }();
    QWidget window_;
    QPointer<RestorePlanDlg> dialog_;
};

TEST_F(RestorePlanTest, ShowsWhatItIsGoingToDoBeforeItDoesAnything) {
    Open();
    EXPECT_EQ(Column(0),
              QStringList({ToQString(u8"新增"), ToQString(u8"新增"), ToQString(u8"已存在")}));
    EXPECT_EQ(Column(2), QStringList({QStringLiteral("family"), QStringLiteral("07:30 wake up"),
                                      QStringLiteral("friends")}));
    EXPECT_EQ(Counter(0).accessibleName(), ToQString(u8"新增 2"));
    EXPECT_EQ(Counter(2).accessibleName(), ToQString(u8"已存在 1"));
    EXPECT_EQ(State(), ToQString(u8"还没有写入任何内容"));
    EXPECT_TRUE(Button(kGo).isDefault());
    EXPECT_EQ(Sent(), 0u);
}

TEST_F(RestorePlanTest, ACounterShowsItsRowsAloneAndPressedAgainAll) {
    Open();
    Counter(2).click();
    EXPECT_EQ(Column(2), QStringList({QStringLiteral("friends")}));
    Counter(0).click();
    EXPECT_FALSE(Counter(2).isChecked());
    EXPECT_EQ(List().RowCount(), 2);
    Counter(0).click();
    EXPECT_EQ(List().RowCount(), 3);
}

TEST_F(RestorePlanTest, WritesWhatIsMissingAndSaysSo) {
    Open();
    Button(kGo).click();
    Settle();
    EXPECT_EQ(Sent(), 2u);
    EXPECT_EQ(State(), ToQString(u8"恢复完成，新增 2 项，补充 0 项"));
    EXPECT_EQ(Column(0),
              QStringList({ToQString(u8"已新增"), ToQString(u8"已新增"), ToQString(u8"已存在")}));
    EXPECT_FALSE(Button(kGo).isVisible());
    EXPECT_TRUE(Button(kClose).isDefault());
    EXPECT_EQ(Button(kClose).text(), ToQString(u8"关闭"));
}

TEST_F(RestorePlanTest, WhileItWritesTheRowInWorkIsSelectedAndOnlyStopIsThere) {
    Open();
    WriteAndHold();
    EXPECT_EQ(List().CurrentRow(), 1);
    EXPECT_EQ(Column(0).front(), ToQString(u8"已新增"));
    EXPECT_TRUE(Button(kStop).isVisible());
    EXPECT_FALSE(Button(kGo).isVisible());
    EXPECT_FALSE(Button(kClose).isVisible());
    agent_.Release();
    Settle();
}

TEST_F(RestorePlanTest, AStopEndsItAtOnceAndItGoesOnFromThere) {
    Open();
    WriteAndHold();
    Button(kStop).click();
    ASSERT_TRUE(WaitFor([&] { return Button(kGo).isVisible(); }));
    EXPECT_EQ(State(), ToQString(u8"已停止"));
    EXPECT_EQ(Button(kGo).text(), ToQString(u8"继续恢复"));
    agent_.Release();
    Settle();
    // The phone has taken the group, and the alarm too, of which nobody heard.
    SetGroups({"friends", "work", "family"});
    SetAlarms({"lunch", "wake up"});
    Button(kGo).click();
    Settle();
    EXPECT_EQ(agent_.Requests(AgentCommand::addGroup).size(), 1u);
    EXPECT_EQ(agent_.Requests(AgentCommand::addAlarm).size(), 1u);
    EXPECT_EQ(State(), ToQString(u8"恢复完成，新增 0 项，补充 0 项"));
}

TEST_F(RestorePlanTest, ALostLinkIsToldAndItGoesOnFromThere) {
    Open();
    agent_.Answer(AgentCommand::addAlarm, {.bytes = {}, .end = ScriptedAgent::End::reset});
    Button(kGo).click();
    Settle();
    EXPECT_EQ(State(), ToQString(u8"和手机的连接断了，重新连接后再恢复一次，会接着做完"));
    EXPECT_EQ(Button(kGo).text(), ToQString(u8"继续恢复"));
    SetGroups({"friends", "work", "family"});
    agent_.AnswerAcknowledged(AgentCommand::addAlarm);
    Button(kGo).click();
    Settle();
    EXPECT_EQ(agent_.Requests(AgentCommand::addGroup).size(), 1u);
    EXPECT_EQ(State(), ToQString(u8"恢复完成，新增 1 项，补充 0 项"));
}

TEST_F(RestorePlanTest, EscapeWhileItWritesStopsItAndLeavesTheResult) {
    Open();
    WriteAndHold();
    dialog_->reject();
    ASSERT_TRUE(dialog_->isVisible());
    ASSERT_TRUE(WaitFor([&] { return Button(kGo).isVisible(); }));
    EXPECT_EQ(State(), ToQString(u8"已停止"));
    agent_.Release();
    Settle();
    dialog_->reject();
    EXPECT_TRUE(WaitFor([&] { return dialog_.isNull(); }));
}

TEST_F(RestorePlanTest, ClosingItWhileItReadsEndsTheReading) {
    agent_.Hold(AgentCommand::listGroups);
    OpenAt(agent_.Port());
    ASSERT_TRUE(WaitFor([&] { return !agent_.Requests(AgentCommand::listGroups).empty(); }));
    EXPECT_FALSE(Button(kGo).isEnabled());
    dialog_->reject();
    EXPECT_TRUE(WaitFor([&] { return dialog_.isNull() && RunningJobs() == 0; }));
    agent_.Release();
}

TEST_F(RestorePlanTest, APhoneThatIsGoneLeavesNoPlanUntilItIsBack) {
    OpenAt(1);
    Settle();
    EXPECT_EQ(List().State(), ListState::failed);
    EXPECT_EQ(State(), ToQString(u8"没有连接手机，请连接后重试"));
    EXPECT_EQ(Button(kGo).text(), ToQString(u8"重试"));
    Button(kGo).click();
    Settle();
    EXPECT_EQ(List().State(), ListState::failed);
    EXPECT_EQ(Sent(), 0u);
}

TEST_F(RestorePlanTest, ADamagedBackupIsNotRestored) {
    std::ofstream(backup_ / "manifest.json") << "no";
    Open();
    EXPECT_EQ(List().State(), ListState::failed);
    EXPECT_NE(State(), QString());
    EXPECT_EQ(Sent(), 0u);
}

TEST_F(RestorePlanTest, WhatThePhoneHasNeedsNoRestore) {
    SetGroups({"family", "friends"});
    SetAlarms({"wake up"});
    Open();
    EXPECT_FALSE(Button(kGo).isVisible());
    EXPECT_EQ(State(), ToQString(u8"没有要写入的内容，不用恢复"));
    EXPECT_EQ(Button(kClose).text(), ToQString(u8"关闭"));
}

TEST_F(RestorePlanTest, KeysGoOnToWhatComesNext) {
    Open();
    ASSERT_TRUE(QTest::qWaitForWindowActive(dialog_.data()));
    Button(kGo).setFocus();
    WriteAndHold();
    EXPECT_TRUE(Button(kStop).hasFocus());
    agent_.Release();
    Settle();
    EXPECT_TRUE(Button(kClose).hasFocus());
}

}  // namespace
}  // namespace quorvi
