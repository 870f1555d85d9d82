// A user's stories with the phone's applications, from the command line through the real adb to the
// phone, and to a site behind a real HTTP server.
#include <gmock/gmock.h>
#include <json/json.h>

#include <filesystem>
#include <fstream>
#include <optional>
#include <sstream>

#include "tests/support/EnvironmentVariable.h"
#include "tests/support/PhoneRig.h"
#include "tests/support/SiteServer.h"
#include "tests/support/TemporaryFolder.h"

namespace quorvi::e2e {
namespace {

using testing::HasSubstr;
using testing::Not;

Json::Value Ask(PhoneRig& rig, std::vector<std::string> arguments, int status = 0) {
    arguments.push_back("--json");
    const ProgramResult result = rig.Suite(std::move(arguments));
    EXPECT_EQ(result.status, status) << result.messages;
    Json::Value value;
    std::istringstream(result.output) >> value;
    return value;
}

std::optional<Json::Value> Find(const Json::Value& list, const std::string& package) {
    for (const Json::Value& element : list) {
        if (element["package"].asString() == package) {
            return element;
        }
    }
    return std::nullopt;
}

class Apps : public testing::Test {
  protected:
    void SetUp() override {
        ASSERT_EQ(rig_.Error(), "");
        ASSERT_EQ(rig_.BringAgentUp(0), "");
    }
    // Each request of a story had the frame that its command asks for.
    void TearDown() override { EXPECT_EQ(rig_.Control(0, "deviations"), "ok\n"); }

    PhoneRig rig_{1};
};

TEST_F(Apps, OneIsStartedAndOneUninstalled) {
    const Json::Value list = Ask(rig_, {"apps", "list"});
    ASSERT_EQ(list.size(), 29u);
    const Json::Value chat = Find(list, "com.example.chat").value();
    EXPECT_EQ(chat["name"].asString(), "聊天小窝");
    EXPECT_EQ(chat["version"].asString(), "5.1.0 beta");
    EXPECT_EQ(chat["size"].asUInt64(), 9'844u * 1024);
    EXPECT_GT(chat["icon_bytes"].asUInt64(), 0u);
    EXPECT_EQ(Find(list, "android").value()["installed"].asString(), "从未");

    EXPECT_EQ(Ask(rig_, {"apps", "run", "com.example.notes"})["started"].asString(),
              "com.example.notes");
    EXPECT_TRUE(Find(Ask(rig_, {"processes", "list"}), "com.example.notes"));

    const Json::Value said = Ask(rig_, {"apps", "uninstall", "com.example.notes"});
    ASSERT_EQ(said.size(), 1u);
    EXPECT_TRUE(said[0]["uninstalled"].asBool());
    EXPECT_THAT(said[0]["said"].asString(), HasSubstr("Success"));
    const Json::Value after = Ask(rig_, {"apps", "list"});
    EXPECT_EQ(after.size(), 28u);
    EXPECT_FALSE(Find(after, "com.example.notes"));
    EXPECT_FALSE(Find(Ask(rig_, {"processes", "list"}), "com.example.notes"));
    EXPECT_THAT(rig_.Adb({"shell", "pm", "list", "packages"}).output,
                Not(HasSubstr("com.example.notes")));
}

TEST_F(Apps, OfSeveralOneThatIsNotThereIsSaidAndTheOthersGo) {
    const Json::Value said = Ask(
        rig_, {"apps", "uninstall", "com.example.bus", "com.example.gone", "com.example.run"}, 3);
    ASSERT_EQ(said.size(), 3u);
    EXPECT_TRUE(said[0]["uninstalled"].asBool());
    EXPECT_FALSE(said[1]["uninstalled"].asBool());
    EXPECT_TRUE(said[2]["uninstalled"].asBool());
    const ProgramResult gone = rig_.Suite({"apps", "uninstall", "com.example.gone"});
    EXPECT_EQ(gone.status, 3);
    EXPECT_EQ(gone.messages, "quorvictl: com.example.gone: 手机上没有这个应用\n");
    EXPECT_EQ(Ask(rig_, {"apps", "list"}).size(), 27u);
}

TEST_F(Apps, OneOfTheSystemStaysAndTheUserReadsWhy) {
    const ProgramResult kept = rig_.Suite({"apps", "uninstall", "com.android.mms"});
    EXPECT_EQ(kept.status, 2);
    EXPECT_THAT(kept.output, HasSubstr("com.android.mms: Failure"));
    EXPECT_THAT(kept.messages, HasSubstr("手机不肯卸载"));
    EXPECT_TRUE(Find(Ask(rig_, {"apps", "list"}), "com.android.mms"));
}

TEST_F(Apps, OfAPhoneThatWasUnpluggedNoneIsUninstalledAndTheNextTryWorks) {
    rig_.Control(0, "unplug");
    ASSERT_TRUE(rig_.WaitForDevices(0));
    const ProgramResult alone = rig_.Suite({"apps", "uninstall", "com.example.bus"});
    EXPECT_EQ(alone.status, 2);
    EXPECT_THAT(alone.messages, HasSubstr("quorvictl: 没有找到手机"));
    rig_.Control(0, "plug");
    ASSERT_TRUE(rig_.WaitForDevices(1));
    EXPECT_EQ(rig_.Suite({"apps", "uninstall", "com.example.bus"}).status, 0);
}

TEST_F(Apps, WhatAdbInstallsIsListed) {
    const TemporaryFolder folder;
    const std::string package = folder.Path() / "com.example.game.apk";
    std::ofstream(package) << "PK\x03\x04 and the rest of the archive";
    const ProgramResult install = rig_.Adb({"install", package});
    EXPECT_THAT(install.output, HasSubstr("Success")) << install.messages;
    const Json::Value game = Find(Ask(rig_, {"apps", "list"}), "com.example.game").value();
    EXPECT_EQ(game["size"].asUInt64(), std::filesystem::file_size(package));
}

TEST_F(Apps, HostileRecordsAreListedAndNeverReachAdb) {
    rig_.Control(0, "data hostile 1");
    const Json::Value list = Ask(rig_, {"apps", "list"});
    EXPECT_GT(list.size(), 29u + 20u);
    ASSERT_TRUE(Find(list, "com.example.chat; reboot"));
    EXPECT_EQ(rig_.Suite({"apps", "list"}).status, 0);
    EXPECT_EQ(rig_.Suite({"apps", "uninstall", "com.example.chat; reboot"}).status, 1);
    EXPECT_EQ(rig_.Suite({"apps", "run", "$(reboot)"}).status, 1);
    EXPECT_TRUE(Find(Ask(rig_, {"apps", "list"}), "com.example.chat"));
}

TEST_F(Apps, AThousandAreListedWithTheirIcons) {
    rig_.Control(0, "data applications 1000 icon-bytes 20000");
    const Json::Value list = Ask(rig_, {"apps", "list"});
    ASSERT_EQ(list.size(), 1'000u);
    EXPECT_EQ(list[999]["icon_bytes"].asUInt64(), 20'000u);
}

TEST_F(Apps, APhoneWithoutApplicationsGivesAnEmptyList) {
    rig_.Control(0, "data applications 0");
    EXPECT_EQ(Ask(rig_, {"apps", "list"}), Json::Value(Json::arrayValue));
}

// The site has the address that is delivered; the system's proxy leads to this server.
TEST_F(Apps, TheSiteRatesThem) {
    const SiteServer site;
    site.Serve("feedback/apk_list.php",
               R"([{"pkg":"com.example.chat","level":"5","id":"118","category":"社交",)"
               R"("description":"和家人聊天"},{"pkg":"com.example.unknown","level":"1"}])");
    const EnvironmentVariable proxy("http_proxy", site.Root());
    const Json::Value list = Ask(rig_, {"apps", "list", "--site"});
    ASSERT_EQ(list.size(), 29u);
    const Json::Value chat = Find(list, "com.example.chat").value();
    EXPECT_EQ(chat["rating"].asInt(), 5);
    EXPECT_EQ(chat["store_id"].asInt(), 118);
    EXPECT_EQ(chat["category"].asString(), "社交");
    EXPECT_EQ(chat["description"].asString(), "和家人聊天");
    EXPECT_EQ(Find(list, "com.example.bus").value()["store_id"].asInt(), -1);

    const auto requests = site.Requests(1);
    ASSERT_EQ(requests.size(), 1u);
    EXPECT_THAT(requests[0].line, HasSubstr("/feedback/apk_list.php HTTP/1.1"));
    EXPECT_THAT(requests[0].body, testing::StartsWith("apps={\n   \"Api\" : 10,\n"));
    EXPECT_THAT(requests[0].body, HasSubstr("\"Model\" : \"Aurora S2\""));
    EXPECT_THAT(requests[0].body, HasSubstr("\"com.example.chat\""));
}

TEST_F(Apps, ASiteThatIsDownLeavesTheListAsThePhoneGaveIt) {
    const EnvironmentVariable proxy("http_proxy", "http://127.0.0.1:1");
    const ProgramResult list = rig_.Suite({"apps", "list", "--site", "--json"});
    EXPECT_EQ(list.status, 0);
    EXPECT_THAT(list.output, HasSubstr("com.example.chat"));
    EXPECT_THAT(list.messages, HasSubstr("网站没有给出应用的评级和分类"));
}

TEST(AppsOfTwoPhones, AreUninstalledFromTheOneWhoseSerialIsNamed) {
    PhoneRig rig(2);
    ASSERT_EQ(rig.Error(), "");
    const ProgramResult refused = rig.Suite({"apps", "uninstall", "com.example.bus"});
    EXPECT_EQ(refused.status, 2);
    EXPECT_THAT(refused.messages, HasSubstr("不止一部手机"));
    EXPECT_EQ(rig.Suite({"apps", "uninstall", "--serial", rig.Serial(1), "com.example.bus"}).status,
              0);
    const auto listed = [&](std::size_t phone) {
        return rig.Adb({"-s", rig.Serial(phone), "shell", "pm", "list", "packages"}).output;
    };
    EXPECT_THAT(listed(0), HasSubstr("com.example.bus"));
    EXPECT_THAT(listed(1), Not(HasSubstr("com.example.bus")));
}

}  // namespace
}  // namespace quorvi::e2e
