#include <gtest/gtest.h>
#include <poll.h>

#include <cstdint>
#include <thread>

#include "base/os/Wakeup.h"

namespace quorvi {
namespace {

constexpr int kPatienceMs = 60'000;

// Whether a thread that waits for this long is woken.
bool Wakes(const Wakeup& wakeup, int waitMs) {
    pollfd wait{wakeup.Descriptor(), POLLIN, 0};
    return poll(&wait, 1, waitMs) == 1 && (wait.revents & POLLIN) != 0;
}

TEST(Wakeup, SleepsUntilItIsRaisedAndAgainWhenItIsTaken) {
    const Wakeup wakeup;
    ASSERT_TRUE(wakeup.IsOpen());
    EXPECT_FALSE(Wakes(wakeup, 0));
    wakeup.Raise();
    EXPECT_TRUE(Wakes(wakeup, 0));
    EXPECT_EQ(wakeup.Take(), 1U);
    EXPECT_FALSE(Wakes(wakeup, 0));
}

TEST(Wakeup, CountsWhatWasAddedAndNeverWaits) {
    const Wakeup wakeup;
    EXPECT_EQ(wakeup.Take(), 0U);
    wakeup.Raise(3);
    wakeup.Raise();
    EXPECT_EQ(wakeup.Take(), 4U);
    EXPECT_EQ(wakeup.Take(), 0U);
    constexpr std::uint64_t kMost = 0xFFFF'FFFF'FFFF'FFFE;
    wakeup.Raise(kMost);
    wakeup.Raise();  // full
    EXPECT_EQ(wakeup.Take(), kMost);
}

TEST(Wakeup, WakesAThreadThatWaits) {
    const Wakeup wakeup;
    std::thread raiser([&] { wakeup.Raise(); });
    EXPECT_TRUE(Wakes(wakeup, kPatienceMs));
    raiser.join();
}

TEST(Wakeup, AClosedOneTakesNothingAmiss) {
    Wakeup wakeup;
    wakeup.Close();
    EXPECT_FALSE(wakeup.IsOpen());
    wakeup.Raise();
    EXPECT_EQ(wakeup.Take(), 0U);
}

}  // namespace
}  // namespace quorvi
