#include <gtest/gtest.h>

#include "phone/agent/Frame.h"
#include "tests/support/Bytes.h"

namespace quorvi::phone {
namespace {

TEST(LengthOf, ABareRequestIsItsCode) {
    EXPECT_EQ(LengthOf(RequestForm::bare, Join({{0, 0x0d, 0x46, 0x73}}))->bytes, 4u);
}

TEST(LengthOf, AFramedRequestStatesItsTotalBehindTheCode) {
    const Bytes frame = Join({
        {0, 0x0d, 0x46, 0xd6},  // code
        {0, 0, 0, 16},          // total
        {0, 0, 0, 1},           // items
    });
    EXPECT_FALSE(LengthOf(RequestForm::framed, std::span(frame).first(11)));
    EXPECT_EQ(LengthOf(RequestForm::framed, frame)->bytes, 16u);
    EXPECT_EQ(CountOffset(RequestForm::framed), 8u);
}

TEST(LengthOf, AConversationRequestIsEightBytes) {
    EXPECT_EQ(LengthOf(RequestForm::conversation, Join({{0, 0x0d, 0x47, 0x3a}}))->bytes, 8u);
    EXPECT_EQ(HeaderBytes(RequestForm::conversation), 4u);
}

TEST(LengthOf, RunningAnApplicationHasItsCountInFrontOfItsTotal) {
    const Bytes frame = Join({
        {0, 0x0d, 0x49, 0x95},  // code
        {0, 0, 0, 1},           // count
        {0, 0, 0, 20},          // total
    });
    EXPECT_EQ(LengthOf(RequestForm::runApplication, frame)->bytes, 20u);
    EXPECT_EQ(CountOffset(RequestForm::runApplication), 4u);
}

TEST(LengthOf, NamesATotalThatIsTooSmallOrOutOfReason) {
    const auto small =
        LengthOf(RequestForm::framed, Join({{0, 0x0d, 0x46, 0xd6}, {0, 0, 0, 8}, {0, 0, 0, 1}}));
    EXPECT_EQ(small->deviation, "total 8 is less than the 12 bytes of the header");
    const auto huge =
        LengthOf(RequestForm::framed, Join({{0, 0x0d, 0x46, 0xd6}, {0xff, 0, 0, 0}, {0, 0, 0, 1}}));
    EXPECT_EQ(huge->deviation, "total 4278190080 is out of reason");
}

TEST(FindCommand, TakesCodeAndName) {
    ASSERT_TRUE(FindCommand("870202"));
    EXPECT_EQ(FindCommand("870202"), FindCommand("readConversation"));
    EXPECT_EQ(FindCommand(870202u)->form, RequestForm::conversation);
    EXPECT_FALSE(FindCommand("870203"));
}

// Each code once, and each with the form that its request has.
TEST(FindCommand, KnowsEveryCommand) {
    for (const std::uint32_t code :
         {870002u, 870003u, 870004u, 870101u, 870102u, 870103u, 870104u, 870106u, 870120u,
          870121u, 870122u, 870124u, 870140u, 870150u, 870201u, 870202u, 870204u, 870206u,
          870301u, 870303u, 870304u, 870401u, 870402u, 870403u, 870405u, 870601u, 870602u,
          870701u, 870702u, 870703u, 870705u, 870802u, 870805u, 871501u, 871502u, 871601u,
          871602u, 871701u, 871801u, 871804u, 871806u}) {
        EXPECT_TRUE(FindCommand(code)) << code;
    }
}

}  // namespace
}  // namespace quorvi::phone
