#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <chrono>

#include "base/os/StoppableThread.h"
#include "tests/support/Await.h"

namespace quorvi {
namespace {

constexpr std::chrono::hours kForEver{24};

TEST(StoppableThread, ItsWorkIsWokenByTheStopAndHasEndedBehindIt) {
    std::atomic<bool> isWaiting = false;
    std::atomic<bool> hasEnded = false;
    StoppableThread thread;
    ASSERT_TRUE(thread.Start([&](const StopSignal& stop) {
        isWaiting = true;
        stop.WaitFor(kForEver);
        hasEnded = stop.IsStopped();
    }));
    ASSERT_TRUE(Await([&] { return isWaiting.load(); }));
    thread.Stop();
    EXPECT_TRUE(hasEnded);
}

TEST(StoppableThread, ASecondStartEndsTheFirstWorkBefore) {
    std::atomic<int> running = 0;
    std::atomic<int> most = 0;
    StoppableThread thread;
    for (int start = 0; start < 3; ++start) {
        ASSERT_TRUE(thread.Start([&](const StopSignal& stop) {
            most = std::max(most.load(), ++running);
            stop.WaitFor(kForEver);
            --running;
        }));
        ASSERT_TRUE(Await([&] { return running == 1; }));
    }
    EXPECT_EQ(most, 1);
}

TEST(StoppableThread, IsStoppedByItsEnd) {
    std::atomic<bool> hasEnded = false;
    {
        StoppableThread thread;
        ASSERT_TRUE(thread.Start([&](const StopSignal& stop) {
            stop.WaitFor(kForEver);
            hasEnded = true;
        }));
    }
    EXPECT_TRUE(hasEnded);
}

TEST(StoppableThread, AStopWithoutAStartIsNothing) {
    StoppableThread thread;
    thread.Stop();
    thread.Stop();
    ASSERT_TRUE(thread.Start([](const StopSignal&) {}));
    thread.Stop();
    thread.Stop();
}

}  // namespace
}  // namespace quorvi
