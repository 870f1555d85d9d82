#include <gtest/gtest.h>

#include <algorithm>
#include <optional>

#include "pages/screen/ScreenFrame.h"
#include "tests/pages/screen/Frames.h"

namespace quorvi {
namespace {

TEST(ScreenFrame, LinesFollowEachOtherWithoutAGap) {
    const ScreenFrame frame = FrameOf(2, 2, PixelLayout::rgb565, {1, 2, 3, 4, 5, 6, 7, 8});
    EXPECT_EQ(frame.Stride(), 4U);
    EXPECT_EQ(frame.Line(1).front(), std::byte{5});
    EXPECT_EQ(frame.Line(1).size(), 4U);
}

TEST(FrameBytes, SwapExchangesTheFirstAndTheThirdOfEachFourBytes) {
    FrameBytes bytes(8);
    for (std::byte& byte : bytes.Room()) {
        byte = static_cast<std::byte>(&byte - bytes.Bytes().data() + 1);
    }
    bytes.Commit(8);
    ASSERT_TRUE(bytes.SwapRedBlue());
    constexpr int kSwapped[]{3, 2, 1, 4, 7, 6, 5, 8};
    for (std::size_t i = 0; i < 8; ++i) {
        EXPECT_EQ(std::to_integer<int>(bytes.Bytes()[i]), kSwapped[i]) << i;
    }
}

TEST(FrameBytes, SwapOfOtherCountsChangesNothing) {
    FrameBytes bytes(7);
    bytes.Room()[0] = std::byte{1};
    bytes.Commit(7);
    EXPECT_FALSE(bytes.SwapRedBlue());
    EXPECT_EQ(bytes.Bytes()[0], std::byte{1});
}

TEST(FrameBytes, NextFrameOfTheSizeHasTheMemoryOfOneThatHasGone) {
    std::optional<FrameBytes> first(std::in_place, 12'345);
    const std::byte* const memory = first->Bytes().data();
    first->Commit(first->Size());
    first.reset();
    const FrameBytes next(12'345);
    EXPECT_EQ(next.Bytes().data(), memory);
    EXPECT_EQ(next.Received(), 0U);
    const FrameBytes another(12'345);
    EXPECT_NE(another.Bytes().data(), memory);
}

// What claims gigabytes and stops is not kept.
TEST(FrameBytes, MemoryOfAFrameThatWasCutIsGivenBack) {
    {
        FrameBytes cut(4'000'000'000);
        cut.Room()[0] = std::byte{7};
        cut.Commit(1);
    }
    const FrameBytes next(4'000'000'000);
    EXPECT_EQ(next.Bytes()[0], std::byte{0});
}

TEST(FrameBytes, FrameOfNoBytesHasNoMemory) {
    EXPECT_EQ(FrameBytes(0).Size(), 0U);
}

}  // namespace
}  // namespace quorvi
