#include <fmt/format.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <ctime>
#include <fstream>

#include "base/Format.h"
#include "download/TaskStore.h"
#include "tests/download/TaskRows.h"
#include "tests/support/TemporaryFolder.h"

namespace quorvi {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class TaskStoreTest : public testing::Test {
  protected:
    // Adds a row and gives its number.
    std::int32_t Add(std::string_view package, TaskState state = TaskState::waiting) {
        CDownloadTask task = TaskOf(package);
        task.state = state;
        EXPECT_EQ(store_.InsertTask(task), StoreResult::done);
        return store_.FindTaskByUniqueId(package).id;
    }
    // A row with each state, its package named for it: s0 to s8, and s9, which is no state.
    void AddEachState() {
        for (int state = 0; state <= 9; ++state) {
            Add(fmt::format("s{}", state), static_cast<TaskState>(state));
        }
    }

    TemporaryFolder folder_;
    std::filesystem::path file_ = folder_.Path() / "Config.db";
    TaskStore store_{file_};
};

TEST_F(TaskStoreTest, MakesItsTableByTheSameStatementEverywhere) {
    EXPECT_THAT(
        RunSql(file_, "SELECT sql FROM sqlite_master"),
        ElementsAre("CREATE TABLE cdb_task(id INTEGER PRIMARY KEY, type INTEGER, title "
                    "VARCHAR(100),  url VARCHAR(512), state INTEGER, length VARCHAR(12), action "
                    "INTEGER, datetime VARCHAR(32), unique_id VARCHAR(128), save_path "
                    "VARCHAR(512) )"));
}

TEST_F(TaskStoreTest, AStartWithAnExistingFileKeepsAllRows) {
    Add("com.a");
    Add("com.b");
    const TaskStore again(file_);
    EXPECT_EQ(again.OpenResult(), StoreResult::done);
    EXPECT_THAT(PackagesOf(again, TaskFilter::all), ElementsAre("com.a", "com.b"));
}

TEST_F(TaskStoreTest, AFileThatIsToldLaterIsOpenedByTheFirstOperation) {
    Add("com.a");
    int asked = 0;
    const TaskStore later([&] {
        ++asked;
        return file_;
    });
    EXPECT_EQ(asked, 0);
    EXPECT_THAT(PackagesOf(later, TaskFilter::all), ElementsAre("com.a"));
    EXPECT_EQ(later.OpenResult(), StoreResult::done);
    EXPECT_EQ(asked, 1);
}

TEST_F(TaskStoreTest, WithoutAFileEveryOperationFails) {
    TaskStore none([] { return std::filesystem::path(); });
    EXPECT_EQ(none.OpenResult(), StoreResult::notOpen);
    EXPECT_EQ(none.InsertTask(TaskOf("com.a")), StoreResult::notOpen);
    EXPECT_EQ(none.LoadTaskList(TaskFilter::all).result, StoreResult::notOpen);
}

TEST_F(TaskStoreTest, ARowHoldsWhatTheTaskHeld) {
    CDownloadTask task = TaskOf("com.a", Ansi(u8"/home/李/下载"));
    task.index = 7;
    task.id = 99;
    task.type = TaskType::video;
    task.state = TaskState::paused;
    task.action = 3;
    ASSERT_EQ(store_.InsertTask(task), StoreResult::done);
    const LoadedTasks list = store_.LoadTaskList(TaskFilter::all);
    ASSERT_EQ(list.tasks.size(), 1U);
    const CDownloadTask& row = list.tasks[0];
    EXPECT_EQ(row.index, 0);
    EXPECT_EQ(row.id, 1);
    EXPECT_EQ(row.type, TaskType::video);
    EXPECT_EQ(row.title, task.title);
    EXPECT_EQ(row.url, task.url);
    EXPECT_EQ(row.state, TaskState::paused);
    EXPECT_EQ(row.length, "1.5MB");
    EXPECT_EQ(row.action, 3);
    EXPECT_EQ(row.uniqueId, "com.a");
    EXPECT_EQ(row.savePath, task.savePath);
}

TEST_F(TaskStoreTest, TheTableKeepsTitleAndFolderInUtf8) {
    CDownloadTask task = TaskOf("com.a", Ansi(u8"/下载"));
    task.title = Ansi(u8"听书");
    ASSERT_EQ(store_.InsertTask(task), StoreResult::done);
    EXPECT_THAT(RunSql(file_, "SELECT title, save_path FROM cdb_task"),
                ElementsAre("听书", "/下载"));
}

TEST_F(TaskStoreTest, AnAddressIsReadAsItIsKept) {
    CDownloadTask task = TaskOf("com.a");
    task.url = Ansi(u8"http://download.example/听.apk");
    ASSERT_EQ(store_.InsertTask(task), StoreResult::done);
    EXPECT_EQ(store_.LoadTaskForDownload(1).value_or(CDownloadTask{}).url,
              "http://download.example/听.apk");
}

TEST_F(TaskStoreTest, TheTimeIsThatOfTheInsertion) {
    CDownloadTask task = TaskOf("com.a");
    task.datetime = "1999-01-01 00:00:00";
    const auto before = std::time(nullptr);
    ASSERT_EQ(store_.InsertTask(task), StoreResult::done);
    const auto after = std::time(nullptr);
    const std::string datetime = store_.FindTaskByUniqueId("com.a").datetime;
    EXPECT_GE(datetime, FormatUnixTime(before));
    EXPECT_LE(datetime, FormatUnixTime(after));
}

TEST_F(TaskStoreTest, ATitleWithAnApostropheMakesNoRow) {
    CDownloadTask task = TaskOf("com.a");
    task.title = "Li's app";
    EXPECT_EQ(store_.InsertTask(task), StoreResult::refused);
    EXPECT_THAT(store_.LoadTaskList(TaskFilter::all).tasks, IsEmpty());
}

TEST_F(TaskStoreTest, NoTextIsReadAsPartOfAStatement) {
    CDownloadTask task = TaskOf("com.a", "/home/o'brien");
    task.title = "\"); DROP TABLE cdb_task; --";
    task.url = "http://download.example/'); DELETE FROM cdb_task; --";
    task.length = "1', 2";
    ASSERT_EQ(store_.InsertTask(task), StoreResult::done);
    const auto row = store_.LoadTaskForDownload(1);
    ASSERT_TRUE(row.has_value());
    EXPECT_EQ(row->title, task.title);
    EXPECT_EQ(row->url, task.url);
    EXPECT_EQ(row->length, task.length);
    EXPECT_EQ(row->savePath, task.savePath);
    EXPECT_EQ(store_.FindTaskByUniqueId("' OR '1'='1").found, FoundTask::Found::none);
}

TEST_F(TaskStoreTest, ANameThatIsNoPackagesMakesNoRow) {
    for (const char* name : {"", "../com.a", ".a", "a/b", "a b", "a'b"}) {
        EXPECT_EQ(store_.InsertTask(TaskOf(name)), StoreResult::refused) << name;
    }
    EXPECT_EQ(store_.InsertTask(TaskOf("com.a", "")), StoreResult::refused);
    EXPECT_THAT(store_.LoadTaskList(TaskFilter::all).tasks, IsEmpty());
}

TEST_F(TaskStoreTest, TextsLongerThanTheirColumnsAreKeptWhole) {
    CDownloadTask task = TaskOf("com." + std::string(300, 'a'), "/" + std::string(2000, 'b'));
    task.title = std::string(1000, 'c');
    ASSERT_EQ(store_.InsertTask(task), StoreResult::done);
    const auto row = store_.LoadTaskForDownload(1);
    ASSERT_TRUE(row.has_value());
    EXPECT_EQ(row->title, task.title);
    EXPECT_EQ(row->uniqueId, task.uniqueId);
    EXPECT_EQ(row->savePath, task.savePath);
}

TEST_F(TaskStoreTest, AnEmptyTableHasNothingNext) {
    EXPECT_EQ(store_.NextDownloadTaskId(), -1);
    EXPECT_EQ(store_.NextInstallTaskId(), -1);
    const LoadedTasks list = store_.LoadTaskList(TaskFilter::unfinished);
    EXPECT_EQ(list.result, StoreResult::done);
    EXPECT_THAT(list.tasks, IsEmpty());
}

TEST_F(TaskStoreTest, TheOldestRowIsNext) {
    const auto first = Add("com.a");
    Add("com.b");
    EXPECT_EQ(store_.NextDownloadTaskId(), first);
    const auto install = Add("com.c", TaskState::installing);
    Add("com.d", TaskState::installing);
    EXPECT_EQ(store_.NextInstallTaskId(), install);
}

TEST_F(TaskStoreTest, ARowThatACrashLeftInItsDownloadIsNext) {
    Add("com.paused", TaskState::paused);
    const auto left = Add("com.left", TaskState::downloading);
    Add("com.waiting");
    const TaskStore again(file_);
    EXPECT_EQ(again.LoadTaskForDownload(left).value_or(CDownloadTask{}).state,
              TaskState::downloading);
    EXPECT_EQ(again.NextDownloadTaskId(), left);
}

TEST_F(TaskStoreTest, OnlyStatesBelowPausedAreNextToDownload) {
    for (int state = 2; state <= 9; ++state) {
        Add(fmt::format("s{}", state), static_cast<TaskState>(state));
    }
    EXPECT_EQ(store_.NextDownloadTaskId(), -1);
}

TEST_F(TaskStoreTest, EachFilterShowsItsStates) {
    AddEachState();
    EXPECT_THAT(PackagesOf(store_, TaskFilter::all),
                ElementsAre("s0", "s1", "s2", "s3", "s4", "s5", "s6", "s7", "s8", "s9"));
    EXPECT_THAT(PackagesOf(store_, TaskFilter::unfinished),
                ElementsAre("s0", "s1", "s2", "s4", "s5", "s6", "s7", "s8", "s9"));
    EXPECT_THAT(PackagesOf(store_, TaskFilter::downloading), ElementsAre("s0", "s1", "s2"));
    EXPECT_THAT(PackagesOf(store_, TaskFilter::installing),
                ElementsAre("s5", "s6", "s7", "s8", "s9"));
    EXPECT_THAT(PackagesOf(store_, TaskFilter::done), ElementsAre("s3"));
}

TEST_F(TaskStoreTest, ADoneTaskIsUnderNoFilterOfUnfinishedOnes) {
    Add("com.done", TaskState::done);
    EXPECT_THAT(PackagesOf(store_, TaskFilter::unfinished), IsEmpty());
    EXPECT_THAT(PackagesOf(store_, TaskFilter::downloading), IsEmpty());
}

TEST_F(TaskStoreTest, AFailedTaskIsUnderTheUnfinishedAlone) {
    Add("com.failed", TaskState::failed);
    EXPECT_THAT(PackagesOf(store_, TaskFilter::all), ElementsAre("com.failed"));
    EXPECT_THAT(PackagesOf(store_, TaskFilter::unfinished), ElementsAre("com.failed"));
    for (const auto filter : {TaskFilter::downloading, TaskFilter::installing, TaskFilter::done}) {
        EXPECT_THAT(PackagesOf(store_, filter), IsEmpty());
    }
}

TEST_F(TaskStoreTest, EachRowOfAListKnowsItsPlace) {
    AddEachState();
    const LoadedTasks list = store_.LoadTaskList(TaskFilter::installing);
    for (std::size_t i = 0; i < list.tasks.size(); ++i) {
        EXPECT_EQ(list.tasks[i].index, static_cast<std::int32_t>(i));
    }
}

TEST_F(TaskStoreTest, FindsAPackageByItsName) {
    EXPECT_EQ(store_.FindTaskByUniqueId("com.a").found, FoundTask::Found::none);
    EXPECT_EQ(store_.FindTaskByUniqueId("com.a").id, kNoTask);
    const auto id = Add("com.a", TaskState::failed);
    FoundTask found = store_.FindTaskByUniqueId("com.a");
    EXPECT_EQ(found.found, FoundTask::Found::unfinished);
    EXPECT_EQ(found.id, id);
    EXPECT_EQ(found.file, "/save/com.a.apk");
    EXPECT_EQ(found.title, Ansi(u8"听书"));
    store_.SetTaskState(id, TaskState::done);
    found = store_.FindTaskByUniqueId("com.a");
    EXPECT_EQ(found.found, FoundTask::Found::done);
    EXPECT_EQ(static_cast<int>(FoundTask::Found::none), 0);
    EXPECT_EQ(static_cast<int>(FoundTask::Found::unfinished), 1);
    EXPECT_EQ(static_cast<int>(FoundTask::Found::done), 2);
}

TEST_F(TaskStoreTest, OfTwoRowsOfOnePackageTheLastIsFound) {
    RunSql(file_,
           "INSERT INTO cdb_task VALUES(NULL, 0, 'first', 'u', 3, '', 1, 'd1', 'com.a', '/one');"
           "INSERT INTO cdb_task VALUES(NULL, 0, 'last', 'u', 4, '', 1, 'd2', 'com.a', '/two');");
    const FoundTask found = store_.FindTaskByUniqueId("com.a");
    EXPECT_EQ(found.found, FoundTask::Found::unfinished);
    EXPECT_EQ(found.title, "last");
    EXPECT_EQ(found.datetime, "d2");
    EXPECT_EQ(found.file, "/two/com.a.apk");
    EXPECT_EQ(found.id, 2);
}

TEST_F(TaskStoreTest, TheFileOfARowFromElsewhereStaysInItsFolder) {
    RunSql(file_,
           "INSERT INTO cdb_task VALUES(1, 0, 't', 'u', 5, '', 1, 'd', '../../evil', '/save');"
           "INSERT INTO cdb_task VALUES(2, 0, 't', 'u', 5, '', 1, 'd', 'com.a', NULL);"
           "INSERT INTO cdb_task VALUES(3, 0, 't', 'u', 5, '', 1, 'd', 'com.b', '/my files');");
    EXPECT_EQ(store_.LoadTaskForInstall(1), std::nullopt);
    EXPECT_EQ(store_.LoadTaskForInstall(2), std::nullopt);
    EXPECT_EQ(store_.LoadTaskForInstall(3), "/my files/com.b.apk");
    EXPECT_EQ(store_.LoadTaskForInstall(4), std::nullopt);
}

TEST_F(TaskStoreTest, ARowWithoutValuesIsRead) {
    RunSql(file_, "INSERT INTO cdb_task(id) VALUES(5)");
    const LoadedTasks list = store_.LoadTaskList(TaskFilter::all);
    ASSERT_EQ(list.tasks.size(), 1U);
    EXPECT_EQ(list.tasks[0].id, 5);
    EXPECT_EQ(list.tasks[0].title, "");
    EXPECT_EQ(list.tasks[0].state, TaskState::waiting);
}

TEST_F(TaskStoreTest, DeletesOneRow) {
    const auto id = Add("com.a");
    Add("com.b");
    EXPECT_EQ(store_.DeleteTask(id), StoreResult::done);
    EXPECT_THAT(PackagesOf(store_, TaskFilter::all), ElementsAre("com.b"));
}

TEST_F(TaskStoreTest, SetsTheStateOfOneRow) {
    const auto id = Add("com.a");
    const auto other = Add("com.b");
    EXPECT_EQ(store_.SetTaskState(id, TaskState::installFailed), StoreResult::done);
    EXPECT_EQ(store_.LoadTaskForDownload(id).value_or(CDownloadTask{}).state,
              TaskState::installFailed);
    EXPECT_EQ(store_.LoadTaskForDownload(other).value_or(CDownloadTask{}).state,
              TaskState::waiting);
}

TEST_F(TaskStoreTest, NoTaskIsNeitherDeletedNorChanged) {
    RunSql(file_, "INSERT INTO cdb_task VALUES(-1, 0, 't', 'u', 4, '', 1, 'd', 'com.a', '/save')");
    EXPECT_EQ(store_.DeleteTask(kNoTask), StoreResult::done);
    EXPECT_EQ(store_.SetTaskState(kNoTask, TaskState::done), StoreResult::done);
    const LoadedTasks list = store_.LoadTaskList(TaskFilter::all);
    ASSERT_EQ(list.tasks.size(), 1U);
    EXPECT_EQ(list.tasks[0].state, TaskState::failed);
}

}  // namespace
}  // namespace quorvi
