// A newcomer's first run on the command line: quorvi-site answers what the suite asks of its site,
// and the simulated phone takes what the sample store hands out.
#include <gmock/gmock.h>
#include <json/json.h>

#include <filesystem>
#include <fstream>
#include <sstream>

#include "online/HttpTransfer.h"
#include "tests/support/Await.h"
#include "tests/support/BuildPlaces.h"
#include "tests/support/EnvironmentVariable.h"
#include "tests/support/PhoneRig.h"
#include "tests/support/Process.h"
#include "tests/support/TemporaryFolder.h"

namespace quorvi::e2e {
namespace {

using testing::HasSubstr;

class SampleSite : public testing::Test {
  protected:
    void SetUp() override {
        ASSERT_TRUE(Await([this] { return std::filesystem::exists(deployment_); }));
    }

    static ProgramResult Suite(std::vector<std::string> arguments) {
        arguments.insert(arguments.begin(), QUORVI_BIN_DIR "/quorvictl");
        return RunProgram(arguments);
    }
    static Json::Value Ask(std::vector<std::string> arguments) {
        arguments.emplace_back("--json");
        return Read(Suite(std::move(arguments)));
    }
    static Json::Value Read(const ProgramResult& result) {
        EXPECT_EQ(result.status, 0) << result.messages;
        Json::Value value;
        std::istringstream(result.output) >> value;
        return value;
    }
    // What the site has written of the requests.
    [[nodiscard]] std::string Log() const {
        std::ifstream log(folder_.Path() / "log");
        return {std::istreambuf_iterator(log), {}};
    }

    TemporaryFolder folder_;
    const std::string deployment_ = folder_.Path() / "deployment.json";
    const EnvironmentVariable variable_{"QUORVI_DEPLOYMENT", deployment_};
    const Process site_{{QUORVI_BIN_DIR "/quorvi-site", "--deployment", deployment_},
                        folder_.Path() / "log"};
};

TEST_F(SampleSite, TellsTheNewestVersion) {
    const Json::Value news = Ask({"update"});
    EXPECT_EQ(news["newest"].asString(), "1.1");
    EXPECT_EQ(news["rows"].size(), 9u);
}

TEST_F(SampleSite, TakesAFeedback) {
    const ProgramResult sent =
        Suite({"feedback", "--model", "Q1", "--firmware", "2.3", "--content", "很好用，谢谢"});
    EXPECT_EQ(sent.status, 0) << sent.messages;
    EXPECT_THAT(sent.output, HasSubstr("感谢您的支持"));
    EXPECT_TRUE(Await(
        [this] { return Log().find("POST /feedback/feedback.php 200") != std::string::npos; }));
}

TEST_F(SampleSite, TellsTheWeatherOfACity) {
    const Json::Value weather = Ask({"weather", "--city", "杭州"});
    EXPECT_EQ(weather["city"].asString(), "杭州");
    EXPECT_EQ(weather["days"].size(), 6u);
}

TEST_F(SampleSite, RatesThePhonesApplications) {
    PhoneRig rig(1);
    ASSERT_EQ(rig.Error(), "");
    ASSERT_EQ(rig.BringAgentUp(0), "");
    const Json::Value list = Read(rig.Suite({"apps", "list", "--site", "--json"}));
    std::size_t known = 0;
    for (const Json::Value& app : list) {
        if (app["package"].asString() == "com.example.weather") {
            EXPECT_EQ(app["store_id"].asInt(), 4712);
            EXPECT_EQ(app["category"].asString(), "生活");
        }
        known += app["store_id"].asInt() != -1 ? 1 : 0;
    }
    EXPECT_EQ(known, 5u);
}

TEST_F(SampleSite, ItsPackagesAreInstalledOnTheSimulatedPhone) {
    PhoneRig rig(1);
    ASSERT_EQ(rig.Error(), "");
    std::ifstream file(deployment_);
    Json::Value deployment;
    file >> deployment;
    const std::string package = folder_.Path() / "com.example.memo.apk";
    const HttpReply fetched = HttpGet(deployment["download"].asString() + "com.example.memo.apk");
    ASSERT_TRUE(fetched.IsPage());
    std::ofstream(package, std::ios::binary) << fetched.body;
    EXPECT_THAT(rig.Adb({"-s", rig.Serial(0), "install", "-r", package}).output,
                HasSubstr("Success"));
    EXPECT_THAT(rig.Adb({"-s", rig.Serial(0), "shell", "pm", "list", "packages"}).output,
                HasSubstr("package:com.example.memo"));
}

TEST_F(SampleSite, SaysWhereItsPortIsTaken) {
    std::ifstream file(deployment_);
    Json::Value deployment;
    file >> deployment;
    const std::string host = deployment["weather"].asString();
    const ProgramResult second =
        RunProgram({QUORVI_BIN_DIR "/quorvi-site", "--port", host.substr(host.find(':') + 1)});
    EXPECT_EQ(second.status, 1);
    EXPECT_THAT(second.messages, HasSubstr("cannot listen on port"));
}

}  // namespace
}  // namespace quorvi::e2e
