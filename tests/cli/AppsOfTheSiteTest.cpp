// quorvictl apps list --site, called in this process with a site of the test's own.
#include <gmock/gmock.h>

#include <chrono>
#include <optional>

#include "base/Json.h"
#include "cli/Commands.h"
#include "cli/Output.h"
#include "tests/pages/apps/AppReplies.h"
#include "tests/support/LoopbackAgent.h"
#include "tests/support/ScriptedAgent.h"
#include "tests/support/SiteServer.h"

namespace quorvi::cli {
namespace {

using namespace std::chrono_literals;
using testing::HasSubstr;

class AppsOfTheSite : public testing::Test {
  protected:
    AppsOfTheSite() {
        agent_.AnswerPayload(AgentCommand::listApplications,
                             AppsPayload({{.package = "com.a"}, {.package = "com.b"}}).Get());
        agent_.AnswerPayload(AgentCommand::deviceSummary, WireBytes()
                                                              .U32(0)           // leading word
                                                              .U32(7)           // client
                                                              .U32(10)          // API level
                                                              .Text("奎维 Q1")  // model
                                                              .Get());
    }

    Status RunAt(const std::string& root, const HttpLimits& limits = {}) {
        testing::internal::CaptureStdout();
        testing::internal::CaptureStderr();
        Output output(true);
        const Status status = RunAppsList({.operands = {}, .options = {{"--site", ""}}},
                                          {.agent = agent_.Port(),
                                           .attribution = {},
                                           .deployment = {.siteRoot = root},
                                           .limits = limits},
                                          output);
        rows_ = ParseJson(testing::internal::GetCapturedStdout()).value_or(Json::Value());
        messages_ = testing::internal::GetCapturedStderr();
        return status;
    }
    Status RunAt(std::uint16_t port, const HttpLimits& limits = {}) {
        return RunAt("http://127.0.0.1:" + std::to_string(port) + "/", limits);
    }
    // Whose site answers with these bytes, whatever they are.
    Status RunAgainst(std::string_view answer, Answer::End end = Answer::End::close,
                      const HttpLimits& limits = {}) {
        const auto bytes = std::as_bytes(std::span(answer));
        LoopbackAgent server({.bytes = {bytes.begin(), bytes.end()}, .end = end});
        return RunAt(server.Port(), limits);
    }
    // Whose site is nginx and says this; what it was sent is the document.
    Json::Value Asked(std::string_view reply) {
        const SiteServer site;
        site.Serve("feedback/apk_list.php", reply);
        EXPECT_EQ(RunAt(site.Root()), Status::done);
        const std::string body = site.Requests(1).at(0).body;
        EXPECT_TRUE(body.starts_with("apps={"));
        return ParseFirstJson(std::string_view(body).substr(5)).value();
    }
    void ExpectDefaults() const {
        ASSERT_EQ(rows_.size(), 2U);
        for (const Json::Value& row : rows_) {
            EXPECT_EQ(row["rating"].asInt(), 3);
            EXPECT_EQ(row["store_id"].asInt(), -1);
            EXPECT_EQ(row["category"].asString(), "未知");
            EXPECT_EQ(row["description"].asString(), "N/A");
        }
    }
    void ExpectDefaultsAndAMessage() const {
        ExpectDefaults();
        EXPECT_EQ(messages_, "quorvictl: 网站没有给出应用的评级和分类，请稍后再试\n");
    }

    ScriptedAgent agent_;
    Json::Value rows_;
    std::string messages_;
};

TEST_F(AppsOfTheSite, AsksForWhatThePhoneHasAndMergesTheAnswer) {
    const Json::Value document =
        Asked(R"([{"pkg":"com.b","level":"5","id":"17","category":"天气","description":"看"}])");
    // MD5 of "2" is c81e728d9d4c2f636f067f89cc14862c, that of "com.b" is cut in the same place.
    EXPECT_EQ(document["CheckSum"].asString().substr(0, 3), "e72");
    EXPECT_EQ(document["Client"].asInt(), 7);
    EXPECT_EQ(document["Api"].asInt(), 10);
    EXPECT_EQ(document["Model"].asString(), "奎维 Q1");
    EXPECT_EQ(document["PackageName"], ParseJson(R"(["com.a", "com.b"])"));
    ASSERT_EQ(rows_.size(), 2U);
    EXPECT_EQ(rows_[0]["rating"].asInt(), 3);
    EXPECT_EQ(rows_[1]["rating"].asInt(), 5);
    EXPECT_EQ(rows_[1]["store_id"].asInt(), 17);
    EXPECT_EQ(rows_[1]["category"].asString(), "天气");
    EXPECT_EQ(rows_[1]["description"].asString(), "看");
    EXPECT_EQ(messages_, "");
}

// Where nobody listens, a request would be complained of.
TEST_F(AppsOfTheSite, AnEmptyListPostsNothing) {
    agent_.AnswerPayload(AgentCommand::listApplications, WireBytes()
                                                             .U32(0)    // leading word
                                                             .U32(0)    // skipped
                                                             .Absent()  // name
                                                             .Get());
    EXPECT_EQ(RunAt(UnusedPort()), Status::done);
    EXPECT_EQ(messages_, "");
}

TEST_F(AppsOfTheSite, APhoneThatDoesNotSayWhatItIsIsAskedAboutAllTheSame) {
    agent_.AnswerNoData(AgentCommand::deviceSummary);
    EXPECT_EQ(Asked("[]")["Api"].asInt(), 0);
}

TEST_F(AppsOfTheSite, WithoutAListTheSiteIsNotAsked) {
    agent_.Answer(AgentCommand::listApplications, {.end = ScriptedAgent::End::reset});
    EXPECT_EQ(RunAt(UnusedPort()), Status::noLink);
    EXPECT_EQ(messages_.find("网站"), std::string::npos);
}

TEST_F(AppsOfTheSite, ASiteThatRefusesLeavesTheDefaults) {
    EXPECT_EQ(RunAt(UnusedPort()), Status::done);
    ExpectDefaultsAndAMessage();
}

TEST_F(AppsOfTheSite, ASiteWithoutAHostLeavesTheDefaults) {
    EXPECT_EQ(RunAt("http://host.invalid/"), Status::done);
    ExpectDefaultsAndAMessage();
}

TEST_F(AppsOfTheSite, APageThatIsNotFoundLeavesTheDefaults) {
    EXPECT_EQ(RunAgainst("HTTP/1.1 404 Not Found\r\nContent-Length: 13\r\n\r\n<html></html>"),
              Status::done);
    ExpectDefaultsAndAMessage();
}

TEST_F(AppsOfTheSite, APageThatHasMovedIsNotFollowed) {
    const auto there = std::as_bytes(std::span(std::string_view(
        "HTTP/1.1 200 OK\r\nContent-Length: 29\r\n\r\n[{\"pkg\":\"com.a\",\"level\":\"5\"}]")));
    LoopbackAgent elsewhere({.bytes = {there.begin(), there.end()}, .end = Answer::End::close});
    EXPECT_EQ(RunAgainst("HTTP/1.1 301 Moved Permanently\r\nLocation: http://127.0.0.1:" +
                         std::to_string(elsewhere.Port()) +
                         "/\r\nContent-Length: 13\r\n\r\n<html></html>"),
              Status::done);
    ExpectDefaultsAndAMessage();
    // The answer there is one that would be taken.
    EXPECT_EQ(RunAt(elsewhere.Port()), Status::done);
    EXPECT_EQ(rows_[0]["rating"].asInt(), 5);
}

TEST_F(AppsOfTheSite, HalfAReplyLeavesTheDefaults) {
    EXPECT_EQ(RunAgainst("HTTP/1.1 200 OK\r\nContent-Length: 99\r\n\r\n[{\"pkg\":\"com.a\",\"lev"),
              Status::done);
    ExpectDefaultsAndAMessage();
}

TEST_F(AppsOfTheSite, WhatIsNoJsonLeavesTheDefaults) {
    EXPECT_EQ(RunAgainst("HTTP/1.1 200 OK\r\nContent-Length: 6\r\n\r\n<html>"), Status::done);
    ExpectDefaultsAndAMessage();
}

TEST_F(AppsOfTheSite, JsonOfAnotherTypeLeavesTheDefaults) {
    for (const char* reply : {"17", "\"com.a\"", "true", "null", "[17]", "[[\"com.a\"]]"}) {
        EXPECT_EQ(RunAgainst("HTTP/1.1 200 OK\r\nContent-Length: " +
                             std::to_string(std::string_view(reply).size()) + "\r\n\r\n" + reply),
                  Status::done);
        ExpectDefaultsAndAMessage();
    }
}

TEST_F(AppsOfTheSite, AHundredMegabytesAreNotTaken) {
    const std::string start = "HTTP/1.1 200 OK\r\nContent-Length: 104857600\r\n\r\n[";
    const auto before = std::chrono::steady_clock::now();
    EXPECT_EQ(RunAgainst(start + std::string(100 << 20, ' ')), Status::done);
    EXPECT_LT(std::chrono::steady_clock::now() - before, 20s);
    ExpectDefaultsAndAMessage();
}

TEST_F(AppsOfTheSite, ASiteThatHangsIsWaitedForAsLongAsItMay) {
    EXPECT_EQ(RunAgainst("HTTP/1.1 200 OK\r\n", Answer::End::wait, {.total = 200ms}), Status::done);
    ExpectDefaultsAndAMessage();
}

}  // namespace
}  // namespace quorvi::cli
