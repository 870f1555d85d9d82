#include <gtest/gtest.h>

#include "base/os/SmallFile.h"
#include "desktop/DesktopFolder.h"
#include "tests/support/TemporaryFolder.h"

namespace quorvi {
namespace {

TEST(DesktopFolder, StandsBelowHomeWhenNothingElseIsSaid) {
    Places places;
    places.home = "/nowhere/u";
    places.config = "/nowhere/u/.config";
    EXPECT_EQ(DesktopFolder(places), "/nowhere/u/Desktop");
    EXPECT_EQ(DocumentsFolder(places), "/nowhere/u/Documents");
}

TEST(DesktopFolder, HasTheNameThatTheUserConfigured) {
    const TemporaryFolder home;
    Places places;
    places.home = home.Path();
    places.config = home.Path() / ".config";
    ReplaceFile(places.config / "user-dirs.dirs",
                "# comment\nXDG_DOWNLOAD_DIR=\"$HOME/下载\"\nXDG_DESKTOP_DIR=\"$HOME/桌面\"\n"
                "XDG_DOCUMENTS_DIR=\"$HOME/文档\"\n");
    EXPECT_EQ(DesktopFolder(places), home.Path() / "桌面");
    EXPECT_EQ(DocumentsFolder(places), home.Path() / "文档");
}

TEST(DesktopFolder, UserDirectoryIsBelowHomeOrAbsolute) {
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
