#include <gtest/gtest.h>

#include "base/CodePageChoice.h"
#include "tests/support/MemorySettings.h"

namespace quorvi {
namespace {

TEST(CodePageChoice, EachCodePageHasItsName) {
    EXPECT_EQ(NameOf(CodePage::gbk), "gbk");
    EXPECT_EQ(NameOf(CodePage::gb18030), "gb18030");
    EXPECT_EQ(CodePageOfName("GBK"), CodePage::gbk);
    EXPECT_EQ(CodePageOfName("Gb18030"), CodePage::gb18030);
    EXPECT_EQ(CodePageOfName("utf-8"), std::nullopt);
    EXPECT_EQ(CodePageOfName(""), std::nullopt);
}

TEST(CodePageChoice, TheUsersGoesBeforeTheDeployments) {
    MemorySettings settings;
    EXPECT_EQ(ChosenCodePage(settings, CodePage::gb18030), CodePage::gb18030);
    EXPECT_EQ(ChosenCodePage(settings, CodePage::gbk), CodePage::gbk);
    ChooseCodePage(settings, CodePage::gbk);
    EXPECT_EQ(ChosenCodePage(settings, CodePage::gb18030), CodePage::gbk);
    ChooseCodePage(settings, CodePage::gb18030);
    EXPECT_EQ(ChosenCodePage(settings, CodePage::gbk), CodePage::gb18030);
}

TEST(CodePageChoice, AnUnknownOneCountsForNothing) {
    MemorySettings settings;
    settings.WriteText(kSettingsKey, "code_page", "big5");
    EXPECT_EQ(ChosenCodePage(settings, CodePage::gb18030), CodePage::gb18030);
}

}  // namespace
}  // namespace quorvi
