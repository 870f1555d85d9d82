#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "link/AdbCapture.h"
#include "link/AdbCommand.h"
#include "tests/support/FakeAdb.h"

namespace quorvi {
namespace {

using testing::ElementsAre;

LinkEnvironment With(const char* adb) {
    LinkEnvironment environment;
    environment.adbPath = [adb] { return std::string(adb); };
    return environment;
}

TEST(AdbCommand, EachHasTheToldArgumentsInTheirOrder) {
    const LinkEnvironment environment = With("/opt/adb");
    EXPECT_THAT(DevicesCommand(environment), ElementsAre("/opt/adb", "devices"));
    EXPECT_THAT(VersionCommand(environment), ElementsAre("/opt/adb", "version"));
    EXPECT_THAT(ForwardListCommand(environment), ElementsAre("/opt/adb", "forward", "--list"));
    EXPECT_THAT(GetpropCommand(environment, "HT04"),
                ElementsAre("/opt/adb", "-s", "HT04", "shell", "getprop"));
    EXPECT_THAT(PackageListCommand(environment, "HT04"),
                ElementsAre("/opt/adb", "-s", "HT04", "shell", "pm", "list", "package"));
    EXPECT_THAT(StartActivityCommand(environment, "HT04", "com.quorvi.Quorvi", ".Quorvi"),
                ElementsAre("/opt/adb", "-s", "HT04", "shell", "am", "start", "-n",
                            "com.quorvi.Quorvi/.Quorvi"));
    EXPECT_THAT(InstallCommand(environment, "HT04", "/opt/a.apk"),
                ElementsAre("/opt/adb", "-s", "HT04", "install", "-r", "/opt/a.apk"));
    EXPECT_THAT(UninstallCommand(environment, "HT04", "com.a"),
                ElementsAre("/opt/adb", "-s", "HT04", "uninstall", "com.a"));
    EXPECT_THAT(UninstallCommand(environment, std::nullopt, "com.a"),
                ElementsAre("/opt/adb", "uninstall", "com.a"));
    EXPECT_THAT(PackagePathCommand(environment, std::nullopt, "com.a"),
                ElementsAre("/opt/adb", "shell", "pm", "path", "com.a"));
}

TEST(AdbCommand, FileWithAQuoteAndABlankReachesAdbAsOneArgument) {
    const FakeAdb adb("");
    const std::string file = "/it\"s new/a.apk";
    EXPECT_EQ(RunAdbCapture(InstallCommand(adb.Environment(), "HT04", file)).outcome,
              RunOutcome::started);
    EXPECT_THAT(adb.Calls(), ElementsAre(ElementsAre("-s", "HT04", "install", "-r", file)));
}

TEST(AdbCommand, PackageNameWithBlanksReachesAdbAsOneArgument) {
    const FakeAdb adb("");
    const std::string package = "a -k --user 0";
    EXPECT_EQ(RunAdbCapture({adb.Path(), "uninstall", package}).outcome, RunOutcome::started);
    EXPECT_EQ(
        RunAdbCapture(StartActivityCommand(adb.Environment(), "HT04", package, ".Main")).outcome,
        RunOutcome::started);
    EXPECT_THAT(adb.Calls(), ElementsAre(ElementsAre("uninstall", package),
                                         ElementsAre("-s", "HT04", "shell", "am", "start", "-n",
                                                     package + "/.Main")));
}

TEST(AdbCommand, AdbInAFolderWithABlankIsOneArgument) {
    const LinkEnvironment environment = With("/opt/my programs/adb");
    EXPECT_THAT(DevicesCommand(environment), ElementsAre("/opt/my programs/adb", "devices"));
}

TEST(AdbCommand, EmptySerialStaysAnArgument) {
    const FakeAdb adb("");
    static_cast<void>(RunAdbCapture(GetpropCommand(adb.Environment(), "")));
    EXPECT_THAT(adb.Calls(), ElementsAre(ElementsAre("-s", "", "shell", "getprop")));
}

TEST(AdbCommand, ItsTextQuotesWhatHoldsABlank) {
    EXPECT_EQ(CommandLineText(InstallCommand(With("adb"), "HT04", "/opt/my suite/a.apk")),
              "adb -s HT04 install -r \"/opt/my suite/a.apk\"");
    EXPECT_EQ(CommandLineText(InstallCommand(With("adb"), "HT04", "/opt/quorvi/a.apk")),
              "adb -s HT04 install -r /opt/quorvi/a.apk");
}

}  // namespace
}  // namespace quorvi
