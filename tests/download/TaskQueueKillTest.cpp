// Processes that are killed at random moments of downloads and installations: no row is lost or
// doubled, and in the end every file is there byte for byte.
#include <fmt/format.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <random>
#include <thread>

#include "tests/download/QueueTest.h"

namespace quorvi {
namespace {

constexpr const char* kPackages[] = {"com.a", "com.b", "com.c", "com.d"};

std::string ContentOf(const std::string& package) {
    std::string content;
    for (int i = 0; content.size() < 1'000'000; ++i) {
        content += package + std::to_string(i);
    }
    return content;
}

TEST(TaskQueueKill, NoRowIsLostAndEveryFileIsRightInTheEnd) {
    constexpr int kRounds = 15;
    const FakeAdb adb(kInstallsFiles);
    const SiteServer site("location /files/ { alias FILES/; limit_rate 10m; }");
    const TemporaryFolder folder;
    const auto table = folder.Path() / "Config.db";
    // No handle of this process is open while there is another process.
    const auto queueOn = [&](const std::shared_ptr<TaskStore>& store) {
        return TaskQueue(store, PackageInstaller(adb.Environment()), [] { return "HT04"; });
    };
    {
        TaskStore store(table);
        for (const std::string package : kPackages) {
            site.Serve(package + ".apk", ContentOf(package));
            CDownloadTask task = TaskOf(package, folder.Path().native());
            task.url = fmt::format("{}files/{}.apk", site.Root(), package);
            ASSERT_EQ(store.InsertTask(task), StoreResult::done);
        }
    }
    std::mt19937 random(20261122);
    for (int round = 0; round < kRounds; ++round) {
        const pid_t worker = fork();
        if (worker == 0) {
            const TaskQueue queue = queueOn(std::make_shared<TaskStore>(table));
            queue.StartNext();
            for (;;) {
                pause();
            }
        }
        std::this_thread::sleep_for(
            std::chrono::microseconds(std::uniform_int_distribution<int>(0, 120'000)(random)));
        kill(worker, SIGKILL);
        ASSERT_EQ(waitpid(worker, nullptr, 0), worker);
        EXPECT_THAT(RunSql(table, "PRAGMA integrity_check"), testing::ElementsAre("ok")) << round;
        EXPECT_THAT(RunSql(table, "SELECT unique_id FROM cdb_task"),
                    testing::ElementsAreArray(kPackages))
            << round;
    }
    const auto store = std::make_shared<TaskStore>(table);
    const TaskQueue queue = queueOn(store);
    queue.StartNext();
    ASSERT_TRUE(Await([&queue] { return queue.IsIdle(); }));
    EXPECT_THAT(PackagesOf(*store, TaskFilter::done), testing::ElementsAreArray(kPackages));
    for (const std::string package : kPackages) {
        EXPECT_TRUE(FileContent(folder.Path() / (package + ".apk")) == ContentOf(package))
            << package;
    }
}

}  // namespace
}  // namespace quorvi
