#include <gtest/gtest.h>

#include <cstdlib>
#include <map>

#include "base/os/SmallFile.h"
#include "desktop/DesktopEntry.h"
#include "desktop/DesktopIntegration.h"
#include "tests/support/Await.h"
#include "tests/support/TemporaryFolder.h"

namespace quorvi {
namespace {

class Desktop : public testing::Test {
  protected:
    [[nodiscard]] FreedesktopIntegration Of(const std::string& program) const {
        Places places = places_;
        places.program = program;
        return {places, home_.Path() / "桌面", "<svg/>"};
    }
    static std::string Read(const std::filesystem::path& file) {
        return ReadSmallFile(file).value_or("none");
    }
    static std::string Exec(const std::filesystem::path& file) {
        return EntryValue(Read(file), "Desktop Entry", "Exec").value_or("none");
    }
    // Every file below the folder with its bytes.
    [[nodiscard]] std::map<std::string, std::string> Files() const {
        std::map<std::string, std::string> files;
        for (const auto& entry : std::filesystem::recursive_directory_iterator(home_.Path())) {
            if (entry.is_regular_file()) {
                files[entry.path().native()] = Read(entry.path());
            }
        }
        return files;
    }

    TemporaryFolder home_;
    Places places_{.program = {},
                   .home = home_.Path(),
                   .config = home_.Path() / "config",
                   .data = home_.Path() / "data",
                   .temporary = home_.Path()};
    FreedesktopIntegration desktop_ = Of("/opt/奎 维/quorvi");
};

TEST_F(Desktop, AutoRunCarriesThePathInQuotesAndHide) {
    EXPECT_FALSE(desktop_.AutoRuns());
    desktop_.SetAutoRun(true);
    EXPECT_TRUE(desktop_.AutoRuns());
    EXPECT_EQ(desktop_.AutoRunFile(), places_.config / "autostart" / "quorvi.desktop");
    EXPECT_EQ(Exec(desktop_.AutoRunFile()), "\"/opt/奎 维/quorvi\" /hide");
    EXPECT_EQ(EntryValue(Read(desktop_.AutoRunFile()), "Desktop Entry", "Name"), "奎维掌上工坊");
}

TEST_F(Desktop, ProgramThatWasMovedIsNotAutoRunAlthoughTheValueStillExists) {
    desktop_.SetAutoRun(true);
    const FreedesktopIntegration moved = Of("/usr/bin/quorvi");
    EXPECT_FALSE(moved.AutoRuns());
    EXPECT_TRUE(std::filesystem::exists(moved.AutoRunFile()));
}

TEST_F(Desktop, AutoRunIsComparedWithoutRegardToCase) {
    Of("/OPT/Quorvi").SetAutoRun(true);
    EXPECT_TRUE(Of("/opt/quorvi").AutoRuns());
}

TEST_F(Desktop, AutoRunThatTheDesktopSwitchedOffDoesNotCount) {
    desktop_.SetAutoRun(true);
    const std::string entry = Read(desktop_.AutoRunFile());
    ReplaceFile(desktop_.AutoRunFile(), entry + "Hidden=true\n");
    EXPECT_FALSE(desktop_.AutoRuns());
    ReplaceFile(desktop_.AutoRunFile(), entry + "X-GNOME-Autostart-enabled=false\n");
    EXPECT_FALSE(desktop_.AutoRuns());
    desktop_.SetAutoRun(true);
    EXPECT_TRUE(desktop_.AutoRuns());
}

TEST_F(Desktop, TakingAutoRunAwayThatIsNotThereDeletesNothingAndIsNoError) {
    desktop_.MakeShortcut();
    const auto before = Files();
    desktop_.SetAutoRun(false);
    EXPECT_EQ(Files(), before);
    desktop_.SetAutoRun(true);
    desktop_.SetAutoRun(false);
    EXPECT_FALSE(std::filesystem::exists(desktop_.AutoRunFile()));
}

TEST_F(Desktop, ShortcutReplacesTheOneThatIsThere) {
    std::filesystem::create_directories(home_.Path() / "桌面");
    ReplaceFile(desktop_.ShortcutFile(), "old");
    desktop_.MakeShortcut();
    EXPECT_EQ(desktop_.ShortcutFile(), home_.Path() / "桌面" / "奎维掌上工坊.desktop");
    EXPECT_EQ(Exec(desktop_.ShortcutFile()), "\"/opt/奎 维/quorvi\"");
    const auto mode = std::filesystem::status(desktop_.ShortcutFile()).permissions();
    EXPECT_NE(mode & std::filesystem::perms::owner_exec, std::filesystem::perms::none);
}

TEST_F(Desktop, ProtocolStartsTheProgramWithTheLinkAsItsArgument) {
    ReplaceFile(places_.config / "mimeapps.list", "[Default Applications]\ntext/html=w.desktop\n");
    desktop_.RegisterProtocol();
    EXPECT_EQ(Exec(desktop_.ProtocolFile()), "\"/opt/奎 维/quorvi\" %u");
    const std::string entry = Read(desktop_.ProtocolFile());
    EXPECT_EQ(EntryValue(entry, "Desktop Entry", "MimeType"), "x-scheme-handler/quorvi;");
    EXPECT_EQ(EntryValue(entry, "Desktop Entry", "Comment"), "QuorviProtocol");
    const std::string list = Read(places_.config / "mimeapps.list");
    EXPECT_EQ(EntryValue(list, "Default Applications", "x-scheme-handler/quorvi"),
              "quorvi-protocol.desktop;");
    EXPECT_EQ(EntryValue(list, "Default Applications", "text/html"), "w.desktop");
}

// The desktop's own launcher reads what was written: a program at the most awkward of paths is
// started with the link as its one argument.
TEST_F(Desktop, LinkThatTheDesktopOpensReachesTheProgram) {
    if (std::system("command -v gio >/dev/null") != 0) {
        GTEST_SKIP() << "the desktop's launcher is not installed";
    }
    const std::filesystem::path program = home_.Path() / "a $HOME `x` \"奎 维\" \\" / "quorvi";
    const std::filesystem::path told = home_.Path() / "told";
    // The file has its name when all is in it.
    ReplaceFile(program,
                "#!/bin/sh\ncd '" + home_.Path().native() +
                    "' && printf '%s|%s' \"$#\" \"$1\" >half && mv half told\n",
                FileMode::executable);
    Of(program.native()).RegisterProtocol();
    const std::string open = "env XDG_CONFIG_HOME='" + places_.config.native() +
                             "' XDG_DATA_HOME='" + places_.data.native() +
                             "' gio open 'quorvi:show?a=1/hide'";
    ASSERT_EQ(std::system(open.c_str()), 0);
    EXPECT_TRUE(Await([&] { return exists(told); }));
    EXPECT_EQ(Read(told), "1|quorvi:show?a=1/hide");
}

TEST_F(Desktop, IconThatLaunchersNameIsThere) {
    desktop_.MakeShortcut();
    const auto icon = EntryValue(Read(desktop_.ShortcutFile()), "Desktop Entry", "Icon");
    ASSERT_TRUE(icon);
    EXPECT_EQ(Read(*icon), "<svg/>");
}

TEST_F(Desktop, RepairTwiceLeavesTheSameState) {
    desktop_.MakeShortcut();
    desktop_.RegisterProtocol();
    const auto once = Files();
    EXPECT_EQ(once.size(), 4U);  // shortcut, launcher, list, icon
    desktop_.MakeShortcut();
    desktop_.RegisterProtocol();
    EXPECT_EQ(Files(), once);
}

TEST_F(Desktop, FoldersThatCannotBeWrittenAreNoError) {
    ReplaceFile(home_.Path() / "file", "");
    Places blocked = places_;
    blocked.program = "/opt/quorvi";
    blocked.config = home_.Path() / "file";
    blocked.data = home_.Path() / "file" / "data";
    FreedesktopIntegration desktop(blocked, home_.Path() / "file" / "desk", "<svg/>");
    desktop.SetAutoRun(true);
    desktop.MakeShortcut();
    desktop.RegisterProtocol();
    EXPECT_FALSE(desktop.AutoRuns());
    EXPECT_EQ(Files().size(), 1U);
}

TEST_F(Desktop, ListBehindALinkIsReplacedWhereItStands) {
    const std::filesystem::path real = home_.Path() / "dotfiles" / "mimeapps.list";
    ReplaceFile(real, "");
    std::filesystem::create_directories(places_.config);
    std::filesystem::create_symlink(real, places_.config / "mimeapps.list");
    desktop_.RegisterProtocol();
    EXPECT_TRUE(std::filesystem::is_symlink(places_.config / "mimeapps.list"));
    EXPECT_NE(Read(real).find("quorvi-protocol.desktop"), std::string::npos);
}

}  // namespace
}  // namespace quorvi
