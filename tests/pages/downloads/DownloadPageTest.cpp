#include <QSignalSpy>

#include "tests/pages/downloads/DownloadPageFixture.h"
#include "tests/support/KeyDriver.h"
#include "tests/support/OpenedAddresses.h"

namespace quorvi {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

using DownloadPage = DownloadPageTest;

// ---- the list ----------------------------------------------------------------------------------

TEST_F(DownloadPage, BeginsWithTheUnfinishedTasks) {
    Add("com.a");
    Add("com.b", TaskState::done);
    Add("com.c", TaskState::failed);
    Add("com.d", TaskState::installing);
    Open();
    EXPECT_THAT(Packages(), ElementsAre("com.a", "com.c", "com.d"));
    EXPECT_EQ(Tree().CurrentPosition(), 0);
    EXPECT_EQ(List().State(), ListState::idle);
}

TEST_F(DownloadPage, ARowHasTheColumnsOfItsTask) {
    Add("com.a", TaskState::paused);
    Open();
    EXPECT_EQ(Shown(0, columnIcon), QString());
    EXPECT_EQ(Shown(0, columnName), ToQString(u8"应用com.a"));
    EXPECT_EQ(List().CellAt(0, columnName).second.size(), 19);  // 2026-11-22 10:00:00
    EXPECT_EQ(Shown(0, columnType), ToQString(u8"应用"));
    EXPECT_EQ(Shown(0, columnProgress), QStringLiteral("N/A"));
    EXPECT_EQ(Shown(0, columnState), ToQString(u8"暂停下载"));
    EXPECT_FALSE(List().IsTicked(0));
    const char8_t* const captions[] = {u8"图标",           u8"名称和创建时间", u8"类型",
                                       u8"进度和文件大小", u8"状态",           u8"选择"};
    for (int column = 0; column < List().ColumnCount(); ++column) {
        EXPECT_EQ(List().Column(column).caption, captions[column]);
    }
}

TEST_F(DownloadPage, AnEmptyTableIsAnEmptyListWithTheCountZero) {
    services_.taskStore->InsertTask(TaskOf("com.done", save_.Path().native()));
    services_.taskStore->DeleteTask(1);
    Open();
    EXPECT_EQ(List().RowCount(), 0);
    EXPECT_EQ(made_->taskCount.Get(), 0);
    EXPECT_EQ(List().State(), ListState::idle);
}

TEST_F(DownloadPage, TheCountIsThatOfTheRowsOfTheLastLoad) {
    Add("com.a");
    Add("com.b");
    Add("com.c", TaskState::done);
    Open();
    EXPECT_EQ(made_->taskCount.Get(), 2);
    ClickNode(4);
    EXPECT_EQ(made_->taskCount.Get(), 1);
}

TEST_F(DownloadPage, EachLoadHasTheFrameRepainted) {
    Open();
    EXPECT_THAT(host_.posted, Contains(FakeHost::Posted(Message::pageCommand, 4, 0)));
    host_.posted.clear();
    ClickNode(3);
    EXPECT_THAT(host_.posted, ElementsAre(FakeHost::Posted(Message::pageCommand, 4, 0)));
}

TEST_F(DownloadPage, ATableThatCannotBeOpenedIsSaidInTheListAndNowhereElse) {
    services_.taskStore = NoTaskStore();
    Open();
    EXPECT_EQ(List().State(), ListState::failed);
    EXPECT_TRUE(host_.statuses.isEmpty());
}

// ---- the tree ----------------------------------------------------------------------------------

TEST_F(DownloadPage, TheTreeBeginsOpenWithItsFirstNodeSelected) {
    Open();
    ASSERT_EQ(Tree().topLevelItemCount(), 2);
    EXPECT_TRUE(Tree().topLevelItem(0)->isExpanded());
    EXPECT_TRUE(Tree().topLevelItem(1)->isExpanded());
    EXPECT_EQ(Tree().currentItem(), Tree().topLevelItem(0));
    EXPECT_EQ(Tree().topLevelItem(0)->childCount(), 2);
    EXPECT_EQ(Tree().topLevelItem(1)->childCount(), 1);
}

TEST_F(DownloadPage, EachNodeShowsItsTasks) {
    for (int state = 0; state <= 8; ++state) {
        Add("s" + std::to_string(state), static_cast<TaskState>(state));
    }
    Open();
    ClickNode(1);
    EXPECT_THAT(Packages(), ElementsAre("s0", "s1", "s2"));
    ClickNode(2);
    EXPECT_THAT(Packages(), ElementsAre("s5", "s6", "s7", "s8"));
    ClickNode(3);
    EXPECT_THAT(Packages(), ElementsAre("s3"));
    ClickNode(4);
    EXPECT_THAT(Packages(), ElementsAre("s3"));
    ClickNode(0);
    EXPECT_THAT(Packages(), ElementsAre("s0", "s1", "s2", "s4", "s5", "s6", "s7", "s8"));
}

TEST_F(DownloadPage, TheKeysChooseANodeAsAClickDoes) {
    Add("com.a", TaskState::failed);
    Open();
    Tree().setFocus();
    QTest::keyClick(&Tree(), Qt::Key_Down);
    Settle();
    EXPECT_EQ(Tree().CurrentPosition(), 1);
    EXPECT_THAT(Packages(), IsEmpty());
}

TEST_F(DownloadPage, BelowAClosedNodeThePositionCounts) {
    Add("com.a");
    Add("com.b", TaskState::done);
    Open();
    Tree().topLevelItem(0)->setExpanded(false);
    ClickNode(1);  // 已完成的任务, at the place of 正在下载
    EXPECT_EQ(Tree().currentItem(), Tree().topLevelItem(1));
    EXPECT_THAT(Packages(), ElementsAre("com.a"));
}

TEST_F(DownloadPage, AClickOnTheSelectedNodeLoadsAgain) {
    Open();
    Add("com.a");
    ClickNode(0);
    EXPECT_THAT(Packages(), ElementsAre("com.a"));
}

TEST_F(DownloadPage, AChangeOfTheTableLeadsBackToTheUnfinishedTasks) {
    const auto id = Add("com.a", TaskState::paused);
    Add("com.b", TaskState::done);
    Open();
    ClickNode(4);
    ASSERT_THAT(Packages(), ElementsAre("com.b"));
    Queue().PauseTask(id);
    Settle();
    EXPECT_THAT(Packages(), ElementsAre("com.a"));
    EXPECT_EQ(Tree().CurrentPosition(), 0);
}

TEST_F(DownloadPage, AReloadUnticksAndKeepsTheSelectedTask) {
    const auto first = Add("com.a", TaskState::paused);
    Add("com.b", TaskState::paused);
    Open();
    ClickCell(List(), 1, columnName);
    List().SetTicked(1, true);
    Queue().RemoveTask(first);
    Settle();
    EXPECT_THAT(Packages(), ElementsAre("com.b"));
    EXPECT_EQ(List().CurrentRow(), 0);
    EXPECT_EQ(List().TickedCount(), 0);
}

TEST_F(DownloadPage, WhatAnotherProgramHasChangedIsThereWhenThePageIsShownAgain) {
    Add("com.a", TaskState::paused);
    Open();
    page_->hide();
    Add("com.b", TaskState::paused);
    page_->show();
    Settle();
    EXPECT_THAT(Packages(), ElementsAre("com.a", "com.b"));
    EXPECT_EQ(made_->taskCount.Get(), 2);
}

TEST_F(DownloadPage, TheTicksStayWhereThePageIsShownAgainAndNothingHasChanged) {
    Add("com.a", TaskState::paused);
    Open();
    ClickCell(List(), 0, columnTick);
    page_->hide();
    page_->show();
    Settle();
    EXPECT_EQ(List().TickedCount(), 1);
}

// ---- a download --------------------------------------------------------------------------------

TEST_F(DownloadPage, ATaskIsDownloadedInstalledAndGoneFromTheUnfinished) {
    const auto id = Add("com.a");
    Open();
    Command(CDownloadPage::commandStart);
    WaitUntilIdle();
    EXPECT_EQ(StateOf(id), TaskState::done);
    EXPECT_THAT(Packages(), IsEmpty());
    EXPECT_EQ(host_.status, ToQString(u8"安装成功：应用com.a"));
    ClickNode(4);
    EXPECT_EQ(Shown(0, columnState), ToQString(u8"下载完成"));
    EXPECT_EQ(List().CellAt(0, columnState).ink, look::Color::green);
}

TEST_F(DownloadPage, ARunningDownloadShowsItsProgressAndItsSpeed) {
    Add("com.a", TaskState::waiting, "slow");
    Open();
    Command(CDownloadPage::commandStart);
    EXPECT_EQ(Shown(0, columnState), ToQString(u8"下载中.."));
    ASSERT_TRUE(WaitFor([&] { return List().CellAt(0, columnProgress).value > 0; }));
    const Cell cell = List().CellAt(0, columnProgress);
    EXPECT_EQ(cell.text, QStringLiteral("%1 %").arg(cell.value));
    EXPECT_TRUE(host_.status.startsWith(ToQString(u8"下载速度 ")));
    EXPECT_TRUE(host_.status.endsWith(ToQString(u8"/秒")));
}

TEST_F(DownloadPage, TheSpeedGoesWithTheDownload) {
    Add("com.a", TaskState::waiting, "slow");
    Open();
    Command(CDownloadPage::commandStart);
    WaitUntilIdle();
    EXPECT_EQ(host_.status, ToQString(u8"安装成功：应用com.a"));
    EXPECT_TRUE(host_.statuses.contains(ToQString(u8"安装成功：应用com.a")));
}

TEST_F(DownloadPage, PausingTheCurrentDownloadStopsItAndStartsNoOther) {
    const auto first = Add("com.a", TaskState::waiting, "slow");
    const auto second = Add("com.b");
    Open();
    Command(CDownloadPage::commandStart);
    Choose(0, CDownloadPage::menuPause);
    WaitUntilIdle();
    EXPECT_EQ(StateOf(first), TaskState::paused);
    EXPECT_EQ(StateOf(second), TaskState::waiting);
    EXPECT_EQ(Shown(0, columnState), ToQString(u8"暂停下载"));
}

TEST_F(DownloadPage, PausingAnotherTaskLetsTheDownloadGoOn) {
    const auto first = Add("com.a", TaskState::waiting, "slow");
    const auto second = Add("com.b");
    Open();
    Command(CDownloadPage::commandStart);
    Choose(1, CDownloadPage::menuPause);
    EXPECT_FALSE(Queue().IsIdle());
    EXPECT_EQ(StateOf(first), TaskState::downloading);
    EXPECT_EQ(StateOf(second), TaskState::paused);
}

TEST_F(DownloadPage, ResumingFromTheMenuGoesOnWhereItStopped) {
    const auto id = Add("com.a", TaskState::paused);
    std::ofstream(save_.Path() / "com.a.tmp") << ContentOf("com.a").substr(0, 1000);
    Open();
    Choose(0, CDownloadPage::menuResume);
    WaitUntilIdle();
    EXPECT_EQ(StateOf(id), TaskState::done);
    EXPECT_EQ(site_.Requests(1).at(0).range, "bytes=1000-");
}

TEST_F(DownloadPage, InstallingAgainFromTheMenuAsksForTheDownloadFirst) {
    const auto id = Add("com.a", TaskState::installFailed);
    PutFile("com.a");
    Open();
    Choose(0, CDownloadPage::menuInstall);
    WaitUntilIdle();
    EXPECT_EQ(site_.Requests(1).size(), 1u);
    EXPECT_EQ(StateOf(id), TaskState::done);
}

TEST_F(DownloadPage, StoppingAllLeavesTheStateAndSaysHowToGoOn) {
    const auto id = Add("com.a", TaskState::waiting, "slow");
    Open();
    Command(CDownloadPage::commandStart);
    Command(CDownloadPage::commandStop);
    WaitUntilIdle();
    EXPECT_EQ(StateOf(id), TaskState::downloading);
    EXPECT_EQ(host_.status, ToQString(u8"下载已停下：应用com.a，点“继续任务”从停下的地方接着下载"));
    EXPECT_EQ(List().CellAt(0, columnState).note, host_.status);
}

TEST_F(DownloadPage, AFailedDownloadIsRedAndSaysWhy) {
    const auto id = Add("com.a");
    const int nobody = 1;
    RunSql(data_.Path() / "Config.db",
           "UPDATE cdb_task SET url='http://127.0.0.1:" + std::to_string(nobody) + "/a.apk'");
    Open();
    Command(CDownloadPage::commandStart);
    WaitUntilIdle();
    EXPECT_EQ(StateOf(id), TaskState::failed);
    EXPECT_EQ(Shown(0, columnState), ToQString(u8"下载失败"));
    EXPECT_EQ(List().CellAt(0, columnState).ink, look::Color::red);
    EXPECT_THAT(List().CellAt(0, columnState).note.toStdString(), HasSubstr("连接不到服务器"));
    EXPECT_THAT(host_.status.toStdString(), HasSubstr("连接不到服务器"));
}

class RefusedInstall : public DownloadPageTest {
  protected:
    RefusedInstall()
        : DownloadPageTest("echo Failure [INSTALL_PARSE_FAILED_INCONSISTENT_CERTIFICATES]") {}
};

TEST_F(RefusedInstall, TheStateCellsTipSaysWhyAfterEachReload) {
    const auto id = Add("com.a", TaskState::installing);
    PutFile("com.a");
    Open();
    Command(CDownloadPage::commandStart);
    WaitUntilIdle();
    EXPECT_EQ(StateOf(id), TaskState::installFailed);
    EXPECT_EQ(Shown(0, columnState), ToQString(u8"安装失败"));
    EXPECT_THAT(host_.status.toStdString(), HasSubstr("签名错误"));
    ClickNode(2);
    EXPECT_THAT(List().CellAt(0, columnState).note.toStdString(), HasSubstr("签名错误"));
}

// ---- removing ----------------------------------------------------------------------------------

TEST_F(DownloadPage, TheCheckedRowsAreRemovedWithoutAQuestion) {
    Add("com.a", TaskState::paused);
    const auto kept = Add("com.b", TaskState::paused);
    Add("com.c", TaskState::paused);
    PutFile("com.a");
    Open();
    ClickCell(List(), 0, columnTick);
    ClickCell(List(), 2, columnTick);
    Command(CDownloadPage::commandRemove);
    EXPECT_THAT(Packages(), ElementsAre("com.b"));
    EXPECT_EQ(StateOf(kept), TaskState::paused);
    EXPECT_TRUE(std::filesystem::exists(File("com.a")));
}

TEST_F(DownloadPage, WithNothingCheckedTheStatusSaysSoAndNothingChanges) {
    Add("com.a", TaskState::paused);
    Open();
    ClickCell(List(), 0, columnName);
    Command(CDownloadPage::commandRemove);
    EXPECT_EQ(host_.status, ToQString(u8"【提示】勾选复选框后才可删除"));
    EXPECT_THAT(Packages(), ElementsAre("com.a"));
}

TEST_F(DownloadPage, TheDeleteKeyRemovesTheSelectedTaskAndTheStatusSaysSo) {
    Add("com.a", TaskState::paused);
    Add("com.b", TaskState::paused);
    Open();
    List().SelectRow(0);
    const std::string other = Packages()[1];
    PressKeyIn(List(), Qt::Key_Delete);
    Settle();
    EXPECT_THAT(Packages(), ElementsAre(other));
    EXPECT_EQ(host_.status, ToQString(u8"已删除 1 个下载任务"));
}

TEST_F(DownloadPage, F5ReadsTheTasksAgain) {
    Open();
    Add("com.a", TaskState::paused);
    PressKeyIn(List(), Qt::Key_F5);
    Settle();
    EXPECT_THAT(Packages(), ElementsAre("com.a"));
}

TEST_F(DownloadPage, RemovingTheDownloadFromTheMenuStopsItAndKeepsItsPart) {
    Add("com.a", TaskState::waiting, "slow");
    Open();
    Command(CDownloadPage::commandStart);
    ASSERT_TRUE(WaitFor([&] { return std::filesystem::exists(save_.Path() / "com.a.tmp"); }));
    Choose(0, CDownloadPage::menuRemove);
    WaitUntilIdle();
    EXPECT_THAT(Packages(), IsEmpty());
    EXPECT_TRUE(std::filesystem::exists(save_.Path() / "com.a.tmp"));
}

// ---- the menu ----------------------------------------------------------------------------------

TEST_F(DownloadPage, TheMenuHasItsFiveItemsInTheirOrder) {
    Add("com.a", TaskState::paused);
    Open();
    QStringList captions;
    for (const QAction* item : OpenMenu(0).actions()) {
        captions.append(item->text());
        EXPECT_TRUE(item->isEnabled());
    }
    EXPECT_EQ(captions, QStringList({ToQString(u8"查找目标"), ToQString(u8"继续下载"),
                                     ToQString(u8"暂停下载"), ToQString(u8"重新安装"),
                                     ToQString(u8"删除任务")}));
    EXPECT_EQ(List().CurrentRow(), 0);
}

TEST_F(DownloadPage, BesideAllRowsThereIsNoMenu) {
    Open();
    QContextMenuEvent event(QContextMenuEvent::Mouse, QPoint(100, 300),
                            List().viewport()->mapToGlobal(QPoint(100, 300)));
    QApplication::sendEvent(List().viewport(), &event);
    EXPECT_EQ(page_->findChild<CSkinMenu*>(), nullptr);
}

TEST_F(DownloadPage, TheTargetIsShownInItsFolderAndMayBeWrittenTo) {
    const OpenedAddresses opened({QStringLiteral("file")});
    Add("com.a", TaskState::paused);
    PutFile("com.a");
    std::filesystem::permissions(File("com.a"), std::filesystem::perms::owner_read);
    Open();
    Choose(0, CDownloadPage::menuFind);
    EXPECT_EQ(opened.taken, QStringList(QStringLiteral("file://") +
                                        QString::fromStdString(save_.Path().native())));
    EXPECT_NE(
        std::filesystem::status(File("com.a")).permissions() & std::filesystem::perms::owner_write,
        std::filesystem::perms::none);
}

TEST_F(DownloadPage, ATargetThatIsNotThereOpensNothing) {
    const OpenedAddresses opened({QStringLiteral("file")});
    Add("com.a", TaskState::paused);
    Open();
    Choose(0, CDownloadPage::menuFind);
    EXPECT_TRUE(opened.taken.isEmpty());
    EXPECT_EQ(host_.status, ToQString(u8"【提示】文件不在了，请在右键菜单里选“继续下载”"));
}

// ---- at work, and at the end -------------------------------------------------------------------

TEST_F(DownloadPage, IsDisabledWhileAChangeIsOnItsWay) {
    Add("com.a", TaskState::paused);
    Open();
    page_->OnCommand(CDownloadPage::commandStart);
    EXPECT_FALSE(page_->isEnabled());
    Settle();
    EXPECT_TRUE(page_->isEnabled());
}

TEST_F(DownloadPage, AHiddenWindowIsToldOnceTheLastTaskHasEnded) {
    Add("com.a");
    Add("com.b");
    Open();
    page_->hide();
    Queue().StartNext();
    WaitUntilIdle();
    EXPECT_EQ(host_.balloons, QStringList(ToQString(u8"下载任务都结束了|2 个应用已经安装到手机")));
}

TEST_F(DownloadPage, AWindowThatIsSeenIsToldNothing) {
    Add("com.a");
    Open();
    Command(CDownloadPage::commandStart);
    WaitUntilIdle();
    EXPECT_TRUE(host_.balloons.isEmpty());
}

TEST_F(DownloadPage, APageThatIsGoneHearsNothing) {
    Add("com.a", TaskState::waiting, "slow");
    Open();
    Command(CDownloadPage::commandStart);
    page_.reset();
    Queue().StopCurrent();
    ASSERT_TRUE(WaitFor([&] { return Queue().IsIdle(); }));
    Settle();
    EXPECT_EQ(host_.status, kReady);
}

}  // namespace
}  // namespace quorvi
