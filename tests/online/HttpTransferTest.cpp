// Pages that are fetched from a real server, and from one that does not answer as it should. What
// is posted stands in HttpFormTest.cpp.
#include <gtest/gtest.h>

#include <chrono>

#include "base/ByteText.h"
#include "online/HttpTransfer.h"
#include "tests/online/SiteFaults.h"
#include "tests/support/SiteServer.h"

namespace quorvi {
namespace {

using namespace std::chrono_literals;

std::string UrlOf(std::uint16_t port) {
    return fmt::format("http://127.0.0.1:{}/page", port);
}

TEST(HttpGetTest, FetchesAPage) {
    const SiteServer site;
    site.Serve("update.xml", "<root/>\r\n");
    const HttpReply reply = HttpGet(site.Root() + "update.xml");
    EXPECT_EQ(reply.status, 200);
    EXPECT_EQ(reply.body, "<root/>\r\n");
    EXPECT_TRUE(reply.IsPage());
}

TEST(HttpGetTest, FollowsARedirect) {
    const SiteServer site;
    site.Serve("elsewhere.txt", "from elsewhere");
    const HttpReply reply = HttpGet(site.Root() + std::string(SiteServer::kMovedPath));
    EXPECT_EQ(reply.body, "from elsewhere");
    EXPECT_TRUE(reply.IsPage());
}

TEST(HttpGetTest, APageThatIsNotThereIsNone) {
    const SiteServer site;
    const HttpReply reply = HttpGet(site.Root() + "update.xml");
    EXPECT_EQ(reply.status, 404);
    EXPECT_FALSE(reply.IsPage());
}

TEST(HttpGetTest, HalfAPageIsNone) {
    LoopbackAgent site({.bytes = ToBytes("HTTP/1.1 200 OK\r\nContent-Length: 100\r\n\r\nhalf"),
                        .end = Answer::End::close});
    const HttpReply reply = HttpGet(UrlOf(site.Port()));
    EXPECT_EQ(reply.body, "half");
    EXPECT_FALSE(reply.IsPage());
}

TEST(HttpGetTest, TakesNoMoreThanItsLimit) {
    LoopbackAgent site(
        {.bytes = ToBytes(HttpAnswer("200 OK", "0123456789")), .end = Answer::End::close});
    const HttpReply reply = HttpGet(UrlOf(site.Port()), {.reply = 4});
    EXPECT_EQ(reply.body, "0123");
    EXPECT_FALSE(reply.IsPage());
}

TEST(HttpGetTest, GivesUpWhereNobodyAnswers) {
    LoopbackAgent site({.bytes = {}, .end = Answer::End::wait});
    const HttpReply reply = HttpGet(UrlOf(site.Port()), {.total = 100ms});
    EXPECT_EQ(reply.status, 0);
    EXPECT_FALSE(reply.IsPage());
    EXPECT_EQ(HttpGet(UrlOf(UnusedPort())).status, 0);
}

TEST(HttpGetTest, SpeaksHttpAlone) {
    EXPECT_EQ(HttpGet("file:///etc/hostname").body, "");
    LoopbackAgent site({.bytes = ToBytes("HTTP/1.1 302 Found\r\nLocation: file:///etc/hostname\r\n"
                                         "Content-Length: 0\r\n\r\n"),
                        .end = Answer::End::close});
    EXPECT_EQ(HttpGet(UrlOf(site.Port())).body, "");
}

TEST(HttpGetTest, StopsInACircleOfRedirects) {
    LoopbackAgent site({.bytes = ToBytes("HTTP/1.1 302 Found\r\nLocation: /page\r\n"
                                         "Content-Length: 0\r\nConnection: close\r\n\r\n"),
                        .end = Answer::End::close});
    EXPECT_FALSE(HttpGet(UrlOf(site.Port())).IsPage());
    EXPECT_EQ(site.Exchanges(6).size(), 6U);
}

}  // namespace
}  // namespace quorvi
