// Two queues on one table, as those of two processes are: each has a handle of its own.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <thread>

#include "tests/download/QueueTest.h"

namespace quorvi {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;

class TwoQueuesTest : public QueueTest {
  protected:
    explicit TwoQueuesTest(std::string_view adb = kInstallsFiles) : QueueTest(adb) {}
    void TearDown() override {
        other_.StopCurrent();
        EXPECT_TRUE(Await([this] { return other_.IsIdle(); }));
        QueueTest::TearDown();
    }
    // Until the first queue has something of the file.
    [[nodiscard]] bool AwaitPart(const std::string& package) const {
        return Await([&] {
            std::error_code none;
            const auto size = std::filesystem::file_size(Part(package), none);
            return !none && size > 0;
        });
    }

    std::shared_ptr<TaskStore> otherStore_ = std::make_shared<TaskStore>(table_);
    TaskQueue other_{otherStore_, PackageInstaller(adb_.Environment()), [] { return "HT04"; }};
};

TEST_F(TwoQueuesTest, OneOfThemDownloadsAtATime) {
    const auto a = Add("com.a", TaskState::waiting, "slow");
    const auto b = Add("com.b");
    queue_.StartNext();
    ASSERT_TRUE(AwaitPart("com.a"));
    other_.StartNext();
    EXPECT_TRUE(other_.IsIdle());
    EXPECT_FALSE(std::filesystem::exists(Part("com.b")));
    ASSERT_TRUE(Await([this] { return queue_.IsIdle(); }));
    EXPECT_EQ(StateOf(a), TaskState::done);
    EXPECT_EQ(StateOf(b), TaskState::done);
    EXPECT_TRUE(FileContent(File("com.a")) == ContentOf("com.a"));
    EXPECT_EQ(site_.Requests(2).size(), 2U);
}

TEST_F(TwoQueuesTest, WhatOneStopsTheOtherGoesOnWith) {
    const auto a = Add("com.a", TaskState::waiting, "slow");
    queue_.StartNext();
    ASSERT_TRUE(AwaitPart("com.a"));
    queue_.StopCurrent();
    ASSERT_TRUE(Await([this] { return queue_.IsIdle(); }));
    ASSERT_EQ(StateOf(a), TaskState::downloading);
    other_.StartNext();
    ASSERT_TRUE(Await([this] { return other_.IsIdle(); }));
    EXPECT_EQ(StateOf(a), TaskState::done);
    EXPECT_TRUE(FileContent(File("com.a")) == ContentOf("com.a"));
    EXPECT_NE(site_.Requests(2).back().range, "");
}

TEST_F(TwoQueuesTest, ADownloadWhoseRowTheOtherPausesIsStopped) {
    const auto a = Add("com.a", TaskState::waiting, "slow");
    const auto b = Add("com.b");
    queue_.StartNext();
    ASSERT_TRUE(Await([this] { return !Progress().empty(); }));
    other_.PauseTask(a);
    ASSERT_TRUE(Await([this] { return queue_.IsIdle(); }));
    EXPECT_EQ(StateOf(a), TaskState::paused);
    EXPECT_EQ(StateOf(b), TaskState::waiting);
    EXPECT_THAT(HeardOf("com.a"), ElementsAre("started com.a 1", "stopped com.a 2"));
    EXPECT_TRUE(ContentOf("com.a").starts_with(FileContent(Part("com.a"))));
}

TEST_F(TwoQueuesTest, ADownloadWhoseRowTheOtherRemovesIsStopped) {
    const auto a = Add("com.a", TaskState::waiting, "slow");
    queue_.StartNext();
    ASSERT_TRUE(Await([this] { return !Progress().empty(); }));
    other_.RemoveTask(a);
    ASSERT_TRUE(Await([this] { return queue_.IsIdle(); }));
    EXPECT_THAT(PackagesOf(*store_, TaskFilter::all), IsEmpty());
    EXPECT_FALSE(std::filesystem::exists(File("com.a")));
}

// Two threads that start both queues again and again while rows come: each file is asked for once.
TEST_F(TwoQueuesTest, NoRowIsDownloadedOrInstalledTwice) {
    constexpr int kTasks = 12;
    std::vector<std::int32_t> ids;
    for (int i = 0; i < kTasks; ++i) {
        ids.push_back(Add("com.p" + std::to_string(i)));
    }
    const auto allDone = [&] {
        return std::ranges::all_of(ids, [this](auto id) { return StateOf(id) == TaskState::done; });
    };
    const auto press = [&](const TaskQueue& queue) {
        EXPECT_TRUE(Await([&] {
            queue.StartNext();
            return allDone();
        }));
    };
    std::thread second([&] { press(other_); });
    press(queue_);
    second.join();
    ASSERT_TRUE(Await([this] { return queue_.IsIdle() && other_.IsIdle(); }));
    EXPECT_EQ(site_.Requests(kTasks).size(), static_cast<std::size_t>(kTasks));
    EXPECT_EQ(adb_.Runs().size(), static_cast<std::size_t>(kTasks));
    for (int i = 0; i < kTasks; ++i) {
        const std::string package = "com.p" + std::to_string(i);
        EXPECT_TRUE(FileContent(File(package)) == ContentOf(package));
    }
}

class TwoInstallersTest : public TwoQueuesTest {
  protected:
    TwoInstallersTest() : TwoQueuesTest("touch $dir/busy; await go; echo Success") {}
};

TEST_F(TwoInstallersTest, OneOfThemInstallsAtATime) {
    const auto a = Add("com.a", TaskState::installing);
    queue_.InstallNext();
    ASSERT_TRUE(Await([this] { return adb_.Has("busy"); }));
    other_.InstallNext();
    EXPECT_TRUE(other_.IsIdle());
    adb_.Put("go");
    ASSERT_TRUE(Await([this] { return queue_.IsIdle(); }));
    EXPECT_EQ(StateOf(a), TaskState::done);
    EXPECT_EQ(adb_.Runs().size(), 1U);
}

TEST_F(TwoInstallersTest, AClosedQueueEndsItsInstallationAndBeginsNothing) {
    const auto a = Add("com.a", TaskState::installing);
    const auto b = Add("com.b", TaskState::installing);
    const auto c = Add("com.c");
    queue_.InstallNext();
    ASSERT_TRUE(Await([this] { return adb_.Has("busy"); }));
    queue_.Close();
    queue_.StartNext();
    EXPECT_FALSE(queue_.IsIdle());
    adb_.Put("go");
    ASSERT_TRUE(Await([this] { return queue_.IsIdle(); }));
    EXPECT_EQ(StateOf(a), TaskState::done);
    EXPECT_EQ(StateOf(b), TaskState::installing);
    EXPECT_EQ(StateOf(c), TaskState::waiting);
    other_.StartNext();
    ASSERT_TRUE(Await([this] { return other_.IsIdle(); }));
    EXPECT_EQ(StateOf(b), TaskState::done);
    EXPECT_EQ(StateOf(c), TaskState::done);
}

TEST_F(TwoQueuesTest, AClosedQueueStopsItsDownload) {
    const auto a = Add("com.a", TaskState::waiting, "slow");
    Add("com.b");
    queue_.StartNext();
    ASSERT_TRUE(AwaitPart("com.a"));
    queue_.Close();
    ASSERT_TRUE(Await([this] { return queue_.IsIdle(); }));
    EXPECT_EQ(StateOf(a), TaskState::downloading);
    EXPECT_THAT(Heard(), Contains("stopped com.a 1"));
    EXPECT_EQ(site_.Requests(1).size(), 1U);
}

}  // namespace
}  // namespace quorvi
