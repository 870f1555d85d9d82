// The workbench itself, and the simulated phone as the real adb sees it.
#include <gtest/gtest.h>

#include <fstream>

#include "tests/support/Bench.h"

namespace quorvi::e2e {
namespace {

// Apart from the banner that adb's server prints when it is started by a client.
TEST(Bench, AdbListsEachPhone) {
    Bench bench(2);
    ASSERT_EQ(bench.Error(), "");
    const ProgramResult devices = bench.Adb({"devices"});
    EXPECT_EQ(devices.output, "List of devices attached\n" + bench.Serial(0) + "\tdevice\n" +
                                  bench.Serial(1) + "\tdevice\n\n");
}

TEST(Bench, AdbShellPrintsAPropertyWithATerminalsLineEnd) {
    Bench bench(1);
    ASSERT_EQ(bench.Error(), "");
    EXPECT_EQ(bench.Adb({"shell", "getprop", "ro.build.version.release"}).output, "2.3.4\r\n");
}

TEST(Bench, AdbInstallsTheDeliveredPackage) {
    Bench bench(1);
    ASSERT_EQ(bench.Error(), "");
    bench.Control(0, "agent missing");
    const ProgramResult install =
        bench.Adb({"install", "-r", QUORVI_BIN_DIR "/com.quorvi.Quorvi.apk"});
    EXPECT_NE(install.output.find("Success"), std::string::npos) << install.output;
    EXPECT_NE(bench.Control(0, "status").find("agent 20\n"), std::string::npos);
    // Adb takes the pushed file away again.
    EXPECT_EQ(bench.Adb({"shell", "ls", "/data/local/tmp"}).output, "");
}

TEST(Bench, AdbInstallTellsWhyThePhoneRefuses) {
    Bench bench(1);
    ASSERT_EQ(bench.Error(), "");
    bench.Control(0, "install INSTALL_FAILED_INSUFFICIENT_STORAGE");
    const ProgramResult install =
        bench.Adb({"install", "-r", QUORVI_BIN_DIR "/com.quorvi.Quorvi.apk"});
    EXPECT_NE((install.output + install.messages).find("INSTALL_FAILED_INSUFFICIENT_STORAGE"),
              std::string::npos);
}

TEST(Bench, AdbUninstalls) {
    Bench bench(1);
    ASSERT_EQ(bench.Error(), "");
    EXPECT_EQ(bench.Adb({"uninstall", "com.quorvi.Quorvi"}).output, "Success\r\n");
    EXPECT_NE(bench.Control(0, "status").find("agent missing\n"), std::string::npos);
}

TEST(Bench, AdbPushesAndPullsAFileUnchanged) {
    Bench bench(1);
    ASSERT_EQ(bench.Error(), "");
    const TemporaryDirectory directory;
    const std::string there = (directory.Path() / "there").string();
    const std::string back = (directory.Path() / "back").string();
    std::string content;
    for (int i = 0; i < 3'000'000; ++i) {
        content += static_cast<char>(i * 31 >> 3);
    }
    std::ofstream(there, std::ios::binary) << content;
    EXPECT_EQ(bench.Adb({"push", there, "/sdcard/there"}).status, 0);
    EXPECT_EQ(bench.Adb({"pull", "/sdcard/there", back}).status, 0);
    std::ifstream file(back, std::ios::binary);
    EXPECT_TRUE(std::string(std::istreambuf_iterator<char>(file), {}) == content);
}

TEST(Bench, AdbServesAPhoneOfTheOldTransport) {
    phone::PhoneOptions old;
    old.profile = phone::DeliveredProfile(0);
    old.oldTransport = true;
    Bench bench(std::vector{old});
    ASSERT_EQ(bench.Error(), "");
    EXPECT_EQ(bench.Adb({"shell", "echo", "hi"}).output, "hi\r\n");
}

TEST(Bench, APhoneOnAnyPortConnectsByItsAddress) {
    phone::PhoneOptions other;
    other.profile = phone::DeliveredProfile(0);
    other.adbPort = 0;
    Bench bench(std::vector{other});
    ASSERT_EQ(bench.Error(), "");
    EXPECT_NE(bench.Adb({"devices"}).output.find("127.0.0.1:"), std::string::npos);
}

TEST(Bench, AnUnpluggedPhoneIsNoDeviceUntilItIsPluggedIn) {
    Bench bench(2);
    ASSERT_EQ(bench.Error(), "");
    bench.Control(0, "unplug");
    EXPECT_TRUE(bench.WaitForDevices(1));
    bench.Control(0, "plug");
    EXPECT_TRUE(bench.WaitForDevices(2));
}

}  // namespace
}  // namespace quorvi::e2e
