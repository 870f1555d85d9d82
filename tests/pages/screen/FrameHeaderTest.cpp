#include <gtest/gtest.h>

#include "pages/screen/FrameHeader.h"
#include "tests/pages/screen/FrameWords.h"

namespace quorvi {
namespace {

std::span<const std::byte, kFrameChannelBytes> Channels(const Bytes& bytes) {
    return std::span(bytes).first<kFrameChannelBytes>();
}

TEST(FrameHeader, ShapeOfVersion1HasFourWords) {
    EXPECT_EQ(FrameShapeBytes(1), 16U);
    const FrameShape shape = ReadFrameShape(1, Words({32,             // bits
                                                      480 * 800 * 4,  // bytes of the frame
                                                      480,            // width
                                                      800}));         // height
    EXPECT_EQ(shape.bits, 32U);
    EXPECT_EQ(shape.size, 480U * 800 * 4);
    EXPECT_EQ(shape.width, 480U);
    EXPECT_EQ(shape.height, 800U);
    EXPECT_TRUE(IsPossible(shape));
}

TEST(FrameHeader, ShapeOfVersion2HasAColourSpaceBehindTheBits) {
    EXPECT_EQ(FrameShapeBytes(2), 20U);
    const FrameShape shape = ReadFrameShape(2, Words({32,               // bits
                                                      1,                // colour space
                                                      1080 * 2400 * 4,  // bytes of the frame
                                                      1080,             // width
                                                      2400}));          // height
    EXPECT_EQ(shape.size, 1080U * 2400 * 4);
    EXPECT_EQ(shape.width, 1080U);
    EXPECT_EQ(shape.height, 2400U);
    EXPECT_TRUE(IsPossible(shape));
}

TEST(FrameHeader, EveryOtherVersionIsReadAsTheFirst) {
    for (const std::uint32_t version : {0U, 3U, 16U, 0xFFFFFFFFU}) {
        EXPECT_EQ(FrameShapeBytes(version), 16U) << version;
    }
}

TEST(FrameHeader, ShapeThatIsCutIsNotPossible) {
    EXPECT_FALSE(IsPossible(ReadFrameShape(1, Words({32, 16, 2}))));
    EXPECT_FALSE(IsPossible(ReadFrameShape(2, Words({32, 1, 16, 2}))));
}

TEST(FrameHeader, SixteenBitsAndUnknownDepthsAreRgb565) {
    for (const std::uint32_t bits : {16U, 0U, 8U, 15U, 18U, 33U, 64U}) {
        EXPECT_EQ(LayoutOf(bits), PixelLayout::rgb565) << bits;
    }
    EXPECT_EQ(LayoutOf(24), PixelLayout::bgr24);
    EXPECT_EQ(LayoutOf(32), PixelLayout::bgrx32);
}

TEST(FrameHeader, ScreenWithoutASideIsNotPossible) {
    EXPECT_FALSE(IsPossible({.bits = 32, .size = 0, .width = 0, .height = 800}));
    EXPECT_FALSE(IsPossible({.bits = 32, .size = 0, .width = 480, .height = 0}));
}

TEST(FrameHeader, SizeThatIsNotThatOfThePixelsIsNotPossible) {
    EXPECT_TRUE(IsPossible({.bits = 16, .size = 12, .width = 3, .height = 2}));
    EXPECT_FALSE(IsPossible({.bits = 16, .size = 11, .width = 3, .height = 2}));
    EXPECT_FALSE(IsPossible({.bits = 16, .size = 13, .width = 3, .height = 2}));
    // 65,536 times 65,536 times 4 is 0 in 32 bits.
    EXPECT_FALSE(IsPossible({.bits = 32, .size = 0, .width = 65'536, .height = 65'536}));
}

TEST(FrameHeader, SidePastTheLongestIsNotPossible) {
    EXPECT_TRUE(IsPossible({.bits = 16, .size = 65'534, .width = 32'767, .height = 1}));
    EXPECT_FALSE(IsPossible({.bits = 16, .size = 65'536, .width = 32'768, .height = 1}));
}

TEST(FrameHeader, RedAtZeroAndBlueAtSixteenChangePlaces) {
    EXPECT_TRUE(NeedsSwap(Channels(RedAtZero())));
}

TEST(FrameHeader, BlueAtZeroStaysWhereItIs) {
    EXPECT_FALSE(NeedsSwap(Channels(BlueAtZero())));
    EXPECT_FALSE(NeedsSwap(Channels(Rgb565())));
}

TEST(FrameHeader, RedOfAnotherLengthStaysWhereItIs) {
    EXPECT_FALSE(NeedsSwap(Channels(Words({0, 5, 16, 8}))));
    EXPECT_FALSE(NeedsSwap(Channels(Words({0, 8, 24, 8}))));
}

}  // namespace
}  // namespace quorvi
