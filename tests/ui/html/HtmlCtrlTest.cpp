#include <gtest/gtest.h>

#include <QApplication>
#include <QFile>
#include <QProcessEnvironment>
#include <QSignalSpy>
#include <QTcpServer>
#include <QTcpSocket>
#include <QTest>
#include <QWebEngineView>
#include <algorithm>
#include <csignal>
#include <thread>

#include "base/Text.h"
#include "tests/support/HtmlDriver.h"
#include "tests/support/OwnPlaces.h"
#include "ui/html/HtmlCtrl.h"
#include "ui/html/HtmlTemplate.h"
#include "ui/kit/QtText.h"
#include "ui/page/Job.h"

namespace quorvi {
namespace {

constexpr int kGrace = 200;  // ms in which nothing is to happen

// The names of the environment's variables, and those that stood before the first view was made.
QStringList VariableNames() {
    return QProcessEnvironment::systemEnvironment().keys();
}
QStringList namesBeforeAnyView;

// A web server on 127.0.0.1 that counts connections and answers every request with one page.
class WebServer : public QTcpServer {
  public:
    WebServer() {
        listen(QHostAddress::LocalHost);
        connect(this, &QTcpServer::newConnection, this, [this] {
            while (QTcpSocket* peer = nextPendingConnection()) {
                ++connections;
                connect(peer, &QTcpSocket::readyRead, peer, [this, peer] { Answer(*peer); });
            }
        });
    }

    [[nodiscard]] QString Url(const QString& path = {}) const {
        return QStringLiteral("http://127.0.0.1:%1/%2").arg(serverPort()).arg(path);
    }

    int connections = 0;
    QByteArrayList requests;
    QByteArray body = "<html><body id=body>site</body></html>";

  private:
    void Answer(QTcpSocket& peer) {
        requests.append(peer.readAll());
        peer.write(
            "HTTP/1.1 200 OK\r\nContent-Type: text/html\r\nConnection: close\r\n"
            "Content-Length: " +
            QByteArray::number(body.size()) + "\r\n\r\n" + body);
        peer.disconnectFromHost();
    }
};

class Owner : public HtmlListener {
  public:
    void OnAppCmd(const std::string& text) override { commands.push_back(text); }
    std::vector<std::string> commands;
};

class HtmlCtrl : public testing::Test {
  protected:
    CHtmlCtrlFix& Show(HtmlContent content = HtmlContent::local) {
        view_ = std::make_unique<CHtmlCtrlFix>(1360, content, owner_, nullptr);
        view_->resize(640, 480);
        return *view_;
    }

    // A shown view with an empty element "block" in the document.
    CHtmlCtrlFix& ShowBlock() {
        CHtmlCtrlFix& view = Show();
        QSignalSpy loaded(&view, &CHtmlCtrlBase::documentLoaded);
        view.LoadFromText(Ansi(u8"<body><div id=block></div></body>"));
        view.show();
        EXPECT_TRUE(WaitFor([&] { return loaded.count() == 1; }));
        return view;
    }

    QVariant Ask(const QString& script) { return AskHtml(*view_, script); }
    QString InnerHtml(const QString& id) { return quorvi::InnerHtml(*view_, id); }
    void Click(const QString& selector, Qt::MouseButton button = Qt::LeftButton,
               Qt::KeyboardModifiers modifiers = {}) {
        ClickHtml(*view_, selector, button, modifiers);
    }

    Owner owner_;
    WebServer server_;
    std::unique_ptr<CHtmlCtrlFix> view_;
};

TEST_F(HtmlCtrl, BrowserIsMadeAtTheFirstShow) {
    CHtmlCtrlFix& view = Show();
    view.LoadFromResource(kDashboardTemplate);
    EXPECT_EQ(view.Browser(), nullptr);
    view.show();
    EXPECT_NE(view.Browser(), nullptr);
}

TEST_F(HtmlCtrl, EachTemplateHasItsElementsAndItsContentPolicy) {
    const std::pair<int, QStringList> templates[] = {
        {kDashboardTemplate, {QStringLiteral("manufacturer"), QStringLiteral("info_ul")}},
        {kConversationsTemplate, {QStringLiteral("sms_ul")}},
        {kConversationTemplate, {QStringLiteral("conversation_list")}},
        {kUnreachableTemplate, {}},
        {kContactTemplate, {QStringLiteral("block")}},
    };
    for (const auto& [number, ids] : templates) {
        QFile file(TemplateUrl(number).toString().mid(3));  // without "qrc"
        ASSERT_TRUE(file.open(QIODevice::ReadOnly)) << number;
        const QByteArray text = file.readAll();
        for (const QString& id : ids) {
            EXPECT_EQ(text.count("id=\"" + id.toUtf8() + "\""), 1) << number;
        }
        EXPECT_TRUE(text.contains(
            "<meta http-equiv=\"Content-Security-Policy\" content=\"default-src 'none'; "
            "img-src qrc: data:; style-src 'unsafe-inline' qrc:; form-action 'none'; "
            "base-uri 'none'\">"))
            << number;
        EXPECT_FALSE(text.contains("<script")) << number;
    }
}

TEST_F(HtmlCtrl, DashboardSaysNotConnectedBeforeTheFirstRefresh) {
    CHtmlCtrlFix& view = Show();
    QSignalSpy loaded(&view, &CHtmlCtrlBase::documentLoaded);
    view.LoadFromResource(kDashboardTemplate);
    view.show();
    ASSERT_TRUE(WaitFor([&] { return loaded.count() == 1; }));
    EXPECT_EQ(InnerHtml(QStringLiteral("manufacturer")), ToQString(u8"未连接"));
    // The pictures and the style sheet beside the template are there.
    EXPECT_GT(Ask(QStringLiteral("document.querySelector('.phone').naturalWidth")).toInt(), 0);
    EXPECT_EQ(Ask(QStringLiteral("getComputedStyle(document.body).backgroundColor")).toString(),
              QStringLiteral("rgb(252, 249, 253)"));
}

TEST_F(HtmlCtrl, UnknownResourceNumberShowsNothingNew) {
    CHtmlCtrlFix& view = ShowBlock();
    view.SetInnerHtml("block", "here");
    view.LoadFromResource(1);
    EXPECT_EQ(InnerHtml(QStringLiteral("block")), QStringLiteral("here"));
    EXPECT_EQ(view.Browser()->url(), BlankTemplateUrl());
}

TEST_F(HtmlCtrl, WhatIsSetBeforeTheDocumentStandsIsSetWhenItDoes) {
    CHtmlCtrlFix& view = Show();
    QSignalSpy loaded(&view, &CHtmlCtrlBase::documentLoaded);
    view.LoadFromResource(kContactTemplate);
    view.SetInnerHtml("block", "hidden");
    view.show();
    view.SetInnerHtml("block", "loading");
    ASSERT_TRUE(WaitFor([&] { return loaded.count() == 1; }));
    EXPECT_EQ(InnerHtml(QStringLiteral("block")), QStringLiteral("loading"));
}

TEST_F(HtmlCtrl, WorkersSetInTheOrderOfTheirCalls) {
    CHtmlCtrlFix& view = ShowBlock();
    const WatchedDocumentCookie document = view.Document();
    std::thread worker([document] {
        for (int i = 0; i <= 200; ++i) {
            document.SetInnerHtml("block", std::to_string(i));
        }
    });
    worker.join();
    QCoreApplication::processEvents();
    EXPECT_EQ(InnerHtml(QStringLiteral("block")), QStringLiteral("200"));
}

// Neither in the view that is gone nor in the one that has taken its place.
TEST_F(HtmlCtrl, CookieOfAViewThatIsGoneDoesNothing) {
    const WatchedDocumentCookie document = ShowBlock().Document();
    view_.reset();
    ShowBlock().SetInnerHtml("block", "here");
    document.SetInnerHtml("block", "late");
    WatchedDocumentCookie().SetInnerHtml("block", "never");
    bool handled = false;  // behind what the cookies have posted
    PostToWindow(view_.get(), [&] { handled = true; });
    ASSERT_TRUE(WaitFor([&] { return handled; }));
    EXPECT_EQ(InnerHtml(QStringLiteral("block")), QStringLiteral("here"));
}

TEST_F(HtmlCtrl, ElementThatIsNotThereIsPassedOver) {
    CHtmlCtrlFix& view = ShowBlock();
    view.SetInnerHtml("nowhere", "text");
    view.SetInnerHtml("block", "here");
    EXPECT_EQ(InnerHtml(QStringLiteral("block")), QStringLiteral("here"));
}

TEST_F(HtmlCtrl, TextKeepsItsBytesAndItsMarkup) {
    CHtmlCtrlFix& view = ShowBlock();
    view.SetInnerHtml("block", Ansi(u8"<b>粗体</b> \"'\\ </script> \n"));
    EXPECT_EQ(InnerHtml(QStringLiteral("block")), ToQString(u8"<b>粗体</b> \"'\\  \n"));
    EXPECT_EQ(
        Ask(QStringLiteral("getComputedStyle(document.querySelector('b')).fontWeight")).toString(),
        QStringLiteral("700"));
}

TEST_F(HtmlCtrl, ElementLeftOpenIsClosedByTheParser) {
    CHtmlCtrlFix& view = ShowBlock();
    view.SetInnerHtml("block", "<div class='p10 summary'><p>x");
    EXPECT_EQ(InnerHtml(QStringLiteral("block")),
              QStringLiteral("<div class=\"p10 summary\"><p>x</p></div>"));
}

TEST_F(HtmlCtrl, DocumentIsScrolledAfterTheChange) {
    CHtmlCtrlFix& view = ShowBlock();
    const std::string tall = "<div style='height:5000px'></div>";
    view.SetInnerHtml("block", tall, HtmlScroll::end);
    EXPECT_GT(Ask(QStringLiteral("window.scrollY")).toInt(), 4000);
    view.SetInnerHtml("block", tall);
    EXPECT_GT(Ask(QStringLiteral("window.scrollY")).toInt(), 4000);
    view.SetInnerHtml("block", tall, HtmlScroll::top);
    EXPECT_EQ(Ask(QStringLiteral("window.scrollY")).toInt(), 0);
}

TEST_F(HtmlCtrl, TextBeyondTwoMegabytesLoads) {
    CHtmlCtrlFix& view = Show();
    QSignalSpy loaded(&view, &CHtmlCtrlBase::documentLoaded);
    view.LoadFromText("<body><i id=last></i><p>" + std::string(3'000'000, 'x') + "</p></body>");
    view.show();
    ASSERT_TRUE(WaitFor([&] { return loaded.count() == 1; }));
    EXPECT_EQ(Ask(QStringLiteral("document.querySelector('p').innerText.length")).toInt(),
              3'000'000);
}

// Links -------------------------------------------------------------------------------------------

struct LinkForm {
    const char* address;  // as it stands in the document
    std::u8string_view text;
};

void PrintTo(const LinkForm& form, std::ostream* out) {
    *out << form.address;
}

class PrivateLink : public HtmlCtrl, public testing::WithParamInterface<LinkForm> {};

TEST_P(PrivateLink, IsHandedOnAsText) {
    CHtmlCtrlFix& view = ShowBlock();
    view.SetInnerHtml("block", "<a href=\"" + std::string(GetParam().address) + "\">link</a>");
    Click(QStringLiteral("a"));
    ASSERT_TRUE(WaitFor([&] { return !owner_.commands.empty(); }));
    EXPECT_EQ(owner_.commands, std::vector{Ansi(GetParam().text)});
    EXPECT_EQ(view.Browser()->url(), BlankTemplateUrl());
}

INSTANTIATE_TEST_SUITE_P(Forms, PrivateLink,
                         testing::Values(LinkForm{"qvh:refresh", u8"refresh"},
                                         LinkForm{"QVH:Refresh", u8"Refresh"},
                                         LinkForm{"qvh:did=-2147483648", u8"did=-2147483648"},
                                         LinkForm{"qvh:a b/../c?d=1&amp;e", u8"a b/../c?d=1&e"},
                                         LinkForm{"qvh:100%", u8"100%"}, LinkForm{"qvh:", u8""}));

TEST_F(HtmlCtrl, SpaceOpensTheLinkThatTheTabKeyHasReached) {
    CHtmlCtrlFix& view = ShowBlock();
    view.SetInnerHtml("block", "<a href='qvh:1'>one</a> <a href='qvh:2'>two</a>");
    view.activateWindow();
    view.setFocus();
    ASSERT_TRUE(WaitFor([&] { return Ask(QStringLiteral("document.hasFocus()")).toBool(); }));
    QWidget* keys = view.Browser()->focusProxy();
    for (const char* id : {"1", "2"}) {
        QTest::keyClick(keys, Qt::Key_Tab);
        ASSERT_TRUE(WaitFor([&] {
            return Ask(QStringLiteral("document.activeElement?.href")).toString() ==
                   QStringLiteral("qvh:") + QLatin1String(id);
        }));
    }
    QTest::keyClick(keys, Qt::Key_Space);
    ASSERT_TRUE(WaitFor([&] { return !owner_.commands.empty(); }));
    EXPECT_EQ(owner_.commands, std::vector<std::string>{"2"});
}

TEST_F(HtmlCtrl, SpaceScrollsWhereNoLinkHasTheFocus) {
    CHtmlCtrlFix& view = ShowBlock();
    view.SetInnerHtml("block", "<div style='height:5000px'>x</div>");
    view.activateWindow();
    view.setFocus();
    Ask(QStringLiteral("0"));
    QTest::keyClick(view.Browser()->focusProxy(), Qt::Key_Space);
    EXPECT_TRUE(WaitFor([&] { return Ask(QStringLiteral("window.scrollY")).toInt() > 100; }));
}

TEST_F(HtmlCtrl, LinkWhoseSchemeOnlyBeginsWithTheLettersDoesNothing) {
    CHtmlCtrlFix& view = ShowBlock();
    view.SetInnerHtml("block", "<a id=hit href='qvhx:refresh'>x</a> <a id=next href='qvh:1'>y</a>");
    Click(QStringLiteral("#hit"));
    // While the browser turns that link down, it drops a click on another.
    ASSERT_TRUE(WaitFor([&] {
        Click(QStringLiteral("#next"));
        return !owner_.commands.empty();
    }));
    EXPECT_EQ(std::ranges::count(owner_.commands, "1"), std::ssize(owner_.commands));
    EXPECT_EQ(view.Browser()->url(), BlankTemplateUrl());
}

TEST_F(HtmlCtrl, LinkToABlankPageDoesNotLastingWipeTheView) {
    CHtmlCtrlFix& view = Show();
    QSignalSpy loaded(&view, &CHtmlCtrlBase::documentLoaded);
    view.LoadFromResource(kContactTemplate);
    view.SetInnerHtml("block", "<a href='about:blank'>link</a><i>kept</i>");
    view.show();
    ASSERT_TRUE(WaitFor([&] { return loaded.count() == 1; }));
    QSignalSpy moved(view.Browser(), &QWebEngineView::urlChanged);
    Click(QStringLiteral("a"));
    ASSERT_TRUE(WaitFor([&] { return moved.count() >= 2; }));
    EXPECT_EQ(view.Browser()->url(), TemplateUrl(kContactTemplate));
    EXPECT_TRUE(WaitFor([&] {
        return Ask(QStringLiteral("document.querySelector('i')?.innerText")).toString() ==
               QStringLiteral("kept");
    }));
    EXPECT_EQ(loaded.count(), 1);
}

TEST_F(HtmlCtrl, DocumentComesBackWhenItsRendererIsKilled) {
    CHtmlCtrlFix& view = ShowBlock();
    view.SetInnerHtml("block", "<i>kept</i>");
    Ask(QStringLiteral("0"));
    const auto renderer = static_cast<pid_t>(view.Browser()->page()->renderProcessPid());
    ASSERT_GT(renderer, 0);
    QSignalSpy gone(view.Browser()->page(), &QWebEnginePage::renderProcessTerminated);
    QSignalSpy loaded(view.Browser()->page(), &QWebEnginePage::loadFinished);
    kill(renderer, SIGKILL);
    ASSERT_TRUE(WaitFor([&] { return gone.count() == 1; }));
    ASSERT_TRUE(WaitFor([&] { return loaded.count() >= 1; }));
    EXPECT_EQ(InnerHtml(QStringLiteral("block")), QStringLiteral("<i>kept</i>"));
}

TEST_F(HtmlCtrl, LocalViewsShareOneRenderer) {
    CHtmlCtrlFix& first = ShowBlock();
    CHtmlCtrlFix second(1361, HtmlContent::local, owner_, nullptr);
    QSignalSpy loaded(&second, &CHtmlCtrlBase::documentLoaded);
    second.LoadFromResource(kConversationsTemplate);
    second.show();
    ASSERT_TRUE(WaitFor([&] { return loaded.count() == 1; }));
    EXPECT_EQ(first.Browser()->page()->renderProcessPid(),
              second.Browser()->page()->renderProcessPid());
}

// Hostile fragments -------------------------------------------------------------------------------

struct Hostile {
    const char* name;
    const char* fragment;  // %1 is the web server's root
};

void PrintTo(const Hostile& hostile, std::ostream* out) {
    *out << hostile.name;
}

class HostileFragment : public HtmlCtrl, public testing::WithParamInterface<Hostile> {};

TEST_P(HostileFragment, RunsNothingFetchesNothingAndStaysInTheView) {
    CHtmlCtrlFix& view = ShowBlock();
    const QString fragment =
        QString::fromUtf8(GetParam().fragment).replace(QStringLiteral("%1"), server_.Url());
    view.SetInnerHtml("block", "<b>shown</b>" + fragment.toStdString());
    EXPECT_EQ(Ask(QStringLiteral("document.querySelector('b').innerText")).toString(),
              QStringLiteral("shown"));
    const std::pair<Qt::MouseButton, Qt::KeyboardModifiers> clicks[] = {
        {Qt::LeftButton, Qt::NoModifier},
        {Qt::MiddleButton, Qt::NoModifier},
        {Qt::LeftButton, Qt::ControlModifier},
    };
    const bool clicked = fragment.contains(QStringLiteral("id=hit"));
    for (std::size_t i = 0; clicked && i < std::size(clicks); ++i) {
        // A view that was wiped by the click before comes back first.
        ASSERT_TRUE(WaitFor([&] {
            return Ask(QStringLiteral("document.querySelector('#hit') !== null")).toBool();
        }));
        Click(QStringLiteral("#hit"), clicks[i].first, clicks[i].second);
        QTest::qWait(kGrace / 2);
    }
    QTest::qWait(kGrace);
    EXPECT_EQ(server_.connections, 0);
    EXPECT_TRUE(owner_.commands.empty());
    EXPECT_TRUE(WaitFor([&] {
        return view.Browser()->url().adjusted(QUrl::RemoveFragment) == BlankTemplateUrl();
    }));
    // A script that had run would have left its mark in the document, which all worlds share.
    EXPECT_TRUE(WaitFor([&] {
        return Ask(QStringLiteral("document.querySelector('b')?.innerText")).toString() ==
               QStringLiteral("shown");
    }));
    EXPECT_FALSE(Ask(QStringLiteral("document.documentElement.hasAttribute('ran')")).toBool());
}

#define RAN "document.documentElement.setAttribute(&quot;ran&quot;,1)"

constexpr Hostile kHostile[] = {
    {"Script", "<script>document.documentElement.setAttribute('ran',1)</script>"},
    {"ScriptOfTheSite", "<script src='%1x.js'></script>"},
    {"ScriptModule", "<script type=module>import '%1x.js'</script>"},
    {"ErrorAttribute", "<img src='none.png' onerror='" RAN "'>"},
    {"LoadAttribute", "<svg onload='" RAN "'></svg>"},
    {"ToggleAttribute", "<details open ontoggle='" RAN "'>x</details>"},
    {"ClickAttribute", "<p id=hit onclick='" RAN "'>x</p>"},
    {"FocusAttribute", "<input autofocus onfocus='" RAN "'>"},
    {"ScriptInSvg", "<svg><script>document.documentElement.setAttribute('ran',1)</script></svg>"},
    {"ScriptLink", "<a id=hit href='javascript:" RAN "'>x</a>"},
    {"ScriptLinkInSvg", "<svg width=80 height=40><a href='javascript:" RAN
                        "'><rect id=hit width=80 height=40 /></a></svg>"},
    {"WebLink", "<a id=hit href='%1page'>x</a>"},
    {"WebLinkInNewWindow", "<a id=hit target=_blank href='%1page'>x</a>"},
    {"DownloadLink", "<a id=hit download=x href='%1page'>x</a>"},
    {"PingLink", "<a id=hit ping='%1ping' href='#there'>x</a>"},
    {"FileLink", "<a id=hit href='file:///etc/passwd'>x</a>"},
    {"DataLink", "<a id=hit href='data:text/html,gone'>x</a>"},
    {"BlobLink", "<a id=hit href='blob:null/x'>x</a>"},
    {"BlankLink", "<a id=hit href='about:blank'>x</a>"},
    {"ResourceLink", "<a id=hit href='qrc:/views/contact.html'>x</a>"},
    {"BrowserLink", "<a id=hit href='chrome://version'>x</a>"},
    {"SourceLink", "<a id=hit href='view-source:%1page'>x</a>"},
    {"FtpLink", "<a id=hit href='ftp://127.0.0.1/x'>x</a>"},
    {"MailLink", "<a id=hit href='mailto:a@example.com'>x</a>"},
    {"PhoneLink", "<a id=hit href='tel:10086'>x</a>"},
    {"IntentLink", "<a id=hit href='intent://x#Intent;end'>x</a>"},
    {"SocketLink", "<a id=hit href='ws://127.0.0.1/x'>x</a>"},
    {"SchemeThatBeginsLikeOurs", "<a id=hit href='qvh2:did=1'>x</a>"},
    {"ImageMap",
     "<img usemap='#m' src='w_os.gif' id=hit><map name=m>"
     "<area shape=default href='%1page'></map>"},
    {"Form", "<form action='%1page'><input type=submit id=hit></form>"},
    {"FormByPost", "<form method=post action='%1page'><button id=hit>x</button></form>"},
    {"FormThatCommands", "<form action='qvh:did=1'><button id=hit>x</button></form>"},
    {"ButtonWithItsOwnAction", "<form><button id=hit formaction='%1page'>x</button></form>"},
    {"Frame", "<iframe src='%1page'></iframe>"},
    {"FrameWithText", "<iframe srcdoc='<img src=%1x.png>'></iframe>"},
    {"FrameThatCommands", "<iframe src='qvh:did=1'></iframe>"},
    {"Object", "<object data='%1page'></object>"},
    {"Embed", "<embed src='%1page'>"},
    {"Image", "<img src='%1x.png'>"},
    {"ImageSet", "<img srcset='%1x.png 1x, %1y.png 2x'>"},
    {"Picture", "<picture><source srcset='%1x.png'><img src='w_os.gif'></picture>"},
    {"ImageInSvg", "<svg><image href='%1x.png' width=9 height=9 /></svg>"},
    {"UseInSvg", "<svg><use href='%1x.svg#x' /></svg>"},
    {"FilterInSvg", "<svg><filter><feImage href='%1x.png' /></filter></svg>"},
    {"InputImage", "<input type=image src='%1x.png'>"},
    {"Video", "<video autoplay src='%1x.mp4' poster='%1x.png'></video>"},
    {"Audio", "<audio autoplay><source src='%1x.mp3'></audio>"},
    {"Track", "<video><track default src='%1x.vtt'></video>"},
    {"Background", "<table background='%1x.png'><tr><td>x</table>"},
    {"StyleAttribute", "<p style='background:url(%1x.png)'>x</p>"},
    {"StyleElement", "<style>@import '%1x.css'; p { background: url(%1x.png) }</style><p>x</p>"},
    {"FontFace", "<style>@font-face{font-family:f;src:url(%1f)} p{font-family:f}</style><p>x</p>"},
    {"StyleSheet", "<link rel=stylesheet href='%1x.css'>"},
    {"Preconnect", "<link rel=preconnect href='%1'>"},
    {"Prefetch", "<link rel=prefetch href='%1x'>"},
    {"Preload", "<link rel=preload as=image href='%1x.png'>"},
    {"Prerender", "<link rel=prerender href='%1x'>"},
    {"Icon", "<link rel=icon href='%1x.ico'>"},
    {"Manifest", "<link rel=manifest href='%1x.json'>"},
    {"Base", "<base href='%1'><img src='x.png'>"},
    {"Refresh", "<meta http-equiv=refresh content='0;url=%1page'>"},
    {"RefreshThatCommands", "<meta http-equiv=refresh content='0;url=qvh:did=1'>"},
    {"RefreshThatRuns", "<meta http-equiv=refresh content='0;url=javascript:" RAN "'>"},
    {"MarkupAcrossParsers",
     "<svg><style><img title='</style><img src=%1x.png onerror=" RAN ">'></svg>"},
    {"TemplateWithShadow", "<div><template shadowroot=open><img src='%1x.png'></template></div>"},
};

INSTANTIATE_TEST_SUITE_P(All, HostileFragment, testing::ValuesIn(kHostile),
                         [](const auto& hostile) { return std::string(hostile.param.name); });

// Web views ---------------------------------------------------------------------------------------

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

// Other threads start programs with it by then.
TEST_F(HtmlCtrl, TheFirstViewAddsNothingToTheEnvironment) {
    ShowBlock();
    EXPECT_EQ(VariableNames(), namesBeforeAnyView);
}

TEST_F(HtmlCtrl, TakesThePlaceOfAStaticControl) {
    QWidget page;
    auto* place = new QWidget(&page);
    place->setObjectName(QStringLiteral("1370"));
    place->setGeometry(8, 9, 100, 80);
    CHtmlCtrlFix* view = CHtmlCtrlFix::CreateFromStatic(1370, page, owner_);
    EXPECT_EQ(view->geometry(), QRect(8, 9, 100, 80));
    EXPECT_EQ(page.findChildren<QWidget*>(QStringLiteral("1370")), QList<QWidget*>{view});
    EXPECT_FALSE(view->isHidden());
}

}  // namespace
}  // namespace quorvi

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    const quorvi::OwnPlaces places;
    quorvi::PrepareHtmlViews();
    const QApplication application(argc, argv);
    quorvi::namesBeforeAnyView = quorvi::VariableNames();
    return RUN_ALL_TESTS();
}
