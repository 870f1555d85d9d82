#include <gtest/gtest.h>

#include "download/ProgressMeter.h"

namespace quorvi {
namespace {

using namespace std::chrono_literals;

TEST(ProgressMeter, IsSilentInTheFirstSecond) {
    ProgressMeter meter(0, 1'000'000);
    EXPECT_FALSE(meter.Count(500'000, 999ms));
    EXPECT_FALSE(meter.Count(100'000, 1000ms));
    EXPECT_TRUE(meter.Count(100'000, 1001ms));
}

TEST(ProgressMeter, IsSilentForTheFirst10240Bytes) {
    ProgressMeter meter(1'000'000, 1'000'000);
    EXPECT_FALSE(meter.Count(10'240, 5000ms));
    EXPECT_TRUE(meter.Count(1, 5000ms));
}

TEST(ProgressMeter, TellsEvery200Milliseconds) {
    ProgressMeter meter(0, 1'000'000);
    EXPECT_TRUE(meter.Count(20'000, 1500ms));
    EXPECT_FALSE(meter.Count(1, 1700ms));
    EXPECT_TRUE(meter.Count(1, 1701ms));
}

TEST(ProgressMeter, TheSpeedIsTheMeanOfTheRunOverWholeSeconds) {
    ProgressMeter meter(900'000, 100'000);
    const auto progress = meter.Count(50'000, 2999ms);
    ASSERT_TRUE(progress);
    EXPECT_EQ(progress->speed, 25'000);
}

TEST(ProgressMeter, ThePercentageCountsWhatWasThere) {
    ProgressMeter meter(900'000, 100'000);
    const auto progress = meter.Count(50'000, 2000ms);
    ASSERT_TRUE(progress);
    EXPECT_EQ(progress->percent, 95);
}

TEST(ProgressMeter, CountsIn64Bits) {
    ProgressMeter meter(30'000'000'000, 70'000'000'000);
    const auto progress = meter.Count(20'000'000'000, 1001ms);
    ASSERT_TRUE(progress);
    EXPECT_EQ(progress->percent, 50);
    EXPECT_EQ(progress->speed, 2'147'483'647);  // what its 32 bits hold
    EXPECT_EQ(meter.Session(), 20'000'000'000);
}

}  // namespace
}  // namespace quorvi
