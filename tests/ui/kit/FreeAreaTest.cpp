#include <gtest/gtest.h>

#include "tests/support/PrintQt.h"
#include "ui/kit/FreeArea.h"

namespace quorvi {
namespace {

constexpr QRect kPrimary(0, 30, 1920, 1050);  // a panel of 30 at the top
constexpr QRect kLeft(-1280, 0, 1280, 1024);

TEST(FreeArea, APlaceBelongsToTheAreaThatHoldsMostOfIt) {
    EXPECT_EQ(AreaFor(QRect(100, 100, 960, 640), {kPrimary, kLeft}), kPrimary);
    EXPECT_EQ(AreaFor(QRect(-600, 100, 960, 640), {kPrimary, kLeft}), kLeft);
    EXPECT_EQ(AreaFor(QRect(-400, 100, 960, 640), {kPrimary, kLeft}), kPrimary);
}

TEST(FreeArea, APlaceOnAScreenThatIsGoneBelongsToTheFirst) {
    EXPECT_EQ(AreaFor(QRect(-1000, 100, 960, 640), {kPrimary}), kPrimary);
    EXPECT_EQ(AreaFor(QRect(9000, 100, 960, 640), {kPrimary, kLeft}), kPrimary);
}

TEST(FreeArea, WithoutAScreenAPlaceStaysAsItIs) {
    EXPECT_EQ(AreaFor(QRect(1, 2, 3, 4), {}), QRect(1, 2, 3, 4));
}

TEST(FreeArea, WhatLiesInsideStays) {
    EXPECT_EQ(BroughtInto(QRect(0, 30, 960, 640), kPrimary), QRect(0, 30, 960, 640));
    EXPECT_EQ(BroughtInto(QRect(960, 440, 960, 640), kPrimary), QRect(960, 440, 960, 640));
}

TEST(FreeArea, WhatHangsOverIsMovedOnEachSide) {
    EXPECT_EQ(BroughtInto(QRect(-5, 0, 960, 640), kPrimary), QRect(0, 30, 960, 640));
    EXPECT_EQ(BroughtInto(QRect(1900, 1000, 960, 640), kPrimary), QRect(960, 440, 960, 640));
    EXPECT_EQ(BroughtInto(QRect(50, 900, 960, 640), kLeft), QRect(-960, 384, 960, 640));
}

TEST(FreeArea, WhatIsLargerIsReduced) {
    EXPECT_EQ(BroughtInto(QRect(100, 100, 960, 2000), kPrimary), QRect(100, 30, 960, 1050));
    EXPECT_EQ(BroughtInto(QRect(100, 100, 5000, 5000), kPrimary), kPrimary);
}

}  // namespace
}  // namespace quorvi
