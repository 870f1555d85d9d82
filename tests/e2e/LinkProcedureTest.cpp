// The link procedure in this process over the real adb: phones well and ill.
#include <gmock/gmock.h>
#include <json/json.h>

#include <sstream>

#include "tests/support/LinkRun.h"

namespace quorvi::e2e {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

const Banner kConnecting{BannerState::working, "连接设备中..."};
const Banner kInstalling{BannerState::working, "【提示】正在安装手机端..."};
const Banner kUpgrading{BannerState::working, "【提示】正在升级手机端..."};
const Banner kInstalled{BannerState::success, "安装成功"};
const Banner kLinked{BannerState::success, "连接成功:)"};
const Banner kNoAnswer{BannerState::error, "【错误】连接手机端失败"};
const Banner kNoDevice{BannerState::error, "【错误】没有找到Android设备"};
const Banner kNoneChosen{BannerState::error, "【错误】没有选择任何设备"};
const Banner kWrongSignature{BannerState::error, "【错误】签名错误，先卸载老版本"};
const Banner kNoSpace{BannerState::error, "【错误】安装失败，手机空间不足"};
const Banner kInstallFailed{BannerState::error, "【错误】安装失败，请到官网重下"};

class LinkProcedure : public testing::Test {
  protected:
    void SetUp() override { ASSERT_EQ(rig_.Error(), ""); }

    PhoneRig rig_{1};
    LinkRun run_{rig_};
};

TEST_F(LinkProcedure, ComesUpWithAPhoneThatHasTheAgent) {
    EXPECT_THAT(run_.Run(), ElementsAre(kConnecting, kLinked));
    EXPECT_EQ(run_.TimesUp(), 1);
    EXPECT_EQ(run_.Serial(), rig_.Serial(0));
    EXPECT_EQ(rig_.Control(0, "deviations"), "ok\n");
}

TEST_F(LinkProcedure, InstallsAMissingAgentAndComesUp) {
    rig_.Control(0, "agent missing");
    EXPECT_THAT(run_.Run(),
                ElementsAre(kConnecting, kInstalling, kInstalled, kConnecting, kLinked));
    EXPECT_THAT(rig_.Control(0, "status"), HasSubstr("agent 20\n"));
}

TEST_F(LinkProcedure, UpgradesAnOldAgentAndComesUp) {
    rig_.Control(0, "agent version 19");
    EXPECT_THAT(run_.Run(), ElementsAre(kConnecting, kUpgrading, kInstalled, kConnecting, kLinked));
}

TEST_F(LinkProcedure, AnAgentOfVersionOneIsOldToo) {
    rig_.Control(0, "agent version 1");
    EXPECT_THAT(run_.Run(), ElementsAre(kConnecting, kUpgrading, kInstalled, kConnecting, kLinked));
}

TEST_F(LinkProcedure, ANewerAgentIsGood) {
    rig_.Control(0, "agent version 21");
    EXPECT_THAT(run_.Run(), ElementsAre(kConnecting, kLinked));
}

TEST_F(LinkProcedure, AVersionOfZeroIsNoAnswer) {
    rig_.Control(0, "agent version 0");
    EXPECT_THAT(run_.Run(), ElementsAre(kConnecting, kNoAnswer));
}

TEST_F(LinkProcedure, AnAgentThatDoesNotComeUpIsNoAnswer) {
    rig_.Control(0, "agent crashes");
    EXPECT_THAT(run_.Run(), ElementsAre(kConnecting, kNoAnswer));
}

TEST_F(LinkProcedure, AWrongSignatureIsToldTwiceSinceTheRetryMeetsItToo) {
    rig_.Control(0, "agent missing");
    rig_.Control(0, "install INSTALL_PARSE_FAILED_INCONSISTENT_CERTIFICATES");
    EXPECT_THAT(run_.Run(), ElementsAre(kConnecting, kInstalling, kWrongSignature, kConnecting,
                                        kInstalling, kWrongSignature));
}

TEST_F(LinkProcedure, TooLittleStorageIsTold) {
    rig_.Control(0, "agent missing");
    rig_.Control(0, "install INSTALL_FAILED_INSUFFICIENT_STORAGE");
    EXPECT_EQ(run_.Run().back(), kNoSpace);
}

TEST_F(LinkProcedure, AnyOtherInstallFailureIsTold) {
    rig_.Control(0, "agent missing");
    rig_.Control(0, "install INSTALL_FAILED_DEXOPT");
    EXPECT_EQ(run_.Run().back(), kInstallFailed);
}

TEST_F(LinkProcedure, AnOldAgentWhoseUpgradeFailsIsRetriedOnceInAProcess) {
    rig_.Control(0, "agent version 19");
    rig_.Control(0, "install INSTALL_FAILED_INSUFFICIENT_STORAGE");
    EXPECT_THAT(run_.Run(),
                ElementsAre(kConnecting, kUpgrading, kNoSpace, kConnecting, kUpgrading, kNoSpace));
    EXPECT_THAT(run_.Run(), ElementsAre(kConnecting, kUpgrading, kNoSpace));
}

TEST_F(LinkProcedure, NoPhoneIsTold) {
    rig_.Control(0, "unplug");
    ASSERT_TRUE(rig_.WaitForDevices(0));
    EXPECT_THAT(run_.Run(), ElementsAre(kConnecting, kNoDevice));
}

TEST_F(LinkProcedure, ComesUpAgainWhenThePhoneIsPluggedInAgain) {
    EXPECT_EQ(run_.Run().back(), kLinked);
    rig_.Control(0, "unplug");
    ASSERT_TRUE(rig_.WaitForDevices(0));
    rig_.Control(0, "plug");
    ASSERT_TRUE(rig_.WaitForDevices(1));
    EXPECT_THAT(run_.Run(), ElementsAre(kConnecting, kLinked));
}

struct VersionFault {
    const char* name;
    const char* fault;
    const Banner* end;
};

void PrintTo(const VersionFault& fault, std::ostream* out) {
    *out << fault.name;
}

// What each way to misbehave at the version's query comes to.
class LinkFault : public LinkProcedure, public testing::WithParamInterface<VersionFault> {};

TEST_P(LinkFault, EndsInItsBanner) {
    ASSERT_EQ(rig_.Control(0, std::string("fault 870003 ") + GetParam().fault), "ok\n");
    EXPECT_THAT(run_.Run(), ElementsAre(kConnecting, *GetParam().end));
    rig_.Control(0, "faults clear");
    ASSERT_TRUE(rig_.WaitForDevices(1));
    EXPECT_EQ(run_.Run().back(), kLinked);
}

INSTANTIATE_TEST_SUITE_P(
    Each, LinkFault,
    testing::Values(VersionFault{"Close", "close", &kNoAnswer},
                    VersionFault{"CutInsideTheWord", "cut 3", &kNoAnswer},
                    VersionFault{"Reset", "reset", &kNoAnswer},
                    VersionFault{"Unplug", "unplug", &kNoAnswer},
                    VersionFault{"Trickle", "trickle 1 5", &kLinked},
                    VersionFault{"Delay", "delay 100", &kLinked},
                    // The mark is a number like another where a version is asked for.
                    VersionFault{"NoData", "nodata", &kLinked},
                    VersionFault{"NegativeVersion", "word 4294967295", &kNoAnswer},
                    VersionFault{"LengthInFront", "length 3000000000 10", &kNoAnswer}),
    [](const auto& test) { return test.param.name; });

class LinkOfTwo : public testing::Test {
  protected:
    void SetUp() override { ASSERT_EQ(rig_.Error(), ""); }

    PhoneRig rig_{2};
    LinkRun run_{rig_};
};

TEST_F(LinkOfTwo, TakesThePhoneThatTheUserChooses) {
    run_.Choose(rig_.Serial(1));
    EXPECT_THAT(run_.Run(), ElementsAre(kConnecting, kLinked));
    EXPECT_THAT(run_.Choosers(), ElementsAre("连接管理器 - Quorvi"));
    EXPECT_THAT(rig_.Control(1, "log"), HasSubstr("agentVersion"));
    EXPECT_EQ(rig_.Control(0, "log"), "ok\n");
}

TEST_F(LinkOfTwo, TellsThatNoneWasChosen) {
    EXPECT_THAT(run_.Run(), ElementsAre(kConnecting, kNoneChosen));
}

TEST_F(LinkOfTwo, AsksNobodyWhenOnePhoneIsUnplugged) {
    rig_.Control(0, "unplug");
    ASSERT_TRUE(rig_.WaitForDevices(1));
    EXPECT_THAT(run_.Run(), ElementsAre(kConnecting, kLinked));
    EXPECT_THAT(run_.Choosers(), IsEmpty());
    EXPECT_EQ(run_.Serial(), rig_.Serial(1));
}

TEST(Devices, TheProgramListsEachPhoneWithWhatItIs) {
    PhoneRig rig(3);
    ASSERT_EQ(rig.Error(), "");
    const ProgramResult devices = rig.Suite({"devices", "--json"});
    EXPECT_EQ(devices.status, 0);
    Json::Value list;
    std::istringstream(devices.output) >> list;
    ASSERT_EQ(list.size(), 3u);
    EXPECT_EQ(list[0]["serial"].asString(), rig.Serial(0));
    EXPECT_EQ(list[0]["model"].asString(), "S2");
    EXPECT_EQ(list[0]["api_level"].asInt(), 10);
    EXPECT_EQ(list[1]["brand"].asString(), "摩托罗拉");
    EXPECT_EQ(list[1]["brand_image"].asInt(), 21008);
    EXPECT_EQ(list[2]["android_version"].asString(), "Android 2.1");
}

}  // namespace
}  // namespace quorvi::e2e
