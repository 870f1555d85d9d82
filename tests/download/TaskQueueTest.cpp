#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <atomic>
#include <thread>

#include "download/TaskQueue.h"
#include "tests/download/QueueTest.h"
#include "tests/support/LoopbackPort.h"
#include "tests/support/SmallDisk.h"

namespace quorvi {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

using TaskQueueTest = QueueTest;

TEST_F(TaskQueueTest, ATaskIsDownloadedAndThenInstalled) {
    const auto id = Add("com.a");
    ASSERT_TRUE(RunToTheEnd());
    // Each is told behind what it has set in the table.
    EXPECT_THAT(Heard(), ElementsAre("started com.a 1", "complete com.a 5", "reload",
                                     "installStarted com.a 5", "installEnded com.a 3", "reload"));
    EXPECT_EQ(StateOf(id), TaskState::done);
    EXPECT_EQ(FileContent(File("com.a")), ContentOf("com.a"));
    EXPECT_THAT(adb_.Calls(),
                ElementsAre(ElementsAre("-s", "HT04", "install", "-r", File("com.a").native())));
    EXPECT_EQ(queue_.CurrentTask().value_or(CDownloadTask{}).id, id);
}

TEST_F(TaskQueueTest, NothingStartsByItself) {
    Add("com.a");
    Add("com.b", TaskState::installing);
    EXPECT_TRUE(queue_.IsIdle());
    EXPECT_THAT(Heard(), IsEmpty());
    EXPECT_FALSE(queue_.CurrentTask().has_value());
}

TEST_F(TaskQueueTest, OfTwoWaitingRowsTheSmallerNumberGoesFirst) {
    const auto first = Add("com.a");
    const auto second = Add("com.b");
    ASSERT_LT(first, second);
    ASSERT_TRUE(RunToTheEnd());
    const auto heard = Heard();
    EXPECT_LT(std::ranges::find(heard, "complete com.a 5"),
              std::ranges::find(heard, "started com.b 1"));
    EXPECT_EQ(StateOf(first), TaskState::done);
    EXPECT_EQ(StateOf(second), TaskState::done);
}

TEST_F(TaskQueueTest, ARowThatACrashLeftIsResumed) {
    const auto id = Add("com.a", TaskState::downloading);
    std::ofstream(Part("com.a")) << ContentOf("com.a").substr(0, 1000);
    ASSERT_TRUE(RunToTheEnd());
    EXPECT_EQ(StateOf(id), TaskState::done);
    EXPECT_EQ(FileContent(File("com.a")), ContentOf("com.a"));
    EXPECT_EQ(site_.Requests(1).at(0).range, "bytes=1000-");
}

TEST_F(TaskQueueTest, ManyStartsAtOnceStartOneDownload) {
    constexpr int kThreads = 8;
    Add("com.a", TaskState::waiting, "slow");
    Add("com.b", TaskState::waiting, "slow");
    std::vector<std::thread> threads;
    for (int i = 0; i < kThreads; ++i) {
        threads.emplace_back([this] { queue_.StartNext(); });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
    EXPECT_THAT(Heard(), ElementsAre("started com.a 1"));
}

TEST_F(TaskQueueTest, ProgressIsToldOfTheTask) {
    Add("com.a", TaskState::waiting, "slow");
    queue_.StartNext();
    ASSERT_TRUE(Await([this] { return !Progress().empty(); }));
    const QueueEvent first = Progress().front();
    EXPECT_EQ(first.task.uniqueId, "com.a");
    EXPECT_GT(first.speed, 0);
    EXPECT_GT(first.percent, 0);
}

TEST_F(TaskQueueTest, PausingTheDownloadStopsItAndStartsNoOther) {
    const auto id = Add("com.a", TaskState::waiting, "slow");
    const auto other = Add("com.b");
    queue_.StartNext();
    ASSERT_TRUE(Await([this] { return std::filesystem::exists(Part("com.a")); }));
    queue_.PauseTask(id);
    ASSERT_TRUE(Await([this] { return queue_.IsIdle(); }));
    EXPECT_EQ(StateOf(id), TaskState::paused);
    EXPECT_EQ(StateOf(other), TaskState::waiting);
    EXPECT_THAT(HeardOf("com.b"), IsEmpty());
    EXPECT_TRUE(std::filesystem::exists(Part("com.a")));
}

TEST_F(TaskQueueTest, PausingAnotherTaskChangesItsStateAlone) {
    const auto id = Add("com.a", TaskState::waiting, "slow");
    const auto other = Add("com.b");
    queue_.StartNext();
    queue_.PauseTask(other);
    EXPECT_EQ(StateOf(other), TaskState::paused);
    EXPECT_EQ(StateOf(id), TaskState::downloading);
    EXPECT_FALSE(queue_.IsIdle());
    EXPECT_THAT(Heard(), ElementsAre("started com.a 1", "reload"));
}

TEST_F(TaskQueueTest, APausedTaskGoesOnWhereItStopped) {
    const auto id = Add("com.a", TaskState::paused);
    std::ofstream(Part("com.a")) << ContentOf("com.a").substr(0, 5000);
    queue_.ResumeTask(id);
    ASSERT_TRUE(Await([this] { return queue_.IsIdle(); }));
    EXPECT_EQ(StateOf(id), TaskState::done);
    EXPECT_EQ(FileContent(File("com.a")), ContentOf("com.a"));
    EXPECT_EQ(site_.Requests(1).at(0).range, "bytes=5000-");
    EXPECT_EQ(Heard().front(), "reload");
}

TEST_F(TaskQueueTest, StoppingLeavesTheStateAsItIs) {
    const auto id = Add("com.a", TaskState::waiting, "slow");
    queue_.StartNext();
    queue_.StopCurrent();
    ASSERT_TRUE(Await([this] { return queue_.IsIdle(); }));
    EXPECT_EQ(StateOf(id), TaskState::downloading);
    EXPECT_THAT(Heard(), ElementsAre("started com.a 1", "stopped com.a 1"));
}

TEST_F(TaskQueueTest, AFailedDownloadMakesRoomForTheNext) {
    // Nobody listens there.
    CDownloadTask task = TaskOf("com.bad", save_.Path().native());
    task.url = fmt::format("http://127.0.0.1:{}/a.apk", UnusedPort());
    ASSERT_EQ(store_->InsertTask(task), StoreResult::done);
    const auto good = Add("com.good");
    ASSERT_TRUE(RunToTheEnd());
    EXPECT_EQ(StateOf(store_->FindTaskByUniqueId("com.bad").id), TaskState::failed);
    EXPECT_EQ(StateOf(good), TaskState::done);
    EXPECT_EQ(FileContent(File("com.good")), ContentOf("com.good"));
}

TEST_F(TaskQueueTest, WhatARefusedRunStillTellsBelongsToItsOwnTask) {
    const auto missing = Add("com.missing", TaskState::waiting, "nowhere");
    const auto slow = Add("com.slow", TaskState::waiting, "slow");
    queue_.StartNext();
    // Its page arrives, and is taken for the file, while the next download runs.
    ASSERT_TRUE(Await([this] { return HasHeard("complete com.missing 5"); }));
    EXPECT_THAT(HeardOf("com.missing"),
                testing::IsSupersetOf(
                    {"started com.missing 1", "failed com.missing 4", "complete com.missing 5"}));
    EXPECT_EQ(StateOf(slow), TaskState::downloading);
    EXPECT_THAT(HeardOf("com.slow"), ElementsAre("started com.slow 1"));
    EXPECT_NE(StateOf(missing), TaskState::waiting);
}

TEST_F(TaskQueueTest, ARowWithoutAPackagesNameFailsAndTheNextIsTaken) {
    RunSql(
        table_,
        "INSERT INTO cdb_task VALUES(1, 0, 't', 'http://h/', 0, '', 1, 'd', '../../evil', '/x');"
        "INSERT INTO cdb_task VALUES(2, 0, 't', 'http://h/', 5, '', 1, 'd', '../../evil', '/x')");
    const auto id = Add("com.a");
    ASSERT_TRUE(RunToTheEnd());
    EXPECT_EQ(StateOf(1), TaskState::failed);
    EXPECT_EQ(StateOf(2), TaskState::installFailed);
    EXPECT_EQ(StateOf(id), TaskState::done);
    EXPECT_EQ(adb_.Calls().size(), 1U);
}

TEST_F(TaskQueueTest, RemovingTheDownloadStopsItAndKeepsItsPart) {
    const auto id = Add("com.a", TaskState::waiting, "slow");
    queue_.StartNext();
    ASSERT_TRUE(Await([this] { return std::filesystem::exists(Part("com.a")); }));
    queue_.RemoveTask(id);
    ASSERT_TRUE(Await([this] { return queue_.IsIdle(); }));
    EXPECT_FALSE(store_->LoadTaskForDownload(id).has_value());
    EXPECT_TRUE(std::filesystem::exists(Part("com.a")));
}

TEST_F(TaskQueueTest, RemovesAllThatAreChecked) {
    const auto a = Add("com.a");
    Add("com.b");
    const auto c = Add("com.c", TaskState::done);
    std::ofstream(File("com.c")) << "file";
    const std::int32_t checked[] = {a, c};
    queue_.RemoveTasks(checked);
    EXPECT_THAT(PackagesOf(*store_, TaskFilter::all), ElementsAre("com.b"));
    EXPECT_THAT(Heard(), ElementsAre("reload"));
    EXPECT_TRUE(std::filesystem::exists(File("com.c")));
}

TEST_F(TaskQueueTest, RemovingNothingIsToldAndChangesNothing) {
    Add("com.a");
    queue_.RemoveTasks({});
    EXPECT_THAT(Heard(), ElementsAre("nothingChecked"));
    EXPECT_EQ(PackagesOf(*store_, TaskFilter::all).size(), 1U);
}

TEST_F(TaskQueueTest, DownloadingAgainBeginsWithoutTheOldFile) {
    const auto id = Add("com.a", TaskState::done, "slow");
    std::ofstream(File("com.a")) << "old";
    queue_.DownloadAgain(id);
    EXPECT_FALSE(std::filesystem::exists(File("com.a")));
    EXPECT_EQ(StateOf(id), TaskState::downloading);
}

TEST_F(TaskQueueTest, InstallingAgainTakesTheFileThatIsThere) {
    const auto id = Add("com.a", TaskState::done);
    std::ofstream(File("com.a")) << "old";
    queue_.InstallAgain(id);
    ASSERT_TRUE(Await([this] { return queue_.IsIdle(); }));
    EXPECT_EQ(StateOf(id), TaskState::done);
    EXPECT_THAT(Heard(), ElementsAre("installStarted com.a 5", "installEnded com.a 3", "reload"));
    EXPECT_EQ(FileContent(File("com.a")), "old");
}

TEST_F(TaskQueueTest, AWholePartThatAKilledProcessHasNotMovedIsMovedAndInstalled) {
    const auto id = Add("com.a", TaskState::installing);
    std::ofstream(Part("com.a"), std::ios::binary) << ContentOf("com.a");
    ASSERT_TRUE(RunToTheEnd());
    EXPECT_EQ(StateOf(id), TaskState::done);
    EXPECT_TRUE(FileContent(File("com.a")) == ContentOf("com.a"));
    EXPECT_FALSE(std::filesystem::exists(Part("com.a")));
}

TEST_F(TaskQueueTest, APartBesideItsFileStaysWhereItIs) {
    const auto id = Add("com.a", TaskState::installing);
    std::ofstream(File("com.a"), std::ios::binary) << "whole";
    std::ofstream(Part("com.a"), std::ios::binary) << "begun anew";
    ASSERT_TRUE(RunToTheEnd());
    EXPECT_EQ(StateOf(id), TaskState::done);
    EXPECT_EQ(FileContent(File("com.a")), "whole");
    EXPECT_EQ(FileContent(Part("com.a")), "begun anew");
}

TEST_F(TaskQueueTest, InstallationsFollowEachOther) {
    for (const char* package : {"com.a", "com.b", "com.c"}) {
        Add(package, TaskState::installing);
        std::ofstream(File(package)) << "file";
    }
    queue_.InstallNext();
    ASSERT_TRUE(Await([this] { return queue_.IsIdle(); }));
    EXPECT_EQ(PackagesOf(*store_, TaskFilter::done).size(), 3U);
    EXPECT_EQ(adb_.Calls().size(), 3U);
}

// An adb that goes on when it is told to.
class SlowInstallTest : public QueueTest {
  protected:
    SlowInstallTest() : QueueTest("touch $dir/asked; await go; echo Success") {}
    void TearDown() override {
        adb_.Put("go");
        QueueTest::TearDown();
    }
};

TEST_F(SlowInstallTest, ADownloadThatEndsMeanwhileIsInstalledNext) {
    const auto first = Add("com.a");
    const auto second = Add("com.b");
    queue_.StartNext();
    ASSERT_TRUE(Await([this] { return adb_.Has("asked") && HasHeard("complete com.b 5"); }));
    EXPECT_EQ(StateOf(first), TaskState::installing);
    EXPECT_EQ(StateOf(second), TaskState::installing);
    EXPECT_THAT(HeardOf("com.b"), ElementsAre("started com.b 1", "complete com.b 5"));
    adb_.Put("go");
    ASSERT_TRUE(Await([this] { return queue_.IsIdle(); }));
    EXPECT_EQ(StateOf(first), TaskState::done);
    EXPECT_EQ(StateOf(second), TaskState::done);
}

TEST_F(SlowInstallTest, OneRowIsNotInstalledTwice) {
    Add("com.a", TaskState::installing);
    queue_.InstallNext();
    ASSERT_TRUE(Await([this] { return adb_.Has("asked"); }));
    queue_.InstallNext();
    queue_.StartNext();
    adb_.Put("go");
    ASSERT_TRUE(Await([this] { return queue_.IsIdle(); }));
    EXPECT_EQ(adb_.Calls().size(), 1U);
}

// An adb whose answer is that of the package's name.
class InstallResultTest : public QueueTest {
  protected:
    InstallResultTest()
        : QueueTest(R"(case "$5" in
        *signature*) echo 'Failure [INSTALL_PARSE_FAILED_INCONSISTENT_CERTIFICATES]';;
        *space*) echo 'Failure [INSTALL_FAILED_INSUFFICIENT_STORAGE]';;
        *longer*) echo 'all Successfully done';;
        *) echo 'Failure [INSTALL_FAILED_OLDER_SDK]';;
        esac)") {}

    // What an installation of this package is told to have come to.
    InstallResult ResultOf(const std::string& package) {
        const auto id = Add(package, TaskState::installing);
        InstallResult result = InstallResult::success;
        const Subscription heard = queue_.Observe([&result](const QueueEvent& event) {
            if (event.kind == QueueEvent::Kind::installEnded) {
                result = event.install;
            }
        });
        queue_.InstallNext();
        EXPECT_TRUE(Await([this] { return queue_.IsIdle(); }));
        state_ = StateOf(id);
        return result;
    }

    TaskState state_ = TaskState::waiting;
};

TEST_F(InstallResultTest, EachFailureIsToldApartAndEndsAlike) {
    EXPECT_EQ(ResultOf("com.signature"), InstallResult::otherSignature);
    EXPECT_EQ(state_, TaskState::installFailed);
    EXPECT_EQ(ResultOf("com.space"), InstallResult::phoneFull);
    EXPECT_EQ(state_, TaskState::installFailed);
    EXPECT_EQ(ResultOf("com.other"), InstallResult::failed);
    EXPECT_EQ(state_, TaskState::installFailed);
}

TEST_F(InstallResultTest, SuccessInsideALongerWordIsSuccess) {
    EXPECT_EQ(ResultOf("com.longer"), InstallResult::success);
    EXPECT_EQ(state_, TaskState::done);
}

TEST_F(TaskQueueTest, WithoutAdbOrAPhoneTheInstallationFails) {
    const auto id = Add("com.a", TaskState::installing);
    LinkEnvironment none = adb_.Environment();
    none.adbPath = [] { return std::string("/nonexistent/adb"); };
    const TaskQueue queue(store_, PackageInstaller(none), [] { return std::string(); });
    InstallResult result = InstallResult::success;
    bool phoneChosen = true;
    const Subscription heard = queue.Observe([&](const QueueEvent& event) {
        if (event.kind == QueueEvent::Kind::installEnded) {
            result = event.install;
            phoneChosen = event.phoneChosen;
        }
    });
    queue.InstallNext();
    ASSERT_TRUE(Await([&queue] { return queue.IsIdle(); }));
    EXPECT_EQ(StateOf(id), TaskState::installFailed);
    EXPECT_EQ(result, InstallResult::noProcess);
    EXPECT_FALSE(phoneChosen);
}

TEST(TaskQueueFullDisk, ATableThatCannotBeWrittenEndsTheWork) {
    const SmallDisk disk(512 << 10);
    if (!disk.IsThere()) {
        GTEST_SKIP() << "no namespace to mount in";
    }
    const auto store = std::make_shared<TaskStore>(disk.Path() / "Config.db");
    CDownloadTask task = TaskOf("com.a", disk.Path().native());
    task.url = fmt::format("http://127.0.0.1:{}/a.apk", UnusedPort());
    ASSERT_EQ(store->InsertTask(task), StoreResult::done);
    disk.Fill();
    const FakeAdb adb("echo Success");
    const TaskQueue queue(store, PackageInstaller(adb.Environment()), [] { return "HT04"; });
    std::atomic<int> started = 0;
    std::atomic<int> full = 0;
    const Subscription heard = queue.Observe([&](const QueueEvent& event) {
        started += event.kind == QueueEvent::Kind::started ? 1 : 0;
        full += event.store == StoreResult::diskFull ? 1 : 0;
    });
    queue.StartNext();
    ASSERT_TRUE(Await([&queue] { return queue.IsIdle(); }));
    EXPECT_EQ(started, 1);
    EXPECT_GE(full, 2);
}

}  // namespace
}  // namespace quorvi
