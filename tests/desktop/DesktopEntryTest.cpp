#include <gtest/gtest.h>

#include "desktop/DesktopEntry.h"

namespace quorvi {
namespace {

TEST(DesktopEntry, PathStandsInDoubleQuotesOnlyWhereItNeedsThem) {
    EXPECT_EQ(ExecPath("/usr/bin/quorvi"), "/usr/bin/quorvi");
    EXPECT_EQ(ExecPath("/opt/奎维-2.0_x+y/quorvi"), "/opt/奎维-2.0_x+y/quorvi");
    EXPECT_EQ(ExecPath("/opt/My Tools/quorvi"), R"("/opt/My Tools/quorvi")");
    for (const char reserved : std::string_view("\t'><~|&;*?#()")) {
        EXPECT_EQ(ExecPath(std::string("/a") + reserved + "b").front(), '"') << reserved;
    }
    EXPECT_EQ(ExecPath(""), R"("")");  // without quotes there would be no program at all
}

TEST(DesktopEntry, ReservedCharactersOfAPathStandForThemselves) {
    EXPECT_EQ(ExecPath("/a\"b"), R"("/a\\"b")");  // a quote: \" written as a value
    EXPECT_EQ(ExecPath("/a$b`c"), R"("/a\\$b\\`c")");
    EXPECT_EQ(ExecPath("/a\\b"), R"("/a\\\\b")");
    EXPECT_EQ(ExecPath("/100%/u"), R"("/100%%/u")");  // one alone begins a field code
    EXPECT_EQ(ExecPath("/a\nb"), "\"/a\\nb\"");
}

TEST(DesktopEntry, TextHasALineForEachValueThatIsThere) {
    const DesktopEntry entry{.name = "奎维",
                             .comment = "",
                             .exec = "\"/q\" %u",
                             .icon = "/i.svg",
                             .mimeType = "x/y;",
                             .hidden = true};
    EXPECT_EQ(entry.Text(),
              "[Desktop Entry]\n"
              "Type=Application\n"
              "Name=奎维\n"
              "Exec=\"/q\" %u\n"
              "Icon=/i.svg\n"
              "Terminal=false\n"
              "MimeType=x/y;\n"
              "NoDisplay=true\n");
}

TEST(DesktopEntry, LineFeedInANameCannotAddALine) {
    const DesktopEntry entry{.name = "a\nExec=evil", .exec = "\"/q\""};
    EXPECT_EQ(EntryValue(entry.Text(), "Desktop Entry", "Exec"), "\"/q\"");
}

TEST(DesktopEntry, ValueIsTakenFromItsOwnGroup) {
    constexpr std::string_view kFile =
        "# comment\n[Other]\nExec=no\n[Desktop Entry]\r\nName = x\nExec = yes \nExec=later\n";
    EXPECT_EQ(EntryValue(kFile, "Desktop Entry", "Exec"), "yes");
    EXPECT_EQ(EntryValue(kFile, "Desktop Entry", "Icon"), std::nullopt);
    EXPECT_EQ(EntryValue("", "Desktop Entry", "Exec"), std::nullopt);
}

constexpr std::string_view kType = "x-scheme-handler/quorvi";
constexpr std::string_view kId = "quorvi-protocol.desktop";

TEST(DefaultApplication, IsWrittenIntoAnEmptyList) {
    EXPECT_EQ(WithDefaultApplication("", kType, kId),
              "[Default Applications]\nx-scheme-handler/quorvi=quorvi-protocol.desktop;\n");
}

TEST(DefaultApplication, LeavesAllElseAsItIs) {
    EXPECT_EQ(WithDefaultApplication("# mine\n\n[Default Applications]\ntext/html=w.desktop\n\n"
                                     "[Added Associations]\nx-scheme-handler/quorvi=o.desktop;\n",
                                     kType, kId),
              "# mine\n\n[Default Applications]\ntext/html=w.desktop\n\n"
              "x-scheme-handler/quorvi=quorvi-protocol.desktop;\n"
              "[Added Associations]\nx-scheme-handler/quorvi=o.desktop;\n");
}

TEST(DefaultApplication, ComesBeforeTheOthersThatWereNamed) {
    EXPECT_EQ(WithDefaultApplication("[Default Applications]\n"
                                     "x-scheme-handler/quorvi=a.desktop;b.desktop\n"
                                     "x-scheme-handler/quorvi=c.desktop;\n",
                                     kType, kId),
              "[Default Applications]\n"
              "x-scheme-handler/quorvi=quorvi-protocol.desktop;a.desktop;b.desktop;\n");
}

TEST(DefaultApplication, DoneTwiceChangesNothingMore) {
    for (const std::string_view before :
         {"", "[Default Applications]\nx-scheme-handler/quorvi=a.desktop", "[Other]\nx=y"}) {
        const std::string once = WithDefaultApplication(before, kType, kId);
        EXPECT_EQ(WithDefaultApplication(once, kType, kId), once);
    }
}

}  // namespace
}  // namespace quorvi
