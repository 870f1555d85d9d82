#include <gtest/gtest.h>

#include "pages/apps/AppActions.h"
#include "tests/support/WireBytes.h"

namespace quorvi {
namespace {

TEST(RunApplicationRequestTest, HasItsOwnFrame) {
    const WireBytes expected = WireBytes()
                                   .U32(870805)  // command
                                   .U32(1)       // count, in front of the length
                                   .U32(16 + 5)  // length
                                   .U32(5)       // bytes of the name
                                   .Raw("com.a");
    EXPECT_EQ(RunApplicationRequest("com.a"), expected.Get());
}

TEST(RunApplicationRequestTest, SendsTheNameAsItStands) {
    const WireBytes expected = WireBytes()
                                   .U32(870805)  // command
                                   .U32(1)       // count
                                   .U32(16 + 2)  // length
                                   .U32(2)       // bytes of the name
                                   .Raw("\xC4\xE3");
    EXPECT_EQ(RunApplicationRequest("\xC4\xE3"), expected.Get());
}

}  // namespace
}  // namespace quorvi
