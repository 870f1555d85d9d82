#include <gtest/gtest.h>

#include "base/Text.h"
#include "pages/downloads/DownloadRows.h"
#include "tests/download/TaskRows.h"

namespace quorvi {
namespace {

using Kind = QueueEvent::Kind;

CDownloadTask Task(std::int32_t id, TaskState state) {
    CDownloadTask task = TaskOf("com.a");
    task.id = id;
    task.state = state;
    return task;
}

QueueEvent Of(Kind kind, std::int32_t id = 7) {
    return {.kind = kind, .task = Task(id, TaskState::downloading)};
}

QueueEvent InstallEnd(InstallResult result, bool phoneChosen = true) {
    QueueEvent event = Of(Kind::installEnded);
    event.install = result;
    event.phoneChosen = phoneChosen;
    return event;
}

TEST(DownloadRows, ALoadedRowHasNoProgressYet) {
    const auto rows = RowsOf({Task(7, TaskState::downloading)}, TaskNotes());
    ASSERT_EQ(rows.size(), 1u);
    EXPECT_EQ(ProgressText(rows[0]), "N/A");
    EXPECT_EQ(rows[0].note, "");
}

TEST(DownloadRows, AStartSetsTheStateAndClearsTheProgress) {
    DownloadRow row{.task = Task(7, TaskState::waiting), .percent = 40};
    EXPECT_TRUE(ShowInRow(Of(Kind::started), row));
    EXPECT_EQ(row.task.state, TaskState::downloading);
    EXPECT_EQ(ProgressText(row), "N/A");
}

TEST(DownloadRows, ProgressIsAPercentage) {
    DownloadRow row{.task = Task(7, TaskState::downloading)};
    QueueEvent event = Of(Kind::progress);
    event.percent = 62;
    EXPECT_TRUE(ShowInRow(event, row));
    EXPECT_EQ(ProgressText(row), "62 %");
}

TEST(DownloadRows, TheEndIsAHundredPercentAndLeavesTheState) {
    DownloadRow row{.task = Task(7, TaskState::downloading), .percent = 62};
    EXPECT_TRUE(ShowInRow(Of(Kind::complete), row));
    EXPECT_EQ(ProgressText(row), "100 %");
    EXPECT_EQ(row.task.state, TaskState::downloading);
}

TEST(DownloadRows, AStopChangesNothingInTheRow) {
    DownloadRow row{.task = Task(7, TaskState::paused), .percent = 62};
    EXPECT_FALSE(ShowInRow(Of(Kind::stopped), row));
    EXPECT_EQ(ProgressText(row), "62 %");
    EXPECT_EQ(row.task.state, TaskState::paused);
}

TEST(EventStatus, ProgressIsTheSpeed) {
    QueueEvent event = Of(Kind::progress);
    event.speed = 217'088;
    EXPECT_EQ(ToUtf8(EventStatus(event)), "下载速度 212 KB/秒");
}

TEST(EventStatus, AStopSaysHowToGoOn) {
    EXPECT_EQ(ToUtf8(EventStatus(Of(Kind::stopped))),
              "下载已停下：听书，点“继续任务”从停下的地方接着下载");
}

TEST(EventStatus, NothingCheckedIsAHint) {
    EXPECT_EQ(ToUtf8(EventStatus({.kind = Kind::nothingChecked})), "【提示】勾选复选框后才可删除");
}

TEST(EventStatus, WhatTheRowShowsIsNotSaid) {
    for (const Kind kind : {Kind::started, Kind::complete, Kind::installStarted, Kind::reload}) {
        EXPECT_EQ(EventStatus(Of(kind)), "") << static_cast<int>(kind);
    }
}

TEST(EventStatus, ATableThatFailsIsSaid) {
    EXPECT_NE(EventStatus({.kind = Kind::storeFailed, .store = StoreResult::diskFull}), "");
}

struct Told {
    InstallResult result;
    bool phone;
    const char* part;
};

TEST(TaskNotes, EachEndOfAnInstallationHasItsOwnWords) {
    for (const Told& told : {Told{InstallResult::noProcess, true, "无法运行adb"},
                             Told{InstallResult::otherSignature, true, "签名错误"},
                             Told{InstallResult::phoneFull, true, "手机空间不足"},
                             Told{InstallResult::failed, true, "请检查手机的连接"},
                             Told{InstallResult::failed, false, "没有连接手机"}}) {
        TaskNotes notes;
        const QueueEvent end = InstallEnd(told.result, told.phone);
        notes.Hear(end);
        const std::string note = ToUtf8(notes.Of(Task(7, TaskState::installFailed)));
        EXPECT_NE(note.find(told.part), std::string::npos) << note;
        EXPECT_EQ(ToUtf8(EventStatus(end)), note);
    }
}

TEST(TaskNotes, AFailedDownloadKeepsItsReason) {
    TaskNotes notes;
    QueueEvent event = Of(Kind::failed);
    event.fault = DownloadFault::diskFull;
    notes.Hear(event);
    EXPECT_NE(ToUtf8(notes.Of(Task(7, TaskState::failed))).find("磁盘空间不足"), std::string::npos);
}

TEST(TaskNotes, ANoteIsThatOfItsTask) {
    TaskNotes notes;
    notes.Hear(InstallEnd(InstallResult::otherSignature));
    EXPECT_EQ(ToUtf8(notes.Of(Task(8, TaskState::installFailed))).find("签名错误"),
              std::string::npos);
}

TEST(TaskNotes, InAnotherStateANoteMeansNothing) {
    TaskNotes notes;
    notes.Hear(InstallEnd(InstallResult::otherSignature));
    EXPECT_EQ(notes.Of(Task(7, TaskState::downloading)), "");
    EXPECT_EQ(notes.Of(Task(7, TaskState::done)), "");
}

TEST(TaskNotes, ANewStartForgetsTheOldEnd) {
    TaskNotes notes;
    notes.Hear(InstallEnd(InstallResult::otherSignature));
    notes.Hear(Of(Kind::started));
    EXPECT_EQ(ToUtf8(notes.Of(Task(7, TaskState::installFailed))).find("签名错误"),
              std::string::npos);
}

TEST(TaskNotes, AnEarlierFailureSaysWhatCanBeDone) {
    const TaskNotes notes;
    EXPECT_NE(ToUtf8(notes.Of(Task(7, TaskState::failed))).find("继续下载"), std::string::npos);
    EXPECT_NE(ToUtf8(notes.Of(Task(7, TaskState::installFailed))).find("重新安装"),
              std::string::npos);
    EXPECT_EQ(notes.Of(Task(7, TaskState::waiting)), "");
}

TEST(TaskNotes, WhatIsBeingInstalledSaysSo) {
    TaskNotes notes;
    notes.Hear(Of(Kind::installStarted));
    EXPECT_EQ(ToUtf8(notes.Of(Task(7, TaskState::installing))), "正在安装到手机");
    EXPECT_EQ(notes.Of(Task(8, TaskState::installing)), "");
}

}  // namespace
}  // namespace quorvi
