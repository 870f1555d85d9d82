#include <gtest/gtest.h>

#include "base/os/KernelRelease.h"

namespace quorvi {
namespace {

TEST(ReleaseNumberTest, IsMajorTimesTenAndMinor) {
    EXPECT_EQ(ReleaseNumber("6.1.0-13-amd64"), 61);
    EXPECT_EQ(ReleaseNumber("5.15.2"), 65);
    EXPECT_EQ(ReleaseNumber("6.12"), 72);
}

TEST(ReleaseNumberTest, IsZeroForATextWithoutTwoNumbers) {
    for (const char* text : {"", "6", "6.", "six.one", "6-1", "-1.2", "1.-2", "99999999999.1"}) {
        EXPECT_EQ(ReleaseNumber(text), 0) << text;
    }
}

TEST(ReleaseNumberTest, OfTheRunningKernelIsKnown) {
    EXPECT_GE(KernelReleaseNumber(), 20);
}

}  // namespace
}  // namespace quorvi
