// The workbench itself, and the simulated phone as the real adb sees it.
#include <gtest/gtest.h>

#include <fstream>

#include "agent/Wire.h"
#include "tests/support/BuildPlaces.h"
#include "tests/support/LoopbackPort.h"
#include "tests/support/PhoneRig.h"

namespace quorvi::e2e {
namespace {

// The ports that the system hands out, as long as this stands: two, one of them the agent's.
class TwoPorts {
  public:
    TwoPorts() {
        std::getline(std::ifstream(kRange), before_);
        std::ofstream(kRange) << AgentPort - 1 << ' ' << AgentPort;
    }
    ~TwoPorts() { std::ofstream(kRange) << before_; }
    TwoPorts(const TwoPorts&) = delete;
    TwoPorts& operator=(const TwoPorts&) = delete;
    // Not where the system lets nobody say which.
    [[nodiscard]] static bool Stand() {
        int first = 0;
        std::ifstream(kRange) >> first;
        return first == AgentPort - 1;
    }

  private:
    static constexpr const char* kRange = "/proc/sys/net/ipv4/ip_local_port_range";
    std::string before_;
};

TEST(PhoneRig, NobodyHasTheAgentsPortByChance) {
    const TwoPorts ports;
    if (TwoPorts::Stand()) {
        EXPECT_EQ(PortOf(ListenOn(0)), AgentPort - 1);
    }
}

// Apart from the banner that adb's server prints when it is started by a client.
TEST(PhoneRig, AdbListsEachPhone) {
    PhoneRig rig(2);
    ASSERT_EQ(rig.Error(), "");
    const ProgramResult devices = rig.Adb({"devices"});
    EXPECT_EQ(devices.output, "List of devices attached\n" + rig.Serial(0) + "\tdevice\n" +
                                  rig.Serial(1) + "\tdevice\n\n");
}

TEST(PhoneRig, AdbShellPrintsAPropertyWithATerminalsLineEnd) {
    PhoneRig rig(1);
    ASSERT_EQ(rig.Error(), "");
    EXPECT_EQ(rig.Adb({"shell", "getprop", "ro.build.version.release"}).output, "2.3.4\r\n");
}

TEST(PhoneRig, AdbInstallsTheDeliveredPackage) {
    PhoneRig rig(1);
    ASSERT_EQ(rig.Error(), "");
    rig.Control(0, "agent missing");
    const ProgramResult install =
        rig.Adb({"install", "-r", QUORVI_BIN_DIR "/com.quorvi.Quorvi.apk"});
    EXPECT_NE(install.output.find("Success"), std::string::npos) << install.output;
    EXPECT_NE(rig.Control(0, "status").find("agent 20\n"), std::string::npos);
    // Adb takes the pushed file away again.
    EXPECT_EQ(rig.Adb({"shell", "ls", "/data/local/tmp"}).output, "");
}

TEST(PhoneRig, AdbInstallTellsWhyThePhoneRefuses) {
    PhoneRig rig(1);
    ASSERT_EQ(rig.Error(), "");
    rig.Control(0, "install INSTALL_FAILED_INSUFFICIENT_STORAGE");
    const ProgramResult install =
        rig.Adb({"install", "-r", QUORVI_BIN_DIR "/com.quorvi.Quorvi.apk"});
    EXPECT_NE((install.output + install.messages).find("INSTALL_FAILED_INSUFFICIENT_STORAGE"),
              std::string::npos);
}

TEST(PhoneRig, AdbUninstalls) {
    PhoneRig rig(1);
    ASSERT_EQ(rig.Error(), "");
    EXPECT_EQ(rig.Adb({"uninstall", "com.quorvi.Quorvi"}).output, "Success\r\n");
    EXPECT_NE(rig.Control(0, "status").find("agent missing\n"), std::string::npos);
}

TEST(PhoneRig, AdbPushesAndPullsAFileUnchanged) {
    PhoneRig rig(1);
    ASSERT_EQ(rig.Error(), "");
    const TemporaryFolder directory;
    const std::string there = (directory.Path() / "there").string();
    const std::string back = (directory.Path() / "back").string();
    std::string content;
    for (int i = 0; i < 3'000'000; ++i) {
        content += static_cast<char>(i * 31 >> 3);
    }
    std::ofstream(there, std::ios::binary) << content;
    EXPECT_EQ(rig.Adb({"push", there, "/sdcard/there"}).status, 0);
    EXPECT_EQ(rig.Adb({"pull", "/sdcard/there", back}).status, 0);
    std::ifstream file(back, std::ios::binary);
    EXPECT_TRUE(std::string(std::istreambuf_iterator<char>(file), {}) == content);
}

TEST(PhoneRig, AdbServesAPhoneOfTheOldTransport) {
    phone::PhoneOptions old;
    old.profile = phone::DeliveredProfile(0);
    old.oldTransport = true;
    PhoneRig rig(std::vector{old});
    ASSERT_EQ(rig.Error(), "");
    EXPECT_EQ(rig.Adb({"shell", "echo", "hi"}).output, "hi\r\n");
}

TEST(PhoneRig, APhoneOnAnyPortConnectsByItsAddress) {
    phone::PhoneOptions other;
    other.profile = phone::DeliveredProfile(0);
    other.adbPort = 0;
    PhoneRig rig(std::vector{other});
    ASSERT_EQ(rig.Error(), "");
    EXPECT_NE(rig.Adb({"devices"}).output.find("127.0.0.1:"), std::string::npos);
}

TEST(PhoneRig, AnUnpluggedPhoneIsNoDeviceUntilItIsPluggedIn) {
    PhoneRig rig(2);
    ASSERT_EQ(rig.Error(), "");
    rig.Control(0, "unplug");
    EXPECT_TRUE(rig.WaitForDevices(1));
    rig.Control(0, "plug");
    EXPECT_TRUE(rig.WaitForDevices(2));
}

}  // namespace
}  // namespace quorvi::e2e
