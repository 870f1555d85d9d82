// The store's page on a real server as its site.
#include <algorithm>

#include "pages/store/StorePage.h"
#include "tests/support/HtmlDriver.h"
#include "tests/support/PageTest.h"
#include "tests/support/ScriptedSite.h"
#include "tests/support/SiteServer.h"
#include "ui/html/HtmlFrame.h"
#include "ui/html/HtmlTemplate.h"
#include "ui/kit/ControlNumber.h"

namespace quorvi {
namespace {

const QString kUnreachable = ToQString(u8"【X】软件商城打不开");

// All that the site has is HTML.
constexpr std::string_view kPages =
    "location ~ (/|html|php)$ { root FILES; default_type text/html; index index.html; }";

class StoreTest : public PageTest {
  protected:
    StoreTest() {
        site_.Serve("index.html",
                    "<h1>home</h1> <a id=hit href='qvh:com.example.tingshu.apk'>x</a>");
        site_.Serve("archives/4786.html", "<h1>item</h1>");
        site_.Serve("search.php", "<h1>found</h1>");
    }

    // The page, shown, not loaded yet.
    StorePage& Open(const std::string& root) {
        services_.deployment.storeRoot = root;
        const Services services = services_.At(1);
        waiting_ = services.waitingPackages;
        page_ = std::make_unique<StorePage>(host_, services);
        page_->resize(760, 462);
        page_->show();
        return *page_;
    }
    StorePage& OpenHome() {
        StorePage& page = Open(site_.Root());
        page.Load();
        EXPECT_TRUE(WaitForHeading(u8"home"));
        return page;
    }
    // What the site was asked for, the pictures of pages left out.
    std::vector<std::string> Asked(std::size_t count) const {
        std::vector<std::string> lines;
        for (const SiteRequest& request : site_.Requests(count)) {
            if (request.line.find("favicon") == std::string::npos) {
                lines.push_back(request.line);
            }
        }
        return lines;
    }
    CHtmlCtrlFix& View() { return *FindControl<CHtmlCtrlFix>(page_.get(), StorePage::kView); }
    HtmlFrame& Frame() { return *page_->findChild<HtmlFrame*>(); }
    QString Words(const QString& selector) {
        return AskHtml(View(),
                       QStringLiteral("document.querySelector('%1')?.innerText").arg(selector))
            .toString();
    }
    bool WaitForHeading(std::u8string_view heading) {
        return WaitFor([&] {
            return View().Browser() != nullptr && Words(QStringLiteral("h1")) == ToQString(heading);
        });
    }

    SiteServer site_{kPages};
    WaitingPackages waiting_;
    std::unique_ptr<StorePage> page_;
};

TEST_F(StoreTest, TheEntryLoadsTheRoot) {
    OpenHome();
    EXPECT_EQ(Asked(1).front(), "GET / HTTP/1.1");
    EXPECT_EQ(host_.loadState.Value(9), PageLoadState::kEnded);
    EXPECT_TRUE(host_.statuses.isEmpty());
}

TEST_F(StoreTest, AnItemIsOpenedByItsNumber) {
    StorePage& page = OpenHome();
    page.OnMessage(Message::openStoreItem, 0, 4786);
    EXPECT_TRUE(WaitForHeading(u8"item"));
    EXPECT_EQ(Asked(2).back(), "GET /archives/4786.html HTTP/1.1");
}

TEST_F(StoreTest, ASearchGoesOutWithItsKey) {
    StorePage& page = Open(site_.Root());
    page.OnSearch(ToQString(u8"听书"));
    EXPECT_TRUE(WaitForHeading(u8"found"));
    EXPECT_EQ(Asked(1).front(),
              "GET /search.php?keywords=%E5%90%AC%E4%B9%A6&key=f3b8e03c HTTP/1.1");
}

TEST_F(StoreTest, AHyphenBetweenTwoLettersIsLeftOut) {
    StorePage& page = Open(site_.Root());
    page.OnSearch(QStringLiteral("rea-der"));
    EXPECT_TRUE(WaitForHeading(u8"found"));
    EXPECT_EQ(Asked(1).front(), "GET /search.php?keywords=reader&key=be7ccf7a HTTP/1.1");
}

TEST_F(StoreTest, MarksAloneAreASearchForNothing) {
    StorePage& page = Open(site_.Root());
    page.OnSearch(QStringLiteral("<>"));
    EXPECT_TRUE(WaitForHeading(u8"found"));
    EXPECT_EQ(Asked(1).front(), "GET /search.php?keywords=&key=e5d2c1c7 HTTP/1.1");
}

// The window hands over the words and then goes to the page, which loads by itself when it is shown
// for the first time and its key is not there.
TEST_F(StoreTest, WhatTheFirstSearchFoundDoesNotGiveWayToTheRoot) {
    StorePage& page = Open(site_.Root());
    page.OnSearch(QStringLiteral("reader"));
    EXPECT_TRUE(host_.loadState.Contains(9));
}

TEST_F(StoreTest, BackLeadsToThePageBeforeAndHomeToTheRoot) {
    StorePage& page = OpenHome();
    page.OnMessage(Message::openStoreItem, 0, 4786);
    ASSERT_TRUE(WaitForHeading(u8"item"));
    page.OnCommand(StorePage::commandBack);
    EXPECT_TRUE(WaitForHeading(u8"home"));
    page.OnSearch(QStringLiteral("reader"));
    ASSERT_TRUE(WaitForHeading(u8"found"));
    page.OnCommand(StorePage::commandHome);
    EXPECT_TRUE(WaitForHeading(u8"home"));
}

TEST_F(StoreTest, ALinkToAPackageHandsItsNameToTheDownloads) {
    OpenHome();
    ClickHtml(View(), QStringLiteral("#hit"));
    ASSERT_TRUE(WaitFor([&] { return !host_.posted.empty(); }));
    EXPECT_EQ(host_.posted, (std::vector<FakeHost::Posted>{{Message::pageCommand, 3, 0}}));
    EXPECT_EQ(waiting_.Take(), "com.example.tingshu");
    EXPECT_EQ(waiting_.Take(), std::nullopt);
    EXPECT_TRUE(host_.statuses.isEmpty());
    EXPECT_EQ(Words(QStringLiteral("h1")), QStringLiteral("home"));
}

TEST_F(StoreTest, ALinkWithoutTheEndingOfAPackageDoesNothing) {
    site_.Serve("index.html",
                "<h1>home</h1> <a id=item href='qvh:4786'>x</a> <a id=hit href='qvh:a.apk'>y</a>");
    OpenHome();
    ClickHtml(View(), QStringLiteral("#item"));
    ClickHtml(View(), QStringLiteral("#hit"));
    ASSERT_TRUE(WaitFor([&] { return !host_.posted.empty(); }));
    EXPECT_EQ(host_.posted.size(), 1U);
    EXPECT_EQ(waiting_.Take(), "a");
    EXPECT_TRUE(host_.statuses.isEmpty());
}

TEST_F(StoreTest, ANameOfMoreThan255BytesIsNoPackages) {
    site_.Serve("index.html", "<h1>home</h1> <a id=long href='qvh:" + std::string(256, 'a') +
                                  ".apk'>x</a> <a id=hit href='qvh:" + std::string(255, 'a') +
                                  ".apk'>y</a>");
    OpenHome();
    ClickHtml(View(), QStringLiteral("#long"));
    ASSERT_TRUE(WaitFor([&] { return !host_.statuses.isEmpty(); }));
    EXPECT_EQ(host_.status,
              ToQString(u8"【错误】应用的包名不正确，没有添加任务，请换一个应用下载"));
    EXPECT_TRUE(host_.posted.empty());
    ClickHtml(View(), QStringLiteral("#hit"));
    ASSERT_TRUE(WaitFor([&] { return !host_.posted.empty(); }));
    EXPECT_EQ(waiting_.Take(), std::string(255, 'a'));
}

TEST_F(StoreTest, ASiteThatIsNotThereIsToldAndHomeTriesAgain) {
    ScriptedSite site;
    const std::string root = site.Root();
    const quint16 port = site.serverPort();
    site.close();
    StorePage& page = Open(root);
    const QSignalSpy offered(&page, &Page::commandOffered);
    page.Load();
    ASSERT_TRUE(WaitFor([&] { return host_.status == kUnreachable; }));
    EXPECT_TRUE(WaitForHeading(u8"软件商城打不开"));
    EXPECT_TRUE(WaitFor(
        [&] { return Words(QStringLiteral("#host")) == ToQString(u8"127.0.0.1 没有回应"); }));
    EXPECT_EQ(Frame().State(), ListState::idle);
    ASSERT_EQ(offered.count(), 1);
    EXPECT_EQ(offered[0][0].toInt(), static_cast<int>(StorePage::commandHome));

    ASSERT_TRUE(site.listen(QHostAddress::LocalHost, port));
    site.AnswerPage("<html><h1>here again</h1></html>");
    page.OnCommand(StorePage::commandHome);
    EXPECT_TRUE(WaitForHeading(u8"here again"));
    EXPECT_TRUE(WaitFor([&] { return host_.status == kReady; }));
    EXPECT_EQ(offered.count(), 1);
}

TEST_F(StoreTest, AFailureInTheBackgroundTakesNoFocus) {
    ScriptedSite site;
    const std::string root = site.Root();
    site.close();
    StorePage& page = Open(root);
    const QSignalSpy offered(&page, &Page::commandOffered);
    page.Load();
    page.hide();
    ASSERT_TRUE(WaitFor([&] { return host_.status == kUnreachable; }));
    EXPECT_EQ(offered.count(), 0);
}

TEST_F(StoreTest, ARunningBarShowsThatTheSiteIsBeingAsked) {
    ScriptedSite site;
    site.AnswerPage("<html><h1>slow</h1></html>");
    site.Hold();
    StorePage& page = Open(site.Root());
    page.Load();
    EXPECT_EQ(Frame().State(), ListState::loading);
    EXPECT_FALSE(Frame().IsFilled());
    ASSERT_TRUE(WaitFor([&] { return !site.Bodies().empty(); }));
    EXPECT_EQ(Frame().State(), ListState::loading);
    site.Release();
    ASSERT_TRUE(WaitFor([&] { return Frame().State() == ListState::idle; }));
    EXPECT_TRUE(Frame().IsFilled());
    EXPECT_TRUE(WaitForHeading(u8"slow"));
}

}  // namespace
}  // namespace quorvi
