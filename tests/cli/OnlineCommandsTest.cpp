// Commands that ask the site, called in this process with a real server as the site.
#include <gtest/gtest.h>

#include "base/Json.h"
#include "base/Version.h"
#include "cli/Commands.h"
#include "cli/Output.h"
#include "tests/support/LoopbackAgent.h"
#include "tests/support/SiteServer.h"
#include "tests/support/WireBytes.h"

namespace quorvi::cli {
namespace {

class OnlineCommands : public testing::Test {
  protected:
    OnlineCommands() {
        const std::string root = site_.Root();
        deployment_ = {.siteRoot = root, .weatherHost = root.substr(7, root.size() - 8)};
    }
    using Function = Status (*)(const Arguments&, const Context&, Output&);
    Status Run(Function command, Arguments arguments = {}, AgentAddress agent = UnusedPort()) {
        testing::internal::CaptureStdout();
        testing::internal::CaptureStderr();
        Output output(true);
        const Status status = command(
            arguments, {.agent = agent, .attribution = {}, .deployment = deployment_}, output);
        said_ = ParseJson(testing::internal::GetCapturedStdout()).value_or(Json::Value());
        messages_ = testing::internal::GetCapturedStderr();
        return status;
    }

    SiteServer site_;
    Deployment deployment_;
    Json::Value said_;
    std::string messages_;
};

TEST_F(OnlineCommands, UpdateGivesBothVersionsAndTheRows) {
    site_.Serve("update.xml",
                "<root><item type='version'><v>1.2</v><a>2011-06</a></item>"
                "<item type='detail'><fix>更稳定</fix></item></root>");
    EXPECT_EQ(Run(&RunUpdate), Status::done);
    EXPECT_EQ(said_["running"].asString(), ProductVersion());
    EXPECT_EQ(said_["newest"].asString(), "1.2");
    ASSERT_EQ(said_["rows"].size(), 2U);
    EXPECT_EQ(said_["rows"][0]["type"].asString(), "手机参数");
    EXPECT_EQ(said_["rows"][1]["type"].asString(), "漏洞修复");
    EXPECT_EQ(said_["rows"][1]["text"].asString(), "更稳定");
}

TEST_F(OnlineCommands, UpdateWithoutItsFileEndsWithTwo) {
    EXPECT_EQ(Run(&RunUpdate), Status::noLink);
    EXPECT_EQ(messages_, "quorvictl: 网站没有给出更新日志，或者它的 xml文件存在问题，请稍后再试\n");
    EXPECT_TRUE(said_.isNull());
}

Arguments WholeFeedback() {
    return {.operands = {},
            .options = {{"--model", "奎维 Q1"}, {"--firmware", "2.3"}, {"--content", "很好用的"}}};
}

TEST_F(OnlineCommands, FeedbackIsSentWithTheAgentsVersion) {
    site_.Serve("feedback/feedback.php", "ok");
    LoopbackAgent agent({.bytes = Framed(WireBytes()
                                             .U32(0)      // leading word
                                             .U32(20)     // the agent's version
                                             .U32(10)     // API level
                                             .Text("Q1")  // model
                                             .Get())});
    Arguments arguments = WholeFeedback();
    arguments.options["--platform"] = "ophone";
    EXPECT_EQ(Run(&RunFeedback, arguments, agent.Port()), Status::done);
    EXPECT_TRUE(said_["received"].asBool());
    EXPECT_EQ(said_["text"].asString(), "感谢您的支持，反馈信息我们已收到 :)");
    const std::string body = site_.Requests(1).at(0).body;
    EXPECT_NE(body.find("\"Client\" : 20"), std::string::npos);
    EXPECT_NE(body.find("\"Platform\" : \"Ophone\""), std::string::npos);
    EXPECT_NE(body.find("\"Model\" : \"奎维 Q1\""), std::string::npos);
}

TEST_F(OnlineCommands, FeedbackGoesWithoutAPhone) {
    site_.Serve("feedback/feedback.php", "ok");
    EXPECT_EQ(Run(&RunFeedback, WholeFeedback()), Status::done);
    EXPECT_NE(site_.Requests(1).at(0).body.find("\"Client\" : 0"), std::string::npos);
}

TEST_F(OnlineCommands, ARefusedFeedbackEndsWithOneAndAsksNobody) {
    for (const char* option : {"--content", "--firmware", "--model"}) {
        Arguments arguments = WholeFeedback();
        arguments.options.erase(option);
        EXPECT_EQ(Run(&RunFeedback, arguments), Status::wrongUsage) << option;
        EXPECT_FALSE(said_["received"].asBool());
    }
    Arguments arguments = WholeFeedback();
    arguments.options["--platform"] = "symbian";
    EXPECT_EQ(Run(&RunFeedback, arguments), Status::wrongUsage);
    EXPECT_TRUE(site_.Requests(0).empty());
}

TEST_F(OnlineCommands, AFailedFeedbackEndsWithTwo) {
    EXPECT_EQ(Run(&RunFeedback, WholeFeedback()), Status::noLink);
    EXPECT_EQ(said_["text"].asString(), "提交失败，请稍后再试 :(");
}

TEST_F(OnlineCommands, WeatherIsThatOfTheCity) {
    site_.Serve("data/101210101.html",
                R"({"weatherinfo":{"city":"杭州","fchh":"08","temp1":"29℃","weather1":"晴",)"
                R"("wind1":"东风","img1":"0","index_tr":"适宜","temp6":"20℃","img11":"99"}})");
    EXPECT_EQ(Run(&RunWeather, {.operands = {}, .options = {{"--city", "杭州"}}}), Status::done);
    EXPECT_EQ(said_["city"].asString(), "杭州");
    EXPECT_EQ(said_["updated"].asString(), "08:00");
    EXPECT_EQ(said_["temperature"].asString(), "29℃");
    EXPECT_EQ(said_["weather"].asString(), "晴");
    EXPECT_EQ(said_["wind"].asString(), "东风");
    EXPECT_EQ(said_["indexes"]["travel"].asString(), "适宜");
    EXPECT_EQ(said_["indexes"].size(), 8U);
    ASSERT_EQ(said_["days"].size(), 6U);
    EXPECT_EQ(said_["days"][0]["weekday"].asString(), "今天");
    EXPECT_EQ(said_["days"][5]["temperature"].asString(), "20℃");
    EXPECT_EQ(said_["days"][5]["icon"].asInt(), 2);
}

TEST_F(OnlineCommands, WithoutACityTheDefaultOnesIsShown) {
    site_.Serve("data/101010100.html", R"({"weatherinfo":{"city":"北京"}})");
    EXPECT_EQ(Run(&RunWeather), Status::done);
    EXPECT_EQ(said_["city"].asString(), "北京");
}

TEST_F(OnlineCommands, ACityThatNobodyKnowsEndsWithThreeAndAsksNobody) {
    EXPECT_EQ(Run(&RunWeather, {.operands = {}, .options = {{"--city", "杭州市"}}}),
              Status::notFound);
    EXPECT_EQ(messages_, "quorvictl: 杭州市: 没有这个城市的天气\n");
    EXPECT_TRUE(site_.Requests(0).empty());
}

TEST_F(OnlineCommands, AServiceThatDoesNotAnswerEndsWithTwo) {
    EXPECT_EQ(Run(&RunWeather), Status::noLink);
    EXPECT_EQ(messages_, "quorvictl: 天气服务没有回答，请稍后再试\n");
}

}  // namespace
}  // namespace quorvi::cli
