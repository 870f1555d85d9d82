// quorvictl devices and link over the real adb: the whole procedure, the phone well and ill.
#include <gtest/gtest.h>
#include <json/json.h>

#include <sstream>

#include "tests/support/PhoneRig.h"

namespace quorvi::e2e {
namespace {

// Two passes with their waits, and room for a slow machine.
constexpr auto kLinkLimit = std::chrono::seconds(40);

struct Banner {
    int state;
    std::string text;
    bool operator==(const Banner&) const = default;
};

void PrintTo(const Banner& banner, std::ostream* out) {
    *out << banner.state << " " << banner.text;
}

using Banners = std::vector<Banner>;

// One document a line.
Banners ReadBanners(const std::string& output) {
    Banners banners;
    std::istringstream lines(output);
    for (std::string line; std::getline(lines, line);) {
        Json::Value document;
        std::istringstream(line) >> document;
        banners.push_back({document["state"].asInt(), document["text"].asString()});
    }
    return banners;
}

const Banner kConnecting{0, "连接设备中..."};
const Banner kUp{2, "连接成功:)"};
const Banner kNoAnswer{1, "【错误】连接手机端失败"};
const Banner kInstalling{0, "【提示】正在安装手机端..."};
const Banner kUpgrading{0, "【提示】正在升级手机端..."};
const Banner kInstalled{2, "安装成功"};

class Link : public testing::Test {
  protected:
    void SetUp() override { ASSERT_EQ(rig_.Error(), ""); }

    ProgramResult Run(std::vector<std::string> arguments = {"link", "--json"}) {
        return rig_.Suite(std::move(arguments), {}, kLinkLimit);
    }

    PhoneRig rig_{1};
};

TEST_F(Link, StartsTheAgentAndStands) {
    const ProgramResult link = Run();
    EXPECT_EQ(link.status, 0);
    EXPECT_EQ(ReadBanners(link.output), (Banners{kConnecting, kUp}));
    EXPECT_EQ(rig_.Control(0, "deviations"), "ok\n");
    // The forward stays when the program has ended.
    EXPECT_EQ(rig_.Suite({"info"}).status, 0);
}

TEST_F(Link, InstallsAMissingAgentAndConnectsAgain) {
    rig_.Control(0, "agent missing");
    const ProgramResult link = Run();
    EXPECT_EQ(link.status, 0);
    EXPECT_EQ(ReadBanners(link.output),
              (Banners{kConnecting, kInstalling, kInstalled, kConnecting, kUp}));
}

TEST_F(Link, ReplacesAnAgentBelowTwenty) {
    rig_.Control(0, "agent version 19");
    const ProgramResult link = Run();
    EXPECT_EQ(link.status, 0);
    EXPECT_EQ(ReadBanners(link.output),
              (Banners{kConnecting, kUpgrading, kInstalled, kConnecting, kUp}));
}

TEST_F(Link, AnInstallThatFailsIsTriedOnceMoreAndNoOftener) {
    struct Row {
        const char* result;
        const char* text;
    };
    constexpr Row kRows[] = {
        {"INSTALL_PARSE_FAILED_INCONSISTENT_CERTIFICATES", "【错误】签名错误，先卸载老版本"},
        {"INSTALL_FAILED_INSUFFICIENT_STORAGE", "【错误】安装失败，手机空间不足"},
        {"INSTALL_FAILED_INVALID_APK", "【错误】安装失败，请到官网重下"},
    };
    for (const Row& row : kRows) {
        rig_.Control(0, "agent missing");
        rig_.Control(0, std::string("install ") + row.result);
        const ProgramResult link = Run();
        EXPECT_EQ(link.status, 2) << row.result;
        const Banner failed{1, row.text};
        EXPECT_EQ(ReadBanners(link.output),
                  (Banners{kConnecting, kInstalling, failed, kConnecting, kInstalling, failed}));
    }
}

TEST_F(Link, AnAgentThatDoesNotAnswerIsAnError) {
    for (const char* fault : {"close", "cut 0", "reset 0"}) {
        rig_.Control(0, std::string("fault 870003 ") + fault);
        const ProgramResult link = Run();
        EXPECT_EQ(link.status, 2) << fault;
        EXPECT_EQ(ReadBanners(link.output), (Banners{kConnecting, kNoAnswer})) << fault;
    }
}

TEST_F(Link, AVersionThatComesByteByByteIsRead) {
    rig_.Control(0, "fault 870003 trickle 1 50");
    const ProgramResult link = Run();
    EXPECT_EQ(link.status, 0);
    EXPECT_EQ(ReadBanners(link.output), (Banners{kConnecting, kUp}));
}

TEST_F(Link, NoPhoneIsAnError) {
    rig_.Control(0, "unplug");
    ASSERT_TRUE(rig_.WaitForDevices(0));
    const ProgramResult link = Run();
    EXPECT_EQ(link.status, 2);
    EXPECT_EQ(ReadBanners(link.output), (Banners{kConnecting, {1, "【错误】没有找到Android设备"}}));
}

TEST_F(Link, ThePhonesSerialMayBeGivenWhenItIsAlone) {
    EXPECT_EQ(Run({"link", "--json", "--serial", rig_.Serial(0)}).status, 0);
}

class TwoPhones : public testing::Test {
  protected:
    void SetUp() override { ASSERT_EQ(rig_.Error(), ""); }

    PhoneRig rig_{2};
};

TEST_F(TwoPhones, DevicesListsBothWithWhatTheyTell) {
    const ProgramResult devices = rig_.Suite({"devices", "--json"});
    EXPECT_EQ(devices.status, 0);
    Json::Value phones;
    std::istringstream(devices.output) >> phones;
    ASSERT_EQ(phones.size(), 2u);
    for (Json::ArrayIndex i = 0; i < 2; ++i) {
        EXPECT_EQ(phones[i]["serial"].asString(), rig_.Serial(i));
        EXPECT_FALSE(phones[i]["model"].asString().empty());
        EXPECT_GT(phones[i]["api_level"].asInt(), 0);
        EXPECT_GE(phones[i]["brand_image"].asInt(), 21000);
    }
}

TEST_F(TwoPhones, WithoutASerialNoneIsChosen) {
    const ProgramResult link = rig_.Suite({"link", "--json"}, {}, kLinkLimit);
    EXPECT_EQ(link.status, 2);
    EXPECT_EQ(ReadBanners(link.output), (Banners{kConnecting, {1, "【错误】没有选择任何设备"}}));
}

TEST_F(TwoPhones, TheSerialChoosesThePhoneThatAnswersFromThenOn) {
    for (std::size_t i : {0u, 1u}) {
        const ProgramResult link =
            rig_.Suite({"link", "--json", "--serial", rig_.Serial(i)}, {}, kLinkLimit);
        EXPECT_EQ(link.status, 0);
        EXPECT_EQ(ReadBanners(link.output), (Banners{kConnecting, kUp}));
        rig_.Control(i, "log clear");
        EXPECT_EQ(rig_.Suite({"info"}).status, 0);
        EXPECT_NE(rig_.Control(i, "log").find("870004"), std::string::npos) << i;
    }
}

TEST_F(TwoPhones, ASerialThatIsNotThereIsStatusThree) {
    const ProgramResult link = rig_.Suite({"link", "--json", "--serial", "nobody"});
    EXPECT_EQ(link.status, 3);
    EXPECT_EQ(link.output, "");
    EXPECT_NE(link.messages, "");
}

}  // namespace
}  // namespace quorvi::e2e
