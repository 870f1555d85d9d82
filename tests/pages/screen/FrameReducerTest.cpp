// A frame made smaller while its lines arrive.
#include <gtest/gtest.h>

#include <array>
#include <vector>

#include "agent/Request.h"
#include "pages/screen/FrameReducer.h"

namespace quorvi {
namespace {

// Pixels of one colour, as the words of a frame of 32 bits.
Bytes PixelsOf(std::size_t count, std::uint8_t blue, std::uint8_t green, std::uint8_t red) {
    Bytes bytes;
    for (std::size_t i = 0; i < count; ++i) {
        for (const std::uint8_t part : {blue, green, red, std::uint8_t{255}}) {
            bytes.push_back(std::byte{part});
        }
    }
    return bytes;
}

ReducedFrame Reduced(int width, int height, int reduction, const Bytes& bytes) {
    FrameReducer reducer(width, height, reduction);
    reducer.Take(bytes);
    return std::move(reducer).Result();
}

TEST(FrameReducer, APixelIsTheMeanOfItsSquare) {
    Bytes bytes;
    const std::array<std::uint8_t, 8> greens{10, 20, 100, 200, 30, 40, 0, 100};  // two lines
    for (const std::uint8_t green : greens) {
        const Bytes pixel = PixelsOf(1, 1, green, 3);
        bytes.insert(bytes.end(), pixel.begin(), pixel.end());
    }
    const ReducedFrame reduced = Reduced(4, 2, 2, bytes);
    EXPECT_EQ(reduced.width, 2);
    EXPECT_EQ(reduced.height, 1);
    EXPECT_EQ(reduced.pixels, (std::vector<std::uint32_t>{0xff031901, 0xff036401}));
}

TEST(FrameReducer, WhatIsLeftAtTheRightAndLowerEdgeIsAMeanOfItsOwn) {
    Bytes bytes = PixelsOf(15, 10, 20, 30);
    const ReducedFrame reduced = Reduced(5, 3, 2, bytes);
    EXPECT_EQ(reduced.width, 3);
    EXPECT_EQ(reduced.height, 2);
    EXPECT_EQ(reduced.pixels, std::vector<std::uint32_t>(6, 0xff1e140a));
}

TEST(FrameReducer, WhiteStaysWhiteAtEveryReduction) {
    for (int reduction = 1; reduction <= FrameReducer::kMostReduction; ++reduction) {
        const int side = reduction + (reduction > 1 ? reduction - 1 : 0);
        const ReducedFrame reduced = Reduced(
            side, side, reduction,
            PixelsOf(static_cast<std::size_t>(side) * static_cast<std::size_t>(side), 255, 255, 0));
        for (const std::uint32_t pixel : reduced.pixels) {
            EXPECT_EQ(pixel, 0xff00ffffU) << "reduction " << reduction;
        }
    }
}

TEST(FrameReducer, ALineIsTakenWhenItIsWhole) {
    const Bytes bytes = PixelsOf(4, 0, 0, 80);
    FrameReducer reducer(2, 2, 2);
    for (std::size_t received = 1; received <= bytes.size(); ++received) {
        reducer.Take(std::span(bytes).first(received));
    }
    EXPECT_EQ(std::move(reducer).Result().pixels, std::vector<std::uint32_t>{0xff500000});
}

TEST(FrameReducer, RowsThatHaveNotComeAreNotThere) {
    EXPECT_TRUE(Reduced(2, 1'000'000, 2, PixelsOf(3, 1, 2, 3)).pixels.empty());
}

TEST(FrameReducer, RedAndBlueChangePlaces) {
    const Bytes bytes = PixelsOf(1, 1, 2, 3);
    FrameReducer reducer(1, 1, 1);
    reducer.Take(bytes);
    reducer.SwapRedBlue();
    EXPECT_EQ(std::move(reducer).Result().pixels, std::vector<std::uint32_t>{0xff010203});
}

TEST(FrameReducer, TheResultStaysAQuarterLargerThanWhatIsPainted) {
    EXPECT_EQ(ReductionOf(1080, 2400, {488, 456}), 4);  // 5.26 times the room's height
    EXPECT_EQ(ReductionOf(1080, 2400, {976, 912}), 2);  // at twice the pixels
    EXPECT_EQ(ReductionOf(2400, 1080, {456, 488}), 4);  // the width decides
    EXPECT_EQ(ReductionOf(480, 800, {488, 456}), 1);    // 1.75 times
    EXPECT_EQ(ReductionOf(65535, 65535, {1, 1}), FrameReducer::kMostReduction);
}

TEST(FrameReducer, WithoutARoomNothingIsReduced) {
    EXPECT_EQ(ReductionOf(1080, 2400, {}), 1);
    EXPECT_EQ(ReductionOf(1080, 2400, {0, 100}), 1);
}

}  // namespace
}  // namespace quorvi
