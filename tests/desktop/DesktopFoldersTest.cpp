#include <gtest/gtest.h>

#include <map>

#include "base/os/SmallFile.h"
#include "desktop/DesktopFolders.h"
#include "tests/support/TemporaryFolder.h"

namespace quorvi {
namespace {

Environment Of(std::map<std::string, std::string> values) {
    return [values](const char* name) -> std::optional<std::string> {
        const auto found = values.find(name);
        return found == values.end() ? std::nullopt : std::optional(found->second);
    };
}

TEST(DesktopFolders, StandBelowHomeWhenNothingElseIsSaid) {
    const DesktopFolders folders = ReadDesktopFolders(Of({{"HOME", "/nowhere/u"}}));
    EXPECT_EQ(folders.config, "/nowhere/u/.config");
    EXPECT_EQ(folders.data, "/nowhere/u/.local/share");
    EXPECT_EQ(folders.desktop, "/nowhere/u/Desktop");
}

TEST(DesktopFolders, EnvironmentMovesThemAndRelativePathsAreIgnored) {
    const DesktopFolders folders = ReadDesktopFolders(
        Of({{"HOME", "/nowhere/u"}, {"XDG_CONFIG_HOME", "/c"}, {"XDG_DATA_HOME", "data"}}));
    EXPECT_EQ(folders.config, "/c");
    EXPECT_EQ(folders.data, "/nowhere/u/.local/share");
}

TEST(DesktopFolders, DesktopHasTheNameThatTheUserConfigured) {
    const TemporaryFolder home;
    ReplaceFile(home.Path() / ".config" / "user-dirs.dirs",
                "# comment\nXDG_DOWNLOAD_DIR=\"$HOME/下载\"\nXDG_DESKTOP_DIR=\"$HOME/桌面\"\n");
    const DesktopFolders folders = ReadDesktopFolders(Of({{"HOME", home.Path().native()}}));
    EXPECT_EQ(folders.desktop, home.Path() / "桌面");
}

TEST(DesktopFolders, UserDirectoryIsBelowHomeOrAbsolute) {
    const auto desktop = [](std::string_view line) {
        return UserDirectory(line, "XDG_DESKTOP_DIR", "/home/u");
    };
    EXPECT_EQ(desktop("XDG_DESKTOP_DIR=\"$HOME/a b\""), "/home/u/a b");
    EXPECT_EQ(desktop("XDG_DESKTOP_DIR=\"/mnt/desk\""), "/mnt/desk");
    EXPECT_EQ(desktop("XDG_DESKTOP_DIR=\"$HOME/a\\\"b\""), "/home/u/a\"b");
    EXPECT_EQ(desktop("XDG_DESKTOP_DIR=\"desk\""), std::nullopt);
    EXPECT_EQ(desktop("XDG_DESKTOP_DIR=\"$HOMEX/desk\""), std::nullopt);
    EXPECT_EQ(desktop("XDG_DESKTOP_DIR=\"$HOME/desk"), std::nullopt);  // cut
    EXPECT_EQ(desktop("#XDG_DESKTOP_DIR=\"$HOME/desk\""), std::nullopt);
    EXPECT_EQ(desktop("XDG_DESKTOP_DIR=\"$HOME/a\"\nXDG_DESKTOP_DIR=\"$HOME/b\""), "/home/u/b");
}

}  // namespace
}  // namespace quorvi
