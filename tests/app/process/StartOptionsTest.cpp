#include <gtest/gtest.h>

#include "app/process/StartOptions.h"

namespace quorvi {
namespace {

TEST(CommandLine, HideInAnyMixOfCaseAfterTheLastSlashStartsHidden) {
    for (const char* text : {"/hide", "/HIDE", "/HiDe", "a b /hide"}) {
        EXPECT_TRUE(StartsHidden(text)) << text;
    }
}

TEST(CommandLine, HideWithoutASlashIsANormalStart) {
    EXPECT_FALSE(StartsHidden("hide"));
    EXPECT_FALSE(StartsHidden(""));
}

TEST(CommandLine, ALinkThatEndsInHideStartsHidden) {
    EXPECT_TRUE(StartsHidden("quorvi://open/12/hide"));
    EXPECT_TRUE(StartsHidden("Quorvi:/Hide"));
}

TEST(CommandLine, TheRestOfALinkIsIgnored) {
    EXPECT_FALSE(StartsHidden("quorvi://open/12"));
    EXPECT_FALSE(StartsHidden("/hide/now"));
    EXPECT_FALSE(StartsHidden("quorvi://hide/"));
}

TEST(CommandLine, OnlyTheWholePartAfterTheLastSlashCounts) {
    EXPECT_FALSE(StartsHidden("/hidden"));
    EXPECT_FALSE(StartsHidden("/hide "));
    EXPECT_FALSE(StartsHidden("/hide more"));
}

TEST(CommandLine, TheWholeTextIsTakenAcrossArguments) {
    EXPECT_EQ(CommandText({"quorvi:x", "/hide"}), "quorvi:x /hide");
    EXPECT_EQ(CommandText({}), "");
    EXPECT_FALSE(StartsHidden(CommandText({"/hide", "x"})));
}

}  // namespace
}  // namespace quorvi
