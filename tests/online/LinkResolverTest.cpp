#include <gtest/gtest.h>

#include "base/ByteText.h"
#include "base/Text.h"
#include "online/LinkResolver.h"
#include "online/ServiceRequest.h"
#include "tests/online/SiteFaults.h"
#include "tests/support/SiteServer.h"

namespace quorvi {
namespace {

constexpr std::string_view kRoot = "http://download.example/";
constexpr std::string_view kAnswer =
    R"({"pkg":"com.example.tingshu","size":"11.6MB","title":"晨间听书","url":"apk/tingshu.apk"})";

TEST(LinkAnswerTest, FillsATask) {
    const ResolvedPackage resolved = ReadLinkAnswer(kAnswer, kRoot);
    ASSERT_EQ(resolved.outcome, ResolveOutcome::resolved);
    const CDownloadTask& task = resolved.task;
    EXPECT_EQ(task.type, TaskType::application);
    EXPECT_EQ(task.state, TaskState::waiting);
    EXPECT_EQ(task.action, 1);
    EXPECT_EQ(task.title, Ansi(u8"晨间听书"));
    EXPECT_EQ(task.length, "11.6MB");
    EXPECT_EQ(task.uniqueId, "com.example.tingshu");
    EXPECT_EQ(task.url, "http://download.example/apk/tingshu.apk");
    EXPECT_EQ(task.savePath, "");
}

TEST(LinkAnswerTest, WithoutATitleMakesATaskWithoutOne) {
    const ResolvedPackage resolved =
        ReadLinkAnswer(R"({"pkg":"com.example.a","url":"a.apk"})", kRoot);
    EXPECT_EQ(resolved.outcome, ResolveOutcome::resolved);
    EXPECT_EQ(resolved.task.title, "");
    EXPECT_EQ(resolved.task.uniqueId, "com.example.a");
}

TEST(LinkAnswerTest, AMemberThatIsNoTextIsAnEmptyOne) {
    const ResolvedPackage resolved =
        ReadLinkAnswer(R"({"pkg":"com.example.a","url":["x"],"title":{"a":1},"size":17})", kRoot);
    EXPECT_EQ(resolved.outcome, ResolveOutcome::resolved);
    EXPECT_EQ(resolved.task.title, "");
    EXPECT_EQ(resolved.task.length, "");
    EXPECT_EQ(resolved.task.url, kRoot);
}

TEST(LinkAnswerTest, TheMarkBehindItsLineDoesNotHurt) {
    EXPECT_EQ(ReadLinkAnswer(std::string(kAnswer) + "/r/n", kRoot).outcome,
              ResolveOutcome::resolved);
}

TEST(LinkAnswerTest, ThatIsNoJsonObjectIsNone) {
    for (const std::string_view answer : {"", "It works!", "[]", "\"com.example.a\"", "7", "null",
                                          "{\"pkg\":", "[{\"pkg\":\"com.example.a\"}]"}) {
        EXPECT_EQ(ReadLinkAnswer(answer, kRoot).outcome, ResolveOutcome::noAnswer) << answer;
    }
}

TEST(LinkAnswerTest, APackageThatIsNoPackagesNameMakesNoTask) {
    for (const std::string_view name : {"", ".", "..", ".hidden", "../../etc/passwd", "/etc/passwd",
                                        "a/b", "a b", "a'b", "-rf", "a;b", "包名", "a\\u0000b"}) {
        const ResolvedPackage resolved =
            ReadLinkAnswer(R"({"title":"a","url":"b","pkg":")" + std::string(name) + "\"}", kRoot);
        EXPECT_EQ(resolved.outcome, ResolveOutcome::noPackageName) << name;
        EXPECT_EQ(resolved.task.uniqueId, "") << name;
    }
    EXPECT_EQ(ReadLinkAnswer(R"({"title":"a","url":"b"})", kRoot).outcome,
              ResolveOutcome::noPackageName);
}

TEST(LinkAnswerTest, AnAddressThatTheEngineDoesNotSpeakMakesNoTask) {
    for (const std::string_view root : {"https://download.example/", "HTTPS://download.example/",
                                        "ftp://download.example/", "http:///", ""}) {
        EXPECT_EQ(ReadLinkAnswer(kAnswer, root).outcome, ResolveOutcome::wrongAddress) << root;
    }
}

// The site names a path, and no server: what it says stays behind the root of the downloads.
TEST(LinkAnswerTest, TheAddressLeadsToNoOtherServer) {
    for (const std::string_view url :
         {"@evil.example/a.apk", "//evil.example/a.apk", "http://evil.example/a.apk",
          "https://evil.example/a.apk", ":81/a.apk"}) {
        const ResolvedPackage resolved =
            ReadLinkAnswer(R"({"pkg":"com.example.a","url":")" + std::string(url) + "\"}", kRoot);
        EXPECT_EQ(resolved.outcome, ResolveOutcome::resolved);
        EXPECT_EQ(resolved.task.url, std::string(kRoot).append(url));
    }
}

TEST(ResolvePackageTest, PostsTheNameWithItsCheckSum) {
    const SiteServer site;
    site.Serve("feedback/android_info.php", kAnswer);
    const ResolvedPackage resolved = ResolvePackage(
        {.siteRoot = site.Root(), .downloadRoot = std::string(kRoot)}, "com.example.tingshu");
    EXPECT_EQ(resolved.outcome, ResolveOutcome::resolved);
    EXPECT_EQ(resolved.task.url, "http://download.example/apk/tingshu.apk");
    const std::vector<SiteRequest> requests = site.Requests(1);
    ASSERT_EQ(requests.size(), 1U);
    EXPECT_EQ(requests[0].line, "POST /feedback/android_info.php HTTP/1.1");
    EXPECT_EQ(requests[0].body, "apk=" + StoreLinkDocument("com.example.tingshu") + "&");
}

TEST(ResolvePackageTest, ANameThatIsNoneOfAPackageIsNotAskedFor) {
    const SiteServer site;
    site.Serve("feedback/android_info.php", kAnswer);
    const Deployment deployment{.siteRoot = site.Root(), .downloadRoot = std::string(kRoot)};
    EXPECT_EQ(ResolvePackage(deployment, "../a").outcome, ResolveOutcome::noPackageName);
    EXPECT_EQ(ResolvePackage(deployment, "").outcome, ResolveOutcome::noPackageName);
    EXPECT_EQ(ResolvePackage(deployment, "com.example.a").outcome, ResolveOutcome::resolved);
    EXPECT_EQ(site.Requests(1).size(), 1U);
}

TEST(ResolvePackageTest, APageThatIsMissingIsNoAnswer) {
    const SiteServer site;
    EXPECT_EQ(ResolvePackage({.siteRoot = site.Root()}, "com.example.a").outcome,
              ResolveOutcome::noAnswer);
}

TEST(ResolvePackageTest, AnAnswerOfMoreThanTheLimitIsNone) {
    const SiteServer site;
    const auto answerWithTitle = [](std::size_t length) {
        return R"({"pkg":"com.example.a","url":"a.apk","title":")" + std::string(length, 'a') +
               "\"}";
    };
    const std::size_t others = answerWithTitle(0).size();
    site.Serve("feedback/android_info.php", answerWithTitle(kMostLinkAnswer - others));
    const Deployment deployment{.siteRoot = site.Root()};
    EXPECT_EQ(ResolvePackage(deployment, "com.example.a").outcome, ResolveOutcome::resolved);
    site.Serve("feedback/android_info.php", answerWithTitle(kMostLinkAnswer - others + 1));
    EXPECT_EQ(ResolvePackage(deployment, "com.example.a").outcome, ResolveOutcome::noAnswer);
}

class LinkResolverFaults : public testing::TestWithParam<SiteFault> {};

TEST_P(LinkResolverFaults, AreNoAnswer) {
    const SiteFault& fault = GetParam();
    LoopbackAgent site({.bytes = ToBytes(fault.answer), .end = fault.end});
    const Deployment deployment{.siteRoot = fmt::format("http://127.0.0.1:{}/", site.Port())};
    EXPECT_EQ(ResolvePackage(deployment, "com.example.tingshu", fault.limits).outcome,
              ResolveOutcome::noAnswer);
}

INSTANTIATE_TEST_SUITE_P(Site, LinkResolverFaults,
                         testing::ValuesIn(SiteFaults(std::string(kAnswer))), NameOfFault);

TEST(ResolveStatusTest, NamesWhatIsDownloaded) {
    EXPECT_EQ(ResolveStatus(ReadLinkAnswer(kAnswer, kRoot)), Ansi(u8"【+】下载 晨间听书"));
}

TEST(ResolveStatusTest, ASiteThatDoesNotAnswerIsNotTold) {
    EXPECT_EQ(ResolveStatus({.outcome = ResolveOutcome::noAnswer, .task = {}}), "");
}

TEST(ResolveStatusTest, TellsWhyThereIsNoTask) {
    EXPECT_EQ(ResolveStatus(ReadLinkAnswer(R"({"pkg":"../a"})", kRoot)),
              Ansi(u8"【错误】应用的包名不正确，没有添加任务，请换一个应用下载"));
    EXPECT_EQ(ResolveStatus(ReadLinkAnswer(kAnswer, "https://download.example/")),
              Ansi(u8"【错误】没有添加任务：晨间听书，只能从http地址下载，请换一个应用下载"));
}

}  // namespace
}  // namespace quorvi
