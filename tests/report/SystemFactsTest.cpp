#include <gmock/gmock.h>

#include <map>

#include "base/Text.h"
#include "report/SystemFacts.h"

namespace quorvi {
namespace {

using testing::HasSubstr;
using testing::Not;

TEST(SystemFacts, OfATextFromOutsideOnlyAWordsCharactersStay) {
    EXPECT_EQ(FactText("zh_CN.UTF-8"), "zh_CN.UTF-8");
    EXPECT_EQ(FactText("ubuntu:GNOME"), "ubuntu:GNOME");
    EXPECT_EQ(FactText("/home/lin\n"), "_home_lin_");
    EXPECT_EQ(FactText("\xc1\xd6"), "__");
    EXPECT_EQ(FactText(std::string(41, 'a')), std::string(40, 'a'));
}

TEST(SystemFacts, SystemIsNamedByItsFile) {
    EXPECT_EQ(ParseOsRelease("NAME=\"Debian GNU/Linux\"\nID=debian\nVERSION_ID=\"12\"\n"),
              "debian 12");
    EXPECT_EQ(ParseOsRelease("ID='arch'\n"), "arch");
    EXPECT_EQ(ParseOsRelease("VERSION_ID=12"), "12");
    EXPECT_EQ(ParseOsRelease("no line of it\n=\nID"), "");
    EXPECT_EQ(ParseOsRelease("ID=\"\n"), "\"");
}

TEST(SystemFacts, DesktopAndLanguageAreTold) {
    const std::map<std::string, std::string> variables{{"XDG_CURRENT_DESKTOP", "KDE"},
                                                       {"XDG_SESSION_TYPE", "wayland"}};
    const std::string text =
        ToUtf8(SystemFactsText([&](const char* name) -> std::optional<std::string> {
            const auto found = variables.find(name);
            return found == variables.end() ? std::nullopt : std::optional(found->second);
        }));
    EXPECT_THAT(text, HasSubstr("奎维掌上工坊: "));
    EXPECT_THAT(text, HasSubstr("桌面: KDE\n会话: wayland\n语言: 不知道\n文字编码: GBK\n"));
    EXPECT_THAT(text, Not(HasSubstr("内核: 不知道")));
}

}  // namespace
}  // namespace quorvi
