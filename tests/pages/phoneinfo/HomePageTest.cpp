#include <future>

#include "base/Text.h"
#include "pages/phoneinfo/HomePage.h"
#include "tests/pages/phoneinfo/SystemInfoReply.h"
#include "tests/support/HtmlDriver.h"
#include "tests/support/LoopbackAgent.h"
#include "tests/support/OpenedAddresses.h"
#include "tests/support/PageTest.h"
#include "tests/support/ScriptedAgent.h"
#include "ui/kit/ControlNumber.h"
#include "ui/kit/QtText.h"

namespace quorvi {
namespace {

class HomePage : public PageTest {
  protected:
    // The page, shown, with its template loaded.
    CHomePage& Open(std::uint16_t port) {
        page_ = std::make_unique<CHomePage>(host_, services_.At(port));
        page_->resize(760, 462);
        ShowWithDocument(*page_, View());
        return *page_;
    }

    CHtmlCtrlBase& View() { return *FindControl<CHtmlCtrlBase>(page_.get(), 1360); }
    QString Header() { return InnerHtml(View(), QStringLiteral("manufacturer")); }

    std::unique_ptr<CHomePage> page_;
};

Answer Replying(const WireBytes& reply) {
    return {.bytes = Framed(reply.Get())};
}

const QString kNotConnected = ToQString(u8"未连接");

TEST_F(HomePage, RefreshFillsTheTwoElementsFromThePhone) {
    LoopbackAgent agent(Replying(WholeSystemInfo()));
    CHomePage& page = Open(agent.Port());
    EXPECT_EQ(Header(), kNotConnected);
    page.Refresh();
    ASSERT_TRUE(WaitFor([&] { return Header() != kNotConnected; }));
    EXPECT_EQ(Header(), QStringLiteral("<a href=\"qvh:device\">Aurora S2</a>"));
    EXPECT_EQ(AskHtml(View(), QStringLiteral("[...document.querySelectorAll('#info_ul li')].map("
                                             "li => li.innerText.replace(/\\s+/g, ' ').trim())"))
                  .toStringList()
                  .join(QLatin1Char('|')),
              ToQString(u8"操作系统 Android 2.3.4|电池信息 82 %|剩余空间 5.62 GB / 7.39 GB|"
                        u8"GPS状态 开启|蓝牙状态 已禁用|WiFi状态 开启|重力感应 已禁用"));
    // Every picture named by the fragment stands beside the template.
    EXPECT_TRUE(WaitFor([&] {
        return AskHtml(View(),
                       QStringLiteral("[...document.images].every(i => i.naturalWidth > 0)"))
            .toBool();
    }));
    const auto exchanges = agent.Exchanges(1);
    EXPECT_EQ(exchanges.front().firstPiece, Word(870004));  // the bare request
    EXPECT_TRUE(host_.statuses.isEmpty());
    EXPECT_FALSE(host_.loadState.Contains(10));
}

// The template has what a page without a trouble shows, so that it stands there from the first
// paint.
TEST_F(HomePage, ATroubleIsExplainedInThePlaceOfTheStateAndGoesAsItCame) {
    services_.linkTrouble.Set(LinkTrouble::unauthorized);  // before the page is made
    Open(UnusedPort());
    const auto headline = [&] {
        return AskHtml(View(), QStringLiteral("document.querySelector('#no_phone h1').innerText"))
            .toString();
    };
    ASSERT_TRUE(WaitFor([&] { return headline() == ToQString(u8"手机还没有允许这台电脑"); }));
    EXPECT_TRUE(WaitFor([&] {
        return AskHtml(View(),
                       QStringLiteral("document.querySelector('#no_phone img').naturalWidth > 0"))
            .toBool();
    }));
    // All of it stands in its frame.
    EXPECT_TRUE(AskHtml(View(), QStringLiteral("(e => e.scrollHeight <= e.clientHeight && "
                                               "e.scrollWidth <= e.clientWidth)"
                                               "(document.getElementById('no_phone'))"))
                    .toBool());
    services_.linkTrouble.Set(LinkTrouble::noPermissions);
    EXPECT_TRUE(WaitFor([&] { return headline() == ToQString(u8"系统不让 adb 打开这部手机"); }));
    services_.linkTrouble.Set(LinkTrouble::none);
    ASSERT_TRUE(WaitFor([&] { return headline() == ToQString(u8"还没有连接手机"); }));
    const QString shown = InnerHtml(View(), QStringLiteral("no_phone"));
    Open(UnusedPort());
    EXPECT_EQ(InnerHtml(View(), QStringLiteral("no_phone")), shown);
}

TEST_F(HomePage, WithoutAPhoneALinkOpensTheGuide) {
    for (const LinkTrouble trouble : {LinkTrouble::none, LinkTrouble::unauthorized}) {
        OpenedAddresses opened({QStringLiteral("file")});
        services_.linkTrouble.Set(trouble);
        Open(UnusedPort());
        ASSERT_TRUE(WaitFor([&] {
            return AskHtml(View(),
                           QStringLiteral("document.querySelector('#no_phone .ask') != null"))
                       .toBool() == (trouble != LinkTrouble::none);
        }));
        ClickHtml(View(), QStringLiteral("#no_phone a[href='qvh:guide']"));
        ASSERT_TRUE(WaitFor([&] { return !opened.taken.isEmpty(); }));
        EXPECT_TRUE(opened.taken.front().endsWith(QStringLiteral("/Data/guide.html")));
    }
    EXPECT_TRUE(host_.posted.empty());
}

TEST_F(HomePage, TilesKeepTheirHeightInALargerWindow) {
    LoopbackAgent agent(Replying(WholeSystemInfo()));
    CHomePage& page = Open(agent.Port());
    page.Refresh();
    const auto heights = [&] {
        return AskHtml(View(), QStringLiteral("[...document.querySelectorAll('#info_ul li')].map("
                                              "li => li.getBoundingClientRect().height)"))
            .toList();
    };
    ASSERT_TRUE(WaitFor([&] { return heights().size() == 7; }));
    const auto width = [&] { return AskHtml(View(), QStringLiteral("innerWidth")).toInt(); };
    ASSERT_TRUE(WaitFor([&] { return width() == 760; }));
    const QVariantList before = heights();
    page.resize(1720, 902);
    ASSERT_TRUE(WaitFor([&] { return width() == 1720; }));
    EXPECT_EQ(heights(), before);
}

TEST_F(HomePage, InALowWindowThePhonesNameIsWhole) {
    CHomePage& page = Open(UnusedPort());
    const auto height = [&](const char* what) {
        return AskHtml(View(), QString::fromLatin1(what)).toInt();
    };
    page.resize(760, 360);
    ASSERT_TRUE(WaitFor([&] { return height("innerHeight") == 360; }));
    EXPECT_EQ(height("document.querySelector('#manufacturer').clientHeight"), 28);
    EXPECT_LE(height("document.querySelector('.hero').scrollHeight"),
              height("document.querySelector('.hero').clientHeight"));
}

TEST_F(HomePage, ConnectFailureIsToldAndTheViewStays) {
    CHomePage& page = Open(UnusedPort());
    page.Refresh();
    ASSERT_TRUE(WaitFor([&] { return !host_.statuses.isEmpty(); }));
    EXPECT_EQ(host_.statuses, QStringList{ToQString(u8"【X】连接错误")});
    EXPECT_EQ(Header(), kNotConnected);
}

TEST_F(HomePage, ARefreshThatWorksTakesAnOldConnectFailureBack) {
    FailBefore();
    LoopbackAgent agent(Replying(WholeSystemInfo()));
    Open(agent.Port()).Refresh();
    EXPECT_TRUE(WaitFor([&] { return host_.status == kReady; }));
}

class HomePageUnchanged : public HomePage, public testing::WithParamInterface<Bytes> {};

TEST_P(HomePageUnchanged, LeavesTheDashboardAsItIs) {
    LoopbackAgent agent({.bytes = GetParam(), .end = Answer::End::close});
    CHomePage& page = Open(agent.Port());
    page.Refresh();
    static_cast<void>(agent.Exchanges(1));
    Settle();
    EXPECT_EQ(Header(), kNotConnected);
    EXPECT_EQ(InnerHtml(View(), QStringLiteral("info_ul")), QString());
    EXPECT_TRUE(host_.statuses.isEmpty());
}

INSTANTIATE_TEST_SUITE_P(AbsentModel_NoData_NoReply, HomePageUnchanged,
                         testing::Values(Framed(LeadingWord().Absent().U64(0).Get()),
                                         Word(NoDataMark), Bytes{}));

TEST_F(HomePage, OldStateStaysWhenThePhoneIsGone) {
    auto agent = std::make_unique<LoopbackAgent>(Replying(WholeSystemInfo()));
    CHomePage& page = Open(agent->Port());
    page.Refresh();
    ASSERT_TRUE(WaitFor([&] { return Header() != kNotConnected; }));
    agent.reset();
    page.Refresh();
    ASSERT_TRUE(WaitFor([&] { return !host_.statuses.isEmpty(); }));
    EXPECT_EQ(Header(), QStringLiteral("<a href=\"qvh:device\">Aurora S2</a>"));
}

TEST_F(HomePage, RefreshDuringARefreshFollowsIt) {
    LoopbackAgent agent(
        {.bytes = Word(NoDataMark), .piece = 1, .pause = std::chrono::milliseconds(20)});
    CHomePage& page = Open(agent.Port());
    page.Refresh();
    page.Refresh();
    page.Refresh();
    auto exchanges = std::async(std::launch::async, [&] { return agent.Exchanges(2); });
    ASSERT_TRUE(WaitFor(
        [&] { return exchanges.wait_for(std::chrono::seconds(0)) == std::future_status::ready; }));
    EXPECT_EQ(exchanges.get().size(), 2U);
}

// Were the reply awaited on the window's thread, nothing would ever let it go.
TEST_F(HomePage, WindowStaysAliveWhileThePhoneStalls) {
    ScriptedAgent agent;
    agent.Hold(AgentCommand::systemInformation);
    CHomePage& page = Open(agent.Port());
    page.Refresh();
    ASSERT_TRUE(WaitFor([&] { return agent.Requests().size() == 1; }));
    EXPECT_EQ(Header(), kNotConnected);
    page_.reset();  // the page may go while its worker is blocked
    agent.Release();
}

struct LinkCase {
    const char* selector;
    FakeHost::Posted posted;
};

void PrintTo(const LinkCase& link, std::ostream* out) {
    *out << link.selector;
}

class HomePageLink : public HomePage, public testing::WithParamInterface<LinkCase> {};

TEST_P(HomePageLink, ClickPostsItsMessage) {
    LoopbackAgent agent(Replying(WholeSystemInfo()));
    Open(agent.Port()).Refresh();
    ASSERT_TRUE(WaitFor([&] { return Header() != kNotConnected; }));
    ClickHtml(View(), QString::fromUtf8(GetParam().selector));
    ASSERT_TRUE(WaitFor([&] { return !host_.posted.empty(); }));
    EXPECT_EQ(host_.posted, std::vector{GetParam().posted});
}

INSTANTIATE_TEST_SUITE_P(
    All, HomePageLink,
    testing::Values(LinkCase{"#manufacturer a", {Message::pageCommand, 0, 0}},
                    LinkCase{".quick a[href='qvh:appstore']", {Message::goToPage, 2, 20}},
                    LinkCase{".quick a[href='qvh:advanced']", {Message::pageCommand, 2, 0}},
                    LinkCase{"a[href='qvh:os']", {Message::goToPage, 4, 40}},
                    LinkCase{"a[href='qvh:battery']", {Message::goToPage, 4, 40}},
                    LinkCase{"a[href='qvh:wifi']", {Message::goToPage, 4, 41}},
                    LinkCase{"a[href='qvh:4786']", {Message::pageCommand, 1, 4786}}));

TEST_F(HomePage, RefreshLinkAsksThePhone) {
    LoopbackAgent agent(Replying(WholeSystemInfo()));
    Open(agent.Port());
    ClickHtml(View(), QStringLiteral(".refresh"));
    EXPECT_TRUE(WaitFor([&] { return Header() != kNotConnected; }));
}

TEST_F(HomePage, ScreenshotLinkDoesNothingAtAll) {
    CHomePage page(host_, services_.At(UnusedPort()));
    page.OnLink("screenshot");
    EXPECT_TRUE(host_.posted.empty());
}

TEST_F(HomePage, LinkOfAnyOtherTextOpensTheItemOfItsNumber) {
    CHomePage page(host_, services_.At(UnusedPort()));
    page.OnLink("12abc");
    page.OnLink("abc");
    EXPECT_EQ(host_.posted, (std::vector<FakeHost::Posted>{{Message::pageCommand, 1, 12},
                                                           {Message::pageCommand, 1, 0}}));
}

}  // namespace
}  // namespace quorvi
