// Views that show a web site.
#include "tests/ui/html/HtmlCtrlFixture.h"
#include "ui/kit/QtText.h"

namespace quorvi {
namespace {

class WebView : public HtmlCtrl {
  protected:
    CHtmlCtrlFix& Open(const QByteArray& body) {
        server_.body = body;
        CHtmlCtrlFix& view = Show(HtmlContent::web);
        view.show();
        Visit([&] { view.Navigate2(QUrl(server_.Url(QStringLiteral("first")))); });
        return view;
    }
    void Visit(const std::function<void()>& go) {
        QSignalSpy loaded(view_->Browser()->page(), &QWebEnginePage::loadFinished);
        go();
        EXPECT_TRUE(WaitFor([&] { return loaded.count() >= 1; }));
    }
    QString Path() const { return view_->Browser()->url().path(); }
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
    Click(QStringLiteral("#next"));
    ASSERT_TRUE(WaitFor([&] { return !owner_.commands.empty(); }));
    EXPECT_EQ(Path(), QStringLiteral("/first"));
}

TEST_F(WebView, SiteThatDoesNotAnswerGivesWayToATemplateAndBackLeadsBeforeIt) {
    CHtmlCtrlFix& view = Open("<p>page</p>");
    QTcpServer closed;
    closed.listen(QHostAddress::LocalHost);
    const QUrl nobody(QStringLiteral("http://127.0.0.1:%1/").arg(closed.serverPort()));
    closed.close();
    view.Navigate2(nobody);
    ASSERT_TRUE(WaitFor([&] { return view.Browser()->url() == TemplateUrl(663); }));
    EXPECT_TRUE(WaitFor([&] {
        return Ask(QStringLiteral("document.querySelector('h1')?.innerText")).toString() ==
               ToQString(u8"网页打不开");
    }));
    view.GoBack();
    EXPECT_TRUE(WaitFor([&] { return Path() == QStringLiteral("/first"); }));
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
