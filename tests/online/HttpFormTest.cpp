// Forms that are posted to a real server, and to peers that break off, redirect or say too much.
#include <fmt/format.h>
#include <gtest/gtest.h>

#include <chrono>
#include <fstream>

#include "base/ByteText.h"
#include "online/HttpForm.h"
#include "tests/online/SiteFaults.h"
#include "tests/support/EnvironmentVariable.h"
#include "tests/support/LoopbackAgent.h"
#include "tests/support/SiteServer.h"

namespace quorvi {
namespace {

using namespace std::chrono_literals;

std::string TextOf(const Exchange& exchange) {
    std::string text;
    for (const Bytes* part : {&exchange.firstPiece, &exchange.rest}) {
        text += AsText(*part);
    }
    return text;
}

std::string UrlOf(std::uint16_t port) {
    return fmt::format("http://127.0.0.1:{}/feedback/feedback.php", port);
}

// What a form with one field makes of this answer.
std::string ReplyTo(std::string_view answer, Answer::End end = Answer::End::close,
                    HttpLimits limits = {}) {
    LoopbackAgent site({.bytes = ToBytes(answer), .end = end});
    CHttpForm form(limits);
    form.AddField("a", "1");
    return form.Post(UrlOf(site.Port()));
}

TEST(HttpForm, PutsItsFieldsBehindEachOther) {
    CHttpForm form;
    form.AddField("a", "1");
    form.AddField("b", "2");
    EXPECT_EQ(form.Body(), "a=1&b=2&");
}

TEST(HttpForm, AValueWithMarksOfItsOwnGoesOutUnchanged) {
    const SiteServer site;
    site.Serve("feedback/feedback.php", "ok");
    CHttpForm form;
    form.AddField("feedback", "{ \"a\" : \"1&b=2 %41+好\" }\r\n");
    EXPECT_EQ(form.Post(site.Root() + "feedback/feedback.php"), "ok/r/n");
    const auto requests = site.Requests(1);
    ASSERT_EQ(requests.size(), 1U);
    EXPECT_EQ(requests[0].body, "feedback={ \"a\" : \"1&b=2 %41+好\" }\r\n&");
    EXPECT_EQ(requests[0].contentType, "application/x-www-form-urlencoded");
    EXPECT_EQ(requests[0].accept, "*/*");
}

TEST(HttpForm, SendsItsHeadersWithThreeBlanks) {
    LoopbackAgent site({.bytes = ToBytes("HTTP/1.1 200 OK\r\nContent-Length: 2\r\n\r\nok"),
                        .end = Answer::End::close});
    CHttpForm form;
    form.AddField("a", "1");
    EXPECT_EQ(form.Post(UrlOf(site.Port())), "ok/r/n");
    const std::string request = TextOf(site.Exchanges(1).at(0));
    EXPECT_EQ(request, fmt::format("POST /feedback/feedback.php HTTP/1.1\r\n"
                                   "Host: 127.0.0.1:{}\r\n"
                                   "Content-Type:   application/x-www-form-urlencoded\r\n"
                                   "Accept:   */*\r\n"
                                   "Content-Length: 4\r\n"
                                   "\r\n"
                                   "a=1&",
                                   site.Port()));
}

TEST(HttpForm, SendsItsBodyUpToAZeroByte) {
    const SiteServer site;
    site.Serve("feedback/feedback.php", "ok");
    CHttpForm form;
    form.AddField("a", std::string_view("1\0002", 3));
    static_cast<void>(form.Post(site.Root() + "feedback/feedback.php"));
    const auto requests = site.Requests(1);
    ASSERT_EQ(requests.size(), 1U);
    EXPECT_EQ(requests[0].body, "a=1");
}

TEST(HttpForm, SendsALongBodyWithoutAskingFirst) {
    const SiteServer site;
    site.Serve("feedback/feedback.php", "ok");
    CHttpForm form;
    form.AddField("a", std::string(2 << 20, 'x'));
    EXPECT_EQ(form.Post(site.Root() + "feedback/feedback.php"), "ok/r/n");
}

TEST(HttpForm, EachLineOfTheReplyEndsInItsMark) {
    const auto reply = [](std::string_view body) {
        return ReplyTo(
            fmt::format("HTTP/1.1 200 OK\r\nContent-Length: {}\r\n\r\n{}", body.size(), body));
    };
    EXPECT_EQ(reply("one"), "one/r/n");
    EXPECT_EQ(reply("one\n"), "one/r/n");
    EXPECT_EQ(reply("one\r\n\r\ntwo"), "one/r/n/r/ntwo/r/n");
    EXPECT_EQ(reply("one\rtwo\r"), "one\rtwo\r/r/n");
    EXPECT_EQ(reply(""), "");
}

TEST(HttpForm, DoesNotFollowARedirect) {
    const SiteServer site;
    site.Serve("elsewhere.txt", "from elsewhere");
    CHttpForm form;
    form.AddField("a", "1");
    const std::string reply = form.Post(site.Root() + std::string(SiteServer::kMovedPath));
    EXPECT_NE(reply.find("301 Moved Permanently"), std::string::npos);
    EXPECT_EQ(site.Requests(1).size(), 1U);
}

TEST(HttpForm, TakesTheBodyOfAnyStatus) {
    EXPECT_EQ(ReplyTo("HTTP/1.1 404 Not Found\r\nContent-Length: 4\r\n\r\ngone"), "gone/r/n");
    EXPECT_EQ(ReplyTo("HTTP/1.1 500 Oh\r\nContent-Length: 2\r\n\r\nno"), "no/r/n");
}

TEST(HttpForm, KeepsWhatCameOfAReplyThatBreaksOff) {
    EXPECT_EQ(ReplyTo("HTTP/1.1 200 OK\r\nContent-Length: 100\r\n\r\nhalf"), "half/r/n");
    EXPECT_EQ(ReplyTo("HTTP/1.1 200 OK\r\nContent-Length: 100\r\n\r\nhalf", Answer::End::wait,
                      {.total = 300ms}),
              "half/r/n");
}

TEST(HttpForm, IsEmptyWhereNoReplyCame) {
    EXPECT_EQ(ReplyTo(""), "");
    EXPECT_EQ(ReplyTo("", Answer::End::reset), "");
    EXPECT_EQ(ReplyTo("", Answer::End::wait, {.total = 100ms}), "");
    CHttpForm form;
    EXPECT_EQ(form.Post(UrlOf(UnusedPort())), "");
    EXPECT_EQ(form.Post(""), "");
    EXPECT_EQ(form.Post("http://host.invalid/"), "");
}

TEST(HttpForm, TakesNoMoreThanItsLimitOfAReply) {
    const SiteServer site;
    site.Serve("feedback/feedback.php", std::string(5 << 20, 'x'));
    const CHttpForm form;
    EXPECT_EQ(form.Post(site.Root() + "feedback/feedback.php"), std::string(4 << 20, 'x') + "/r/n");
}

TEST(HttpForm, SpeaksHttpAlone) {
    const TemporaryFolder folder;
    const std::string file = folder.Path() / "secret";
    std::ofstream(file) << "of this machine";
    const CHttpForm form;
    EXPECT_EQ(form.Post("file://" + file), "");
}

TEST(HttpForm, GoesOverTheProxyOfTheSystem) {
    LoopbackAgent proxy({.bytes = ToBytes("HTTP/1.1 200 OK\r\nContent-Length: 2\r\n\r\nok"),
                         .end = Answer::End::close});
    const EnvironmentVariable told("http_proxy", fmt::format("http://127.0.0.1:{}", proxy.Port()));
    CHttpForm form;
    form.AddField("a", "1");
    EXPECT_EQ(form.Post("http://www.quorvi.example/feedback/feedback.php"), "ok/r/n");
    EXPECT_TRUE(TextOf(proxy.Exchanges(1).at(0))
                    .starts_with("POST http://www.quorvi.example/feedback/feedback.php HTTP/1.1"));
}

}  // namespace
}  // namespace quorvi
