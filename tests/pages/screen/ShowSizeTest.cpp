#include <gtest/gtest.h>

#include <ostream>

#include "pages/screen/ShowSize.h"

namespace quorvi {

void PrintTo(const ShowSize& size, std::ostream* out) {
    *out << size.width << 'x' << size.height;
}

namespace {

TEST(ShowSize, IsTwoHundredAndTenByThreeHundredAndTenBeforeTheFirstCapture) {
    EXPECT_EQ(ShowSize(), (ShowSize{210, 310}));
}

TEST(ShowSize, WidthStaysBeforeThePageIsReady) {
    EXPECT_EQ(ShowSizeOf({}, false, 480, 800, Rotation::none), (ShowSize{210, 350}));
}

TEST(ShowSize, ReadyPictureIsThreeHundredWide) {
    EXPECT_EQ(ShowSizeOf({}, true, 480, 800, Rotation::none), (ShowSize{300, 500}));
    EXPECT_EQ(ShowSizeOf({500, 300}, true, 480, 800, Rotation::half), (ShowSize{300, 500}));
}

TEST(ShowSize, HeightIsCutOff) {
    EXPECT_EQ(ShowSizeOf({}, true, 1080, 2400, Rotation::none), (ShowSize{300, 666}));
    EXPECT_EQ(ShowSizeOf({}, true, 7, 3, Rotation::none), (ShowSize{300, 128}));
}

TEST(ShowSize, QuarterTurnsChangeTheSides) {
    EXPECT_EQ(ShowSizeOf({}, true, 480, 800, Rotation::right90), (ShowSize{500, 300}));
    EXPECT_EQ(ShowSizeOf({}, true, 480, 800, Rotation::left90), (ShowSize{500, 300}));
}

TEST(ShowSize, ScreenWithoutASideLeavesWhatIs) {
    EXPECT_EQ(ShowSizeOf({300, 500}, true, 0, 800, Rotation::none), (ShowSize{300, 500}));
    EXPECT_EQ(ShowSizeOf({300, 500}, true, 480, 0, Rotation::right90), (ShowSize{300, 500}));
}

TEST(Rotation, IndexOutOfRangeTurnsNothing) {
    EXPECT_EQ(RotationOf(3), Rotation::half);
    EXPECT_EQ(RotationOf(-1), Rotation::none);
    EXPECT_EQ(RotationOf(4), Rotation::none);
}

}  // namespace
}  // namespace quorvi
