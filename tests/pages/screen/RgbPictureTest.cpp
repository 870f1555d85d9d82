#include <gtest/gtest.h>

#include "pages/screen/RgbPicture.h"
#include "tests/pages/screen/Frames.h"

namespace quorvi {
namespace {

using Values = std::vector<std::uint8_t>;

// Two lines of three pixels; the red of each is its number, from 1.
ScreenFrame Numbered() {
    return FrameOf(3, 2, PixelLayout::bgr24,
                   {0, 0, 1, 0, 0, 2, 0, 0, 3, 0, 0, 4, 0, 0, 5, 0, 0, 6});
}

Values Reds(const RgbPicture& picture) {
    Values reds;
    for (std::size_t at = 0; at < picture.bytes.size(); at += RgbPicture::kPixelBytes) {
        reds.push_back(picture.bytes[at]);
    }
    return reds;
}

void ExpectTurned(Rotation rotation, int width, int height, const Values& reds) {
    const RgbPicture picture = TurnedPicture(Numbered(), rotation);
    EXPECT_EQ(picture.width, width);
    EXPECT_EQ(picture.height, height);
    EXPECT_EQ(Reds(picture), reds);
}

TEST(RgbPicture, WithoutRotationLinesStayWhereTheyAre) {
    ExpectTurned(Rotation::none, 3, 2,
                 {1, 2, 3,  //
                  4, 5, 6});
}

TEST(RgbPicture, RightTurnPutsTheFirstLineOnTheRight) {
    ExpectTurned(Rotation::right90, 2, 3,
                 {4, 1,  //
                  5, 2,  //
                  6, 3});
}

TEST(RgbPicture, LeftTurnPutsTheFirstLineOnTheLeft) {
    ExpectTurned(Rotation::left90, 2, 3,
                 {3, 6,  //
                  2, 5,  //
                  1, 4});
}

TEST(RgbPicture, HalfTurnPutsTheFirstLineAtTheBottom) {
    ExpectTurned(Rotation::half, 3, 2,
                 {6, 5, 4,  //
                  3, 2, 1});
}

TEST(RgbPicture, FourthByteOfAPixelSaysNothing) {
    const RgbPicture picture = TurnedPicture(
        FrameOf(2, 1, PixelLayout::bgrx32, {1, 2, 3, 0, 4, 5, 6, 255}), Rotation::none);
    EXPECT_EQ(picture.bytes, (Values{3, 2, 1, 6, 5, 4}));
}

TEST(RgbPicture, SixteenBitsAreSpreadOverAllOfAColour) {
    const RgbPicture picture = TurnedPicture(FrameOf(5, 1, PixelLayout::rgb565,
                                                     {0xFF, 0xFF,    // white
                                                      0x00, 0x00,    // black
                                                      0x00, 0xF8,    // red in the five highest bits
                                                      0xE0, 0x07,    // green in six
                                                      0x1F, 0x00}),  // blue in five
                                             Rotation::none);
    EXPECT_EQ(picture.bytes, (Values{255, 255, 255, 0, 0, 0, 255, 0, 0, 0, 255, 0, 0, 0, 255}));
}

}  // namespace
}  // namespace quorvi
