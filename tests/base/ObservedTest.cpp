#include <gtest/gtest.h>

#include <atomic>
#include <thread>

#include "base/Observed.h"

namespace quorvi {
namespace {

TEST(Observed, HoldsItsFirstValue) {
    EXPECT_EQ(Observed<int>(3).Get(), 3);
    EXPECT_EQ(Observed<int>().Get(), 0);
}

TEST(Observed, CopiesShareOneValue) {
    Observed<int> count;
    const Observed<int> copy = count;
    count.Set(4);
    EXPECT_EQ(copy.Get(), 4);
}

TEST(Observed, TellsEachObserverAfterTheValueIsThere) {
    Observed<int> count;
    std::vector<int> first;
    std::vector<int> second;
    const Subscription one = count.Observe([&](int value) {
        EXPECT_EQ(count.Get(), value);
        first.push_back(value);
    });
    const Subscription two = count.Observe([&](int value) { second.push_back(value); });
    count.Set(4);
    count.Set(0);
    EXPECT_EQ(first, (std::vector{4, 0}));
    EXPECT_EQ(second, (std::vector{4, 0}));
}

TEST(Observed, AnObserverThatHasGoneIsNotTold) {
    Observed<int> count;
    int told = 0;
    Subscription observation = count.Observe([&](int) { ++told; });
    count.Set(1);
    observation.reset();
    count.Set(2);
    EXPECT_EQ(told, 1);
}

// Which it could not if the lock were held while it is told.
TEST(Observed, AnObserverMaySetObserveAndGo) {
    Observed<int> count;
    Subscription again;
    Subscription observation = count.Observe([&](int) {
        observation.reset();
        again = count.Observe([](int) {});
        count.Set(count.Get() + 1);
    });
    count.Set(1);
    EXPECT_EQ(count.Get(), 2);
}

TEST(Observed, WhatAnObserverHoldsGoesWithItsSubscription) {
    Observed<int> count;
    auto held = std::make_shared<int>(1);
    Subscription observation = count.Observe([held](int) {});
    EXPECT_EQ(held.use_count(), 2);
    observation.reset();
    EXPECT_EQ(held.use_count(), 1);
}

TEST(Observed, ManyThreadsMaySetAndWatch) {
    constexpr int kThreads = 4;
    constexpr int kSets = 200;
    Observed<int> count;
    std::atomic<int> told = 0;
    const Subscription observation = count.Observe([&](int) { ++told; });
    std::vector<std::thread> threads;
    for (int i = 0; i < kThreads; ++i) {
        threads.emplace_back([count, i]() mutable {
            for (int k = 0; k < kSets; ++k) {
                const Subscription passing = count.Observe([](int) {});
                count.Set(i);
            }
        });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
    EXPECT_EQ(told, kThreads * kSets);
}

}  // namespace
}  // namespace quorvi
