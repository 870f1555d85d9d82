// The table where its file can't be opened or written, where others work on it too, and where they
// are killed while they do.
#include <fcntl.h>
#include <fmt/format.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <fstream>
#include <random>
#include <set>
#include <thread>

#include "base/os/FileDescriptor.h"
#include "download/TaskStore.h"
#include "tests/download/TaskRows.h"
#include "tests/support/SmallDisk.h"
#include "tests/support/TemporaryFolder.h"

namespace quorvi {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

// Each operation of a store that can do nothing.
void ExpectAllFail(TaskStore& store, StoreResult result) {
    EXPECT_EQ(store.InsertTask(TaskOf("com.a")), result);
    EXPECT_EQ(store.DeleteTask(1), result);
    EXPECT_EQ(store.SetTaskState(1, TaskState::done), result);
    EXPECT_EQ(store.LoadTaskList(TaskFilter::all).result, result);
    EXPECT_EQ(store.FindTaskByUniqueId("com.a").found, FoundTask::Found::none);
    EXPECT_EQ(store.NextDownloadTaskId(), kNoTask);
    EXPECT_EQ(store.NextInstallTaskId(), kNoTask);
    EXPECT_EQ(store.LoadTaskForDownload(1).has_value(), false);
    EXPECT_EQ(store.LoadTaskForInstall(1), std::nullopt);
}

// Runs `work` in a process of its own.
template <typename Work>
pid_t Fork(Work work) {
    const pid_t id = fork();
    if (id == 0) {
        work();
        _exit(0);
    }
    return id;
}

TEST(TaskStoreTrouble, MakesItsFolder) {
    const TemporaryFolder folder;
    TaskStore store(folder.Path() / "data" / "Quorvi" / "Config.db");
    EXPECT_EQ(store.OpenResult(), StoreResult::done);
    EXPECT_EQ(store.InsertTask(TaskOf("com.a")), StoreResult::done);
}

TEST(TaskStoreTrouble, AFileThatCannotBeOpenedFailsEveryStatement) {
    const TemporaryFolder folder;
    std::ofstream(folder.Path() / "file") << "no folder";
    TaskStore store(folder.Path() / "file" / "Config.db");
    EXPECT_EQ(store.OpenResult(), StoreResult::notOpen);
    ExpectAllFail(store, StoreResult::notOpen);
}

TEST(TaskStoreTrouble, AFileThatIsNoDatabaseIsLeftAsItIs) {
    const TemporaryFolder folder;
    const auto file = folder.Path() / "Config.db";
    const std::string text(4096, 'x');
    std::ofstream(file) << text;
    {
        TaskStore store(file);
        ExpectAllFail(store, StoreResult::failed);
    }
    std::ifstream stream(file);
    EXPECT_EQ(std::string(std::istreambuf_iterator(stream), {}), text);
}

TEST(TaskStoreTrouble, ATableOfOtherColumnsIsNotRead) {
    const TemporaryFolder folder;
    const auto file = folder.Path() / "Config.db";
    RunSql(file,
           "CREATE TABLE cdb_task(id INTEGER PRIMARY KEY, state INTEGER, unique_id TEXT);"
           "INSERT INTO cdb_task VALUES(1, 0, 'com.a')");
    TaskStore store(file);
    EXPECT_EQ(store.LoadTaskList(TaskFilter::all).result, StoreResult::failed);
    EXPECT_EQ(store.InsertTask(TaskOf("com.b")), StoreResult::failed);
    EXPECT_EQ(store.NextDownloadTaskId(), kNoTask);
    EXPECT_EQ(store.FindTaskByUniqueId("com.a").found, FoundTask::Found::none);
}

TEST(TaskStoreTrouble, AFileThatMayNotBeWrittenIsToldApart) {
    const TemporaryFolder folder;
    const auto file = folder.Path() / "Config.db";
    {
        TaskStore store(file);
        ASSERT_EQ(store.InsertTask(TaskOf("com.a")), StoreResult::done);
    }
    // Root may write every file; a table that says so of itself may not be written by anyone.
    RunSql(file, "PRAGMA journal_mode=DELETE");
    std::fstream stream(file, std::ios::in | std::ios::out | std::ios::binary);
    stream.seekp(18);    // the version that a writer has to know
    stream.put('\x7F');  // none knows this one
    stream.close();
    TaskStore store(file);
    EXPECT_EQ(store.InsertTask(TaskOf("com.b")), StoreResult::cannotWrite);
    EXPECT_THAT(PackagesOf(store, TaskFilter::all), ElementsAre("com.a"));
}

TEST(TaskStoreTrouble, AFullDiskIsTold) {
    const SmallDisk disk(512 << 10);
    if (!disk.IsThere()) {
        GTEST_SKIP() << "no namespace to mount in";
    }
    TaskStore store(disk.Path() / "Config.db");
    ASSERT_EQ(store.InsertTask(TaskOf("com.before")), StoreResult::done);
    disk.Fill();
    CDownloadTask large = TaskOf("com.large");
    large.title = std::string(64 << 10, 'x');
    EXPECT_EQ(store.InsertTask(large), StoreResult::diskFull);
    EXPECT_THAT(PackagesOf(store, TaskFilter::all), ElementsAre("com.before"));
    disk.Empty();
    EXPECT_EQ(store.InsertTask(large), StoreResult::done);
    EXPECT_THAT(PackagesOf(store, TaskFilter::all), ElementsAre("com.before", "com.large"));
}

TEST(TaskStoreTrouble, WhoReadsTheTableHoldsUpNoWriter) {
    const TemporaryFolder folder;
    const auto file = folder.Path() / "Config.db";
    TaskStore store(file);
    ASSERT_EQ(store.InsertTask(TaskOf("com.a")), StoreResult::done);
    sqlite3* reader = nullptr;
    ASSERT_EQ(sqlite3_open(file.c_str(), &reader), SQLITE_OK);
    ASSERT_EQ(sqlite3_exec(reader, "BEGIN; SELECT * FROM cdb_task", nullptr, nullptr, nullptr),
              SQLITE_OK);
    EXPECT_EQ(store.InsertTask(TaskOf("com.b")), StoreResult::done);
    sqlite3_close(reader);
}

TEST(TaskStoreTrouble, TwoThreadsWorkOnOneStore) {
    constexpr int kRows = 25;
    const TemporaryFolder folder;
    TaskStore store(folder.Path() / "Config.db");
    const auto work = [&store](const char* name) {
        for (int i = 0; i < kRows; ++i) {
            const std::string package = fmt::format("{}.{}", name, i);
            EXPECT_EQ(store.InsertTask(TaskOf(package)), StoreResult::done);
            const auto id = store.FindTaskByUniqueId(package).id;
            EXPECT_EQ(store.SetTaskState(id, TaskState::done), StoreResult::done);
            EXPECT_EQ(store.LoadTaskList(TaskFilter::done).result, StoreResult::done);
        }
    };
    std::thread one(work, "one");
    std::thread two(work, "two");
    one.join();
    two.join();
    EXPECT_EQ(PackagesOf(store, TaskFilter::done).size(), 2U * kRows);
}

TEST(TaskStoreTrouble, TwoProcessesWorkOnOneFile) {
    constexpr int kRows = 25;
    const TemporaryFolder folder;
    const auto file = folder.Path() / "Config.db";
    const auto work = [&file](const char* name) {
        TaskStore store(file);
        int failed = 0;
        for (int i = 0; i < kRows; ++i) {
            const std::string package = fmt::format("{}.{}", name, i);
            failed += store.InsertTask(TaskOf(package)) == StoreResult::done ? 0 : 1;
            const auto id = store.FindTaskByUniqueId(package).id;
            failed += store.SetTaskState(id, TaskState::done) == StoreResult::done ? 0 : 1;
        }
        return failed;
    };
    const pid_t other = Fork([&work] { _exit(work("other") == 0 ? 0 : 1); });
    EXPECT_EQ(work("own"), 0);
    int status = -1;
    ASSERT_EQ(waitpid(other, &status, 0), other);
    EXPECT_EQ(status, 0);
    const TaskStore store(file);
    EXPECT_EQ(PackagesOf(store, TaskFilter::done).size(), 2U * kRows);
}

// What a killed process has heard to be done is there, and nothing is there twice.
TEST(TaskStoreTrouble, AKilledWriterLeavesAWholeFile) {
    constexpr int kRounds = 10;
    const TemporaryFolder folder;
    const auto file = folder.Path() / "Config.db";
    std::mt19937 random(20261122);
    std::size_t told = 0;
    for (int round = 0; round < kRounds; ++round) {
        int ends[2] = {-1, -1};
        ASSERT_EQ(pipe2(ends, O_CLOEXEC), 0);
        const FileDescriptor read(ends[0]);
        FileDescriptor write(ends[1]);
        const pid_t writer = Fork([&] {
            TaskStore store(file);
            for (int i = 0;; ++i) {
                const CDownloadTask task = TaskOf(fmt::format("r{}.n{}", round, i));
                const char done = store.InsertTask(task) == StoreResult::done ? '1' : '0';
                [[maybe_unused]] const auto sent = ::write(ends[1], &done, 1);
            }
        });
        write.Close();
        // After so many rows, and then in the middle of the next one.
        const auto rows = std::uniform_int_distribution<int>(0, 15)(random);
        for (int i = 0; i < rows; ++i) {
            char done = '0';
            ASSERT_EQ(::read(read.Get(), &done, 1), 1);
            EXPECT_EQ(done, '1');
            ++told;
        }
        std::this_thread::sleep_for(
            std::chrono::microseconds(std::uniform_int_distribution<int>(0, 2000)(random)));
        kill(writer, SIGKILL);
        ASSERT_EQ(waitpid(writer, nullptr, 0), writer);
        for (char done = '0'; ::read(read.Get(), &done, 1) == 1;) {
            EXPECT_EQ(done, '1');
            ++told;
        }
        EXPECT_THAT(RunSql(file, "PRAGMA integrity_check"), ElementsAre("ok")) << round;
        const TaskStore store(file);
        const auto packages = PackagesOf(store, TaskFilter::all);
        const std::set<std::string> different(packages.begin(), packages.end());
        EXPECT_EQ(different.size(), packages.size()) << round;
        // One row a round may be there of which its writer could not tell any more.
        EXPECT_GE(packages.size(), told) << round;
        EXPECT_LE(packages.size(), told + static_cast<std::size_t>(round) + 1) << round;
    }
}

}  // namespace
}  // namespace quorvi
