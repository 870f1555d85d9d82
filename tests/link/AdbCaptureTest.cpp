#include <gtest/gtest.h>

#include <algorithm>

#include "base/os/FileDescriptor.h"
#include "link/AdbCapture.h"
#include "tests/support/Await.h"
#include "tests/support/FakeAdb.h"

namespace quorvi {
namespace {

TEST(RunAdbCapture, BringsOutputAndErrorTogether) {
    const FakeAdb adb("echo out; echo err >&2; echo more");
    const AdbCapture capture = RunAdbCapture({adb.Path(), "devices"});
    EXPECT_EQ(capture.outcome, RunOutcome::started);
    EXPECT_EQ(capture.text, "out\nerr\nmore\n");
}

TEST(RunAdbCapture, CommandWithoutOutputYieldsAnEmptyText) {
    const FakeAdb adb("exit 0");
    const AdbCapture capture = RunAdbCapture({adb.Path()});
    EXPECT_EQ(capture.outcome, RunOutcome::started);
    EXPECT_EQ(capture.text, "");
}

TEST(RunAdbCapture, MissingExecutableIsNoProcess) {
    EXPECT_EQ(RunAdbCapture({"/nonexistent/adb", "devices"}).outcome, RunOutcome::noProcess);
    EXPECT_EQ(RunAdbCapture({"quorvi-no-such-tool", "devices"}).outcome, RunOutcome::noProcess);
    EXPECT_EQ(RunAdbCapture({}).outcome, RunOutcome::noProcess);
}

TEST(RunAdbCapture, BareNameIsLookedUpOnTheSearchPath) {
    EXPECT_EQ(RunAdbCapture({"printf", "found"}).text, "found");
}

TEST(RunAdbCapture, ArgumentsArriveAsAVector) {
    const FakeAdb adb("for a; do echo \"<$a>\"; done");
    EXPECT_EQ(RunAdbCapture({adb.Path(), "-s", "'x'", "a b", "$HOME;ls", "it\"s", ""}).text,
              "<-s>\n<'x'>\n<a b>\n<$HOME;ls>\n<it\"s>\n<>\n");
}

TEST(RunAdbCapture, KeepsTheFirstBytesUpToTheLimit) {
    const FakeAdb adb("head -c 100000 /dev/zero | tr '\\0' a");
    EXPECT_EQ(RunAdbCapture({adb.Path()}).text, std::string(4096, 'a'));
    EXPECT_EQ(RunAdbCapture({adb.Path()}, kInstallCaptureLimit).text, std::string(4095, 'a'));
    EXPECT_EQ(RunAdbCapture({adb.Path()}, 1024 * 1024).text.size(), 100000U);
}

TEST(RunAdbCapture, OutputThatOverfillsThePipeEnds) {
    const FakeAdb adb("head -c 4000000 /dev/zero; echo over >> \"$dir/over\"");
    EXPECT_EQ(RunAdbCapture({adb.Path()}).text.size(), 4096U);
    EXPECT_TRUE(adb.Has("over"));
}

TEST(RunAdbCapture, WaitsForAChildThatClosedItsOutput) {
    const FakeAdb adb("exec >&- 2>&-; sleep 0.2; touch \"$dir/through\"");
    EXPECT_EQ(RunAdbCapture({adb.Path()}).text, "");
    EXPECT_TRUE(adb.Has("through"));
}

// As an adb server that the first command of all starts.
TEST(RunAdbCapture, ServerThatInheritedThePipeIsNotWaitedFor) {
    const FakeAdb adb("(await stop; touch \"$dir/stopped\") & echo started");
    EXPECT_EQ(RunAdbCapture({adb.Path()}).text, "started\n");
    EXPECT_FALSE(adb.Has("stopped"));
    adb.Put("stop");
    EXPECT_TRUE(Await([&] { return adb.Has("stopped"); }));
}

// The server writes until nobody has the pipe's other end any more: it is not heard to its end.
TEST(RunAdbCapture, ServerThatKeepsWritingIsNotWaitedFor) {
    const FakeAdb adb(
        "(i=0; while [ $i -lt 3000000 ]; do echo noise; i=$((i+1)); done;"
        " touch \"$dir/through\") & echo $! > \"$dir/server\"");
    EXPECT_EQ(RunAdbCapture({adb.Path()}).outcome, RunOutcome::started);
    EXPECT_TRUE(Await([&] { return !adb.IsRunning("server"); }));
    EXPECT_FALSE(adb.Has("through"));
}

TEST(RunAdbCapture, ChildReadsNothingFromThisProgramsInput) {
    const FakeAdb adb("cat; echo end");
    EXPECT_EQ(RunAdbCapture({adb.Path()}).text, "end\n");
}

TEST(RunAdbCapture, ChildGetsNoOtherDescriptor) {
    const FakeAdb adb("ls /proc/self/fd | wc -l");
    const FileDescriptor leaky(dup(0));  // one that another library left open for children
    // 0, 1, 2, and the one with which ls reads the directory.
    EXPECT_EQ(RunAdbCapture({adb.Path()}).text, "4\n");
}

TEST(RunAdbCapture, ThousandRunsLeaveNothingBehind) {
    ASSERT_EQ(RunAdbCapture({"true"}).text, "");
    const int descriptors = OpenDescriptors();
    const int threads = SettledThreads();
    for (int run = 0; run < 1000; ++run) {
        ASSERT_EQ(RunAdbCapture({"echo", "x"}).text, "x\n");
    }
    EXPECT_EQ(OpenDescriptors(), descriptors);
    EXPECT_LE(RunningThreads(), threads);
    EXPECT_EQ(ZombieChildren(), 0);
}

TEST(LaunchAdb, WaitsForNothing) {
    const FakeAdb adb("await go; touch \"$dir/through\"");
    EXPECT_TRUE(LaunchAdb({adb.Path(), "shell", "am", "start"}));
    EXPECT_FALSE(adb.Has("through"));
    adb.Put("go");
    EXPECT_TRUE(Await([&] { return adb.Has("through"); }));
    EXPECT_TRUE(Await([] { return ZombieChildren() == 0; }));
}

TEST(LaunchAdb, MissingExecutableIsTold) {
    EXPECT_FALSE(LaunchAdb({"/nonexistent/adb", "shell", "am", "start"}));
}

TEST(LaunchAdb, ThousandRunsLeaveNothingBehind) {
    const int descriptors = OpenDescriptors();
    const int threads = SettledThreads();
    for (int run = 0; run < 1000; ++run) {
        ASSERT_TRUE(LaunchAdb({"true"}));
    }
    EXPECT_TRUE(Await([&] { return ZombieChildren() == 0 && RunningThreads() <= threads; }));
    EXPECT_EQ(OpenDescriptors(), descriptors);
}

}  // namespace
}  // namespace quorvi
