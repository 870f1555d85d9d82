#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "link/AdbPath.h"
#include "tests/support/FakeAdb.h"

namespace quorvi {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST(AdbPath, ExecutableBesideTheProgramComesFirst) {
    const TemporaryDirectory directory;
    EXPECT_EQ(AdbPathIn(directory.Path()), "adb");
    std::ofstream(directory.Path() / "adb") << "#!/bin/sh\n";
    EXPECT_EQ(AdbPathIn(directory.Path()), (directory.Path() / "adb").string());
}

TEST(AdbPath, DirectoryOfThatNameIsNoExecutable) {
    const TemporaryDirectory directory;
    std::filesystem::create_directory(directory.Path() / "adb");
    EXPECT_EQ(AdbPathIn(directory.Path()), "adb");
}

// The path is not quoted; this is meant.
TEST(AdbPath, ProgramDirectoryWithABlankIsSplit) {
    const TemporaryDirectory directory;
    const std::filesystem::path blank = directory.Path() / "my programs";
    std::filesystem::create_directory(blank);
    std::ofstream(blank / "adb") << "#!/bin/sh\n";
    EXPECT_EQ(SplitCommandLine(AdbPathIn(blank) + " devices").size(), 3U);
}

TEST(SplitCommandLine, CutsAtBlanks) {
    EXPECT_THAT(SplitCommandLine("adb -s HT04 shell getprop"),
                ElementsAre("adb", "-s", "HT04", "shell", "getprop"));
    EXPECT_THAT(SplitCommandLine("  adb   devices  "), ElementsAre("adb", "devices"));
    EXPECT_THAT(SplitCommandLine(""), IsEmpty());
    EXPECT_THAT(SplitCommandLine("   "), IsEmpty());
}

TEST(SplitCommandLine, BlanksInsideDoubleQuotesStay) {
    EXPECT_THAT(SplitCommandLine("adb install -r \"/opt/my suite/a.apk\""),
                ElementsAre("adb", "install", "-r", "/opt/my suite/a.apk"));
    EXPECT_THAT(SplitCommandLine("a\"b c\"d \"\" e"), ElementsAre("ab cd", "", "e"));
}

TEST(SplitCommandLine, OpenQuoteReachesToTheEnd) {
    EXPECT_THAT(SplitCommandLine("adb \"a b"), ElementsAre("adb", "a b"));
}

TEST(SplitCommandLine, CharactersOfAShellMeanNothing) {
    EXPECT_THAT(SplitCommandLine("adb -s $(reboot);'a b' | > \\ *"),
                ElementsAre("adb", "-s", "$(reboot);'a", "b'", "|", ">", "\\", "*"));
}

TEST(QuoteBlanks, OnlyAPathWithABlankIsQuoted) {
    EXPECT_EQ(QuoteBlanks("/opt/quorvi/a.apk"), "/opt/quorvi/a.apk");
    EXPECT_EQ(QuoteBlanks("/opt/my suite/a.apk"), "\"/opt/my suite/a.apk\"");
}

}  // namespace
}  // namespace quorvi
