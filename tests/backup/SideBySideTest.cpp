#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <memory>
#include <thread>

#include "backup/SideBySide.h"

namespace quorvi {
namespace {

struct Seen {
    std::atomic<int> running = 0;
    std::atomic<int> most = 0;
    std::atomic<int> calls = 0;

    void Enter() {
        ++calls;
        const int now = ++running;
        int known = most;
        while (now > known && !most.compare_exchange_weak(known, now)) {
        }
    }
};

bool Never(const int&) {
    return false;
}

TEST(SideBySide, ResultsComeInTheOrderOfTheirIndices) {
    SideBySide<int> runs(
        200, 4, [](std::size_t i) { return static_cast<int>(i); }, Never);
    const StopSignal stop;
    for (int i = 0; i < 200; ++i) {
        EXPECT_EQ(runs.Next(stop), i);
    }
    EXPECT_FALSE(runs.Next(stop));
}

TEST(SideBySide, RunsAtMostSoManyAtATime) {
    const auto seen = std::make_shared<Seen>();
    SideBySide<int> runs(
        100, 4,
        [seen](std::size_t) {
            seen->Enter();
            std::this_thread::yield();
            --seen->running;
            return 0;
        },
        Never);
    const StopSignal stop;
    while (runs.Next(stop)) {
    }
    EXPECT_EQ(seen->calls, 100);
    EXPECT_LE(seen->most, 4);
}

TEST(SideBySide, AsksOnceMoreWithNoOtherBesideItAfterAFailure) {
    // A phone that answers one at a time: whoever comes beside another fails.
    const auto seen = std::make_shared<Seen>();
    SideBySide<int> runs(
        50, 4,
        [seen](std::size_t) {
            seen->Enter();
            const bool beside = seen->running > 1;
            std::this_thread::yield();
            --seen->running;
            return beside ? -1 : 1;
        },
        [](const int& result) { return result < 0; });
    const StopSignal stop;
    int count = 0;
    while (const auto result = runs.Next(stop)) {
        EXPECT_EQ(*result, 1);
        ++count;
    }
    EXPECT_EQ(count, 50);
}

TEST(SideBySide, AFailureThatStaysIsTheResult) {
    SideBySide<int> runs(
        1, 4, [](std::size_t) { return -1; }, [](const int& result) { return result < 0; });
    EXPECT_EQ(runs.Next(StopSignal()), -1);
}

TEST(SideBySide, AStopEndsTheWaitForASessionThatIsStuck) {
    const auto stuck = std::make_shared<StopSignal>();
    StopSignal stop;
    SideBySide<int> runs(
        1, 1,
        [stuck](std::size_t) {
            stuck->WaitFor(std::chrono::minutes(2));
            return 0;
        },
        Never);
    std::thread stopper([&] { stop.Stop(); });
    EXPECT_FALSE(runs.Next(stop));
    stopper.join();
    stuck->Stop();
}

TEST(SideBySide, WhatIsOnItsWayAtAStopIsWaitedForWhenAsked) {
    const auto stop = std::make_shared<StopSignal>();
    const auto answer = [stop] {
        stop->WaitFor(std::chrono::minutes(2));  // so the answer comes after the stop
        return 7;
    };
    std::thread stopper([stop] { stop->Stop(); });
    EXPECT_EQ(RunUntilStopped<int>(answer, *stop, std::chrono::minutes(1)), 7);
    stopper.join();
}

TEST(SideBySide, AStopIsWaitedForNoLongerThanAsked) {
    const auto stuck = std::make_shared<StopSignal>();
    StopSignal stop;
    stop.Stop();
    const auto never = [stuck] {
        stuck->WaitFor(std::chrono::minutes(2));
        return 7;
    };
    EXPECT_FALSE(RunUntilStopped<int>(never, stop, std::chrono::milliseconds(1)));
    stuck->Stop();
}

TEST(SideBySide, MayBeDroppedWhileSessionsRun) {
    const auto released = std::make_shared<StopSignal>();
    const auto seen = std::make_shared<Seen>();
    {
        SideBySide<int> runs(
            100, 4,
            [released, seen](std::size_t) {
                seen->Enter();
                released->WaitFor(std::chrono::minutes(2));
                return 0;
            },
            Never);
    }
    released->Stop();
    EXPECT_LE(seen->calls, 4);
}

}  // namespace
}  // namespace quorvi
