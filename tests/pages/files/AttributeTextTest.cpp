#include <gtest/gtest.h>

#include <vector>

#include "base/Text.h"
#include "pages/files/AttributeText.h"

namespace quorvi {
namespace {

TEST(AttributeText, NamesWhatAnEntryIs) {
    AttributeText text;
    EXPECT_EQ(text.Next(true, false, false).View(), Ansi(u8"可读"));
    EXPECT_EQ(text.Next(true, true, false).View(), Ansi(u8"可读 可写"));
    EXPECT_EQ(text.Next(true, false, true).View(), Ansi(u8"可读 隐藏"));
    EXPECT_EQ(text.Next(true, true, true).View(), Ansi(u8"可读 可写 隐藏"));
}

TEST(AttributeText, AnEntryThatIsNotReadableCarriesOverWhatTheOneBeforeShowed) {
    AttributeText text;
    const SharedText first = text.Next(true, true, false);
    EXPECT_EQ(text.Next(false, false, false).View(), Ansi(u8"可读 可写"));
    EXPECT_EQ(text.Next(false, false, true).View(), Ansi(u8"可读 可写 隐藏"));
    EXPECT_EQ(text.Next(false, true, true).View(), Ansi(u8"可读 可写 隐藏 可写 隐藏"));
    EXPECT_EQ(text.Next(true, false, false).View(), Ansi(u8"可读"));
    EXPECT_EQ(first.View(), Ansi(u8"可读 可写"));
}

TEST(AttributeText, BeforeTheFirstReadableEntryThereIsNothingToCarryOver) {
    AttributeText text;
    EXPECT_EQ(text.Next(false, false, false).View(), "");
    EXPECT_EQ(text.Next(false, true, false).View(), Ansi(u8" 可写"));
    EXPECT_EQ(SharedText().View(), "");
}

TEST(AttributeText, ALongRunThatCarriesOverEndsAtTheLongestText) {
    AttributeText text;
    std::vector<SharedText> all;
    for (int i = 0; i < 100'000; ++i) {
        all.push_back(text.Next(false, true, true));
    }
    EXPECT_LE(all.back().View().size(), AttributeText::kLongest);
    EXPECT_GT(all.back().View().size(), AttributeText::kLongest - 5);
    EXPECT_EQ(all[0].View(), Ansi(u8" 可写 隐藏"));
    EXPECT_EQ(text.Next(true, true, false).View(), Ansi(u8"可读 可写"));
}

}  // namespace
}  // namespace quorvi
