// Views that show a web site.
#include "agent/Request.h"
#include "base/ByteText.h"
#include "tests/support/LoopbackAgent.h"
#include "tests/ui/html/WebViewFixture.h"

namespace quorvi {
namespace {

// A site that does not answer as it should.
struct SiteFault {
    std::string name;
    std::string answer;
    Answer::End end;
};

TEST_F(WebView, GoesBackAndHome) {
    CHtmlCtrlFix& view = Open("<p>page</p>");
    view.SetHome(QUrl(server_.Url(QStringLiteral("home"))));
    Visit([&] { view.Navigate2(QUrl(server_.Url(QStringLiteral("second")))); });
    EXPECT_EQ(Path(), QStringLiteral("/second"));
    view.GoBack();
    EXPECT_TRUE(WaitFor([&] { return Path() == QStringLiteral("/first"); }));
    view.GoHome();
    EXPECT_TRUE(WaitFor([&] { return Path() == QStringLiteral("/home"); }));
}

TEST_F(WebView, PostsWhatItIsGiven) {
    CHtmlCtrlFix& view = Open("<p>page</p>");
    Visit([&] { view.Navigate2(QUrl(server_.Url(QStringLiteral("form"))), "a=1"); });
    const QByteArray request = server_.requests.join();
    EXPECT_TRUE(request.contains("POST /form")) << request.toStdString();
}

TEST_F(WebView, PrivateLinkOfASiteIsHandedOnAndTheSiteStays) {
    Open("<a id=hit href='qvh:com.example.apk'>get</a>");
    Click(QStringLiteral("#hit"));
    ASSERT_TRUE(WaitFor([&] { return !owner_.commands.empty(); }));
    EXPECT_EQ(owner_.commands, std::vector<std::string>{"com.example.apk"});
    EXPECT_EQ(Path(), QStringLiteral("/first"));
}

TEST_F(WebView, NewWindowOfASiteOpensInTheSameView) {
    Open("<a id=hit target=_blank href='/other'>x</a>");
    Click(QStringLiteral("#hit"));
    EXPECT_TRUE(WaitFor([&] { return Path() == QStringLiteral("/other"); }));
}

TEST_F(WebView, SiteLeadsToNoOtherScheme) {
    Open("<a id=hit href='file:///etc/passwd'>x</a> <a id=next href='qvh:1'>y</a>");
    Click(QStringLiteral("#hit"));
    ClickUntilHeard(QStringLiteral("#next"));
    EXPECT_EQ(Path(), QStringLiteral("/first"));
}

TEST_F(WebView, SiteThatDoesNotAnswerGivesWayToATemplateAndBackLeadsBeforeIt) {
    CHtmlCtrlFix& view = Open("<p>page</p>");
    QTcpServer closed;
    closed.listen(QHostAddress::LocalHost);
    const QUrl nobody(QStringLiteral("http://127.0.0.1:%1/").arg(closed.serverPort()));
    closed.close();
    owner_.visits.clear();
    view.Navigate2(nobody);
    ExpectUnreachable(view);
    EXPECT_EQ(owner_.visits, (std::vector{HtmlVisit::begun, HtmlVisit::failed}));
    view.GoBack();
    EXPECT_TRUE(WaitFor([&] { return Path() == QStringLiteral("/first"); }));
}

class WebViewFault : public WebView, public testing::WithParamInterface<SiteFault> {};

TEST_P(WebViewFault, IsASiteThatDoesNotAnswer) {
    CHtmlCtrlFix& view = Open("<p>page</p>");
    LoopbackAgent site({.bytes = ToBytes(GetParam().answer), .end = GetParam().end});
    owner_.visits.clear();
    view.Navigate2(QUrl(QStringLiteral("http://127.0.0.1:%1/").arg(site.Port())));
    ExpectUnreachable(view);
    EXPECT_EQ(owner_.visits.front(), HtmlVisit::begun);
    EXPECT_EQ(owner_.visits.back(), HtmlVisit::failed);
}

INSTANTIATE_TEST_SUITE_P(
    Site, WebViewFault,
    testing::Values(SiteFault{"ClosesWithoutAWord", "", Answer::End::close},
                    SiteFault{"Resets", "", Answer::End::reset},
                    SiteFault{"SaysTooLittle",
                              "HTTP/1.1 200 OK\r\nContent-Type: text/html\r\n"
                              "Content-Length: 1000\r\n\r\n<p>half",
                              Answer::End::close},
                    SiteFault{"LeadsInACircle",
                              "HTTP/1.1 302 Found\r\nLocation: /\r\nContent-Length: 0\r\n\r\n",
                              Answer::End::close}),
    [](const auto& each) { return each.param.name; });

TEST_F(WebView, AnErrorPageOfTheSitesOwnIsShown) {
    CHtmlCtrlFix& view = Open("<p>page</p>");
    LoopbackAgent site({.bytes = ToBytes("HTTP/1.1 404 Not Found\r\nContent-Type: text/html\r\n"
                                         "Content-Length: 12\r\n\r\n<h1>gone</h1>"),
                        .end = Answer::End::close});
    owner_.visits.clear();
    view.Navigate2(QUrl(QStringLiteral("http://127.0.0.1:%1/").arg(site.Port())));
    EXPECT_TRUE(WaitFor([&] {
        return Ask(QStringLiteral("document.querySelector('h1')?.innerText")).toString() ==
               QStringLiteral("gone");
    }));
    EXPECT_TRUE(WaitFor([&] { return owner_.visits.size() >= 2; }));
    EXPECT_EQ(owner_.visits, (std::vector{HtmlVisit::begun, HtmlVisit::ended}));
}

TEST_F(WebView, LocalViewGoesToNoUrl) {
    CHtmlCtrlFix& view = ShowBlock();
    view.Navigate2(QUrl(server_.Url(QStringLiteral("local"))));
    // A web view that sets out later arrives.
    CHtmlCtrlFix web(1361, HtmlContent::web, owner_, nullptr);
    web.show();
    web.Navigate2(QUrl(server_.Url(QStringLiteral("web"))));
    ASSERT_TRUE(WaitFor([&] { return server_.requests.join().contains("GET /web "); }));
    EXPECT_FALSE(server_.requests.join().contains("GET /local "));
    EXPECT_EQ(view.Browser()->url(), BlankTemplateUrl());
}

}  // namespace
}  // namespace quorvi
