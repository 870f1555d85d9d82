// What the suite's own clients hear from the sample site.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "base/Text.h"
#include "online/Feedback.h"
#include "online/LinkResolver.h"
#include "online/ServiceRequest.h"
#include "online/VersionNews.h"
#include "online/Weather.h"
#include "online/WeatherCities.h"
#include "pages/apps/StoreCheck.h"
#include "pages/store/StoreAddress.h"
#include "site/Catalogue.h"
#include "site/SampleServer.h"

namespace quorvi::site {
namespace {

class SiteClients : public testing::Test {
  protected:
    void SetUp() override {
        ASSERT_EQ(site_.Start(), "");
        deployment_ = site_.Told({});
    }

    SampleServer site_;
    Deployment deployment_;
};

TEST_F(SiteClients, EachPackageIsResolvedIntoATask) {
    for (const StoreApp& app : StoreApps()) {
        const ResolvedPackage found = ResolvePackage(deployment_, app.package);
        ASSERT_EQ(found.outcome, ResolveOutcome::resolved) << app.package;
        EXPECT_EQ(found.task.title, Ansi(app.name));
        EXPECT_EQ(found.task.uniqueId, app.package);
        EXPECT_EQ(found.task.length, SizeText(app));
        EXPECT_EQ(found.task.url, deployment_.downloadRoot + std::string(app.package) + ".apk");
    }
}

TEST_F(SiteClients, AnUnknownPackageMakesNoTask) {
    EXPECT_EQ(ResolvePackage(deployment_, "com.example.unknown").outcome, ResolveOutcome::noAnswer);
    EXPECT_EQ(ResolvePackage(deployment_, "a").outcome, ResolveOutcome::noAnswer);
}

TEST_F(SiteClients, AWrongCheckSumMakesNoTask) {
    std::string document = StoreLinkDocument("com.example.dict");
    const std::size_t sum = document.find("71e0");
    ASSERT_NE(sum, std::string::npos);
    document.replace(sum, 4, "71e1");
    const std::string reply = AskService(deployment_, kStoreLinkService, document);
    EXPECT_NE(reply, "");
    EXPECT_EQ(ReadLinkAnswer(reply, deployment_.downloadRoot).outcome, ResolveOutcome::noAnswer);
}

TEST_F(SiteClients, TheNewestVersionIsTold) {
    const VersionNews news = FetchVersionNews(deployment_);
    EXPECT_FALSE(news.broken);
    EXPECT_EQ(news.newest, "1.1");
    EXPECT_EQ(news.rows.size(), 9u);
}

TEST_F(SiteClients, AFeedbackIsReceived) {
    FeedbackForm form{.model = Ansi(u8"奎维 Q1"),
                      .firmware = "2.3",
                      .content = Ansi(u8"很好用 & 很快 = 真的 {\"ok\"}"),
                      .email = "one@quorvi.example",
                      .qq = "10001"};
    EXPECT_EQ(SendFeedback(deployment_, form, 20), FeedbackOutcome::received);
    form.platform = FeedbackPlatform::ophone;
    form.content = std::string(100'000, 'x');
    EXPECT_EQ(SendFeedback(deployment_, form, 0), FeedbackOutcome::received);
}

TEST_F(SiteClients, AFeedbackWhoseCheckSumIsWrongIsNotReceived) {
    FeedbackForm form;
    form.content = "good";
    std::string document = FeedbackDocument(form, 20, 61);
    document.replace(document.find("good"), 4, "best");
    EXPECT_THAT(AskService(deployment_, kFeedbackService, document),
                testing::Not(testing::HasSubstr("ok")));
}

TEST_F(SiteClients, TheWeatherOfACityIsTold) {
    const auto report = FetchWeather(deployment_, Ansi(u8"杭州"));
    ASSERT_TRUE(report);
    EXPECT_EQ(ToUtf8(report->city), "杭州");
    EXPECT_NE(report->days[5].temperature, "");
    const auto unknown = FetchWeather(deployment_, "Atlantis");
    ASSERT_TRUE(unknown);
    EXPECT_EQ(unknown->city, DefaultCity());
}

TEST_F(SiteClients, TheApplicationsOfAPhoneAreRated) {
    const std::vector<std::string> packages{"com.android.phone", "com.example.weather",
                                            Ansi(u8"包"), "com.example.bus"};
    const StoreAnswers answers = ParseStoreAnswers(
        AskService(deployment_, kStoreCheckService, StoreCheckDocument({}, packages)));
    ASSERT_EQ(answers.size(), 2u);
    const StoreFacts* bus = FactsOf(answers, "com.example.bus");
    ASSERT_NE(bus, nullptr);
    EXPECT_EQ(bus->rating, 2);
    EXPECT_EQ(bus->storeId, 4731);
    EXPECT_EQ(ToUtf8(bus->category), "出行");
    EXPECT_EQ(ToUtf8(bus->description), "下一班还有几站");
}

TEST_F(SiteClients, WhatTheSuiteSearchesForIsFound) {
    const HttpReply found = HttpGet(StoreSearchAddress(deployment_.storeRoot, "天-气"));
    EXPECT_TRUE(found.IsPage());
    EXPECT_THAT(found.body, testing::HasSubstr("/archives/4802.html"));
    for (const char* words : {"c++", "-", "a=b", "x"}) {
        EXPECT_TRUE(HttpGet(StoreSearchAddress(deployment_.storeRoot, words)).IsPage()) << words;
    }
}

TEST_F(SiteClients, WhatTheSuiteOpensIsThere) {
    EXPECT_TRUE(HttpGet(deployment_.storeRoot).IsPage());
    for (const StoreApp& app : StoreApps()) {
        EXPECT_TRUE(HttpGet(StoreItemAddress(deployment_.storeRoot, app.number)).IsPage());
    }
}

// More names than the site's library takes of a form by itself.
TEST_F(SiteClients, AThousandApplicationsAreRated) {
    std::vector<std::string> packages(1000, "com.example.a.rather.long.name.of.a.package");
    packages.push_back("com.example.chat");
    const std::string reply =
        AskService(deployment_, kStoreCheckService, StoreCheckDocument({}, packages));
    EXPECT_EQ(ParseStoreAnswers(reply).size(), 1u);
}

TEST_F(SiteClients, APhoneWithoutApplicationsIsToldOfNone) {
    const std::string reply =
        AskService(deployment_, kStoreCheckService, StoreCheckDocument({}, {}));
    EXPECT_EQ(reply.substr(0, 2), "[]");
}

}  // namespace
}  // namespace quorvi::site
