#include <QEventLoop>
#include <QTest>
#include <atomic>
#include <future>
#include <memory>
#include <numeric>
#include <thread>
#include <vector>

#include "tests/support/QtTest.h"
#include "ui/page/Job.h"

namespace quorvi {
namespace {

class Jobs : public QtTest {
  protected:
    std::unique_ptr<QObject> page_ = std::make_unique<QObject>();
};

TEST_F(Jobs, PostsRunOnTheWindowsThreadInTheOrderOfTheCalls) {
    constexpr int kPosts = 200;
    std::vector<int> ran;
    bool elsewhere = false;
    std::thread([this, &ran, &elsewhere, window = std::this_thread::get_id()] {
        for (int i = 0; i < kPosts; ++i) {
            PostToWindow(page_.get(), [&, window, i] {
                ran.push_back(i);
                elsewhere |= std::this_thread::get_id() != window;
            });
        }
    }).join();
    EXPECT_TRUE(ran.empty());
    ASSERT_TRUE(WaitFor([&] { return ran.size() == kPosts; }));
    std::vector<int> told(kPosts);
    std::iota(told.begin(), told.end(), 0);
    EXPECT_EQ(ran, told);
    EXPECT_FALSE(elsewhere);
}

TEST_F(Jobs, ManyWorkersPostAtOnce) {
    constexpr int kWorkers = 16;
    constexpr int kPosts = 50;
    std::vector<std::vector<int>> ran(kWorkers);
    int all = 0;
    std::vector<std::thread> workers;
    for (int worker = 0; worker < kWorkers; ++worker) {
        workers.emplace_back([this, &all, &heard = ran[static_cast<std::size_t>(worker)]] {
            for (int i = 0; i < kPosts; ++i) {
                PostToWindow(page_.get(), [&, i] {
                    heard.push_back(i);
                    ++all;
                });
            }
        });
    }
    ASSERT_TRUE(WaitFor([&] { return all == kWorkers * kPosts; }));
    for (std::thread& worker : workers) {
        worker.join();
    }
    for (const std::vector<int>& heard : ran) {
        EXPECT_TRUE(std::ranges::is_sorted(heard));
    }
}

TEST_F(Jobs, WhatRunsMayTurnTheWindowsLoopItself) {
    std::vector<int> ran;
    PostToWindow(page_.get(), [&] {
        QEventLoop loop;
        PostToWindow(page_.get(), [&] {
            ran.push_back(3);
            loop.quit();
        });
        ran.push_back(1);
        loop.exec();
        ran.push_back(4);
    });
    PostToWindow(page_.get(), [&] { ran.push_back(2); });
    ASSERT_TRUE(WaitFor([&] { return ran.size() == 4; }));
    EXPECT_EQ(ran, (std::vector{1, 2, 3, 4}));
}

TEST_F(Jobs, APostToAPageThatIsGoneIsDroppedOnTheWindowsThread) {
    std::atomic<std::thread::id> dropped{};
    std::shared_ptr<void> held(&dropped, [](void* where) {
        *static_cast<std::atomic<std::thread::id>*>(where) = std::this_thread::get_id();
    });
    std::thread([page = QPointer<QObject>(page_.get()), held = std::move(held)]() mutable {
        PostToWindow(page, [held = std::move(held)] { FAIL() << "reached a page that is gone"; });
    }).join();
    page_.reset();
    ASSERT_TRUE(WaitFor([&] { return dropped.load() != std::thread::id(); }));
    EXPECT_EQ(dropped.load(), std::this_thread::get_id());
}

TEST_F(Jobs, TheResultOfAJobComesToTheWindowWhole) {
    std::vector<int> got;
    RunJob(
        page_.get(),
        [] {
            std::vector<int> made;
            for (int i = 0; i < 1000; ++i) {
                made.push_back(i);
            }
            return made;
        },
        [&got](std::vector<int>&& result) { got = std::move(result); });
    ASSERT_TRUE(WaitFor([&] { return !got.empty(); }));
    EXPECT_EQ(std::accumulate(got.begin(), got.end(), 0), 499500);
}

TEST_F(Jobs, AJobIsOnItsWayUntilWhatItBringsHasBeenTaken) {
    ASSERT_EQ(RunningJobs(), 0);
    std::promise<int> answer;
    int running = 0;
    RunJob(
        page_.get(), [future = answer.get_future().share()] { return future.get(); },
        [&](int) { running = RunningJobs(); });
    EXPECT_EQ(RunningJobs(), 1);
    answer.set_value(1);
    ASSERT_TRUE(QTest::qWaitFor([] { return RunningJobs() == 0; }, kPatience));
    EXPECT_EQ(running, 1);
}

TEST_F(Jobs, AJobWhosePageHasGoneIsNotOnItsWayForEver) {
    ASSERT_EQ(RunningJobs(), 0);
    std::promise<int> answer;
    bool taken = false;
    RunJob(
        page_.get(), [future = answer.get_future().share()] { return future.get(); },
        [&](int) { taken = true; });
    page_.reset();
    EXPECT_EQ(RunningJobs(), 1);
    answer.set_value(1);
    ASSERT_TRUE(QTest::qWaitFor([] { return RunningJobs() == 0; }, kPatience));
    EXPECT_FALSE(taken);
}

}  // namespace
}  // namespace quorvi
