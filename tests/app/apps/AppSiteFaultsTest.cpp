// Every fault of the site at the applications' page: the list stands, the window lives, and the
// next try works.
#include "tests/app/apps/AppsOnPhone.h"
#include "tests/support/Heartbeat.h"
#include "tests/support/ScriptedSite.h"

namespace quorvi {
namespace {

constexpr std::size_t kRefresh = 0;
constexpr qint64 kHundredMegabytes = 100LL << 20;
const std::string kGood = R"([{"pkg":"com.example.weather","level":"5","id":"4711"}])";

// What each test does to the site.
struct SiteFault {
    const char* name;
    void (*impose)(ScriptedSite& site);
};

void PrintTo(const SiteFault& fault, std::ostream* out) {
    *out << fault.name;
}

constexpr auto kSiteFaults = std::to_array<SiteFault>({
    {"NotFound", [](ScriptedSite& site) { site.AnswerPage("gone", "404 Not Found"); }},
    {"Moved",
     [](ScriptedSite& site) {
         site.AnswerBytes(
             "HTTP/1.1 301 Moved\r\nLocation: http://127.0.0.1:1/\r\n"
             "Content-Length: 0\r\n\r\n");
     }},
    {"ServerError", [](ScriptedSite& site) { site.AnswerPage("oh", "500 Oh"); }},
    {"HalfAReply",
     [](ScriptedSite& site) {
         site.AnswerBytes("HTTP/1.1 200 OK\r\nContent-Length: 100\r\n\r\n" + kGood.substr(0, 30));
     }},
    {"NoReply", [](ScriptedSite& site) { site.AnswerBytes(""); }},
    {"NoHttp", [](ScriptedSite& site) { site.AnswerBytes("220 mail ready\r\n"); }},
    {"AHundredMegabytes",
     [](ScriptedSite& site) {
         site.AnswerBytes("HTTP/1.1 200 OK\r\nContent-Length: 104857600\r\n\r\n");
         site.GoOnFor(kHundredMegabytes);
     }},
    {"NoJson", [](ScriptedSite& site) { site.AnswerPage("<html><b>oh</b></html>"); }},
    {"JsonOfANumber", [](ScriptedSite& site) { site.AnswerPage("17"); }},
    {"JsonOfAText", [](ScriptedSite& site) { site.AnswerPage("\"com.example.weather\""); }},
    {"JsonOfLists",
     [](ScriptedSite& site) { site.AnswerPage(R"([[{"pkg":"com.example.weather"}],null,17])"); }},
    {"JsonOfWrongMembers",
     [](ScriptedSite& site) {
         site.AnswerPage(R"([{"pkg":["com.example.weather"],"level":{}}])");
     }},
    {"JsonOfManyLevels", [](ScriptedSite& site) { site.AnswerPage(std::string(100'000, '[')); }},
});

class AppSite : public AppsOnPhone {
  public:
    static void SetUpTestSuite() {
        site_ = std::make_unique<ScriptedSite>();
        StandUp(MakersWithSite(site_->Root()));
        heart_ = std::make_unique<Heartbeat>([] {});
    }
    static void TearDownTestSuite() {
        heart_.reset();
        AppsOnPhone::TearDownTestSuite();
        site_.reset();
    }

  protected:
    void SetUp() override {
        AppsOnPhone::SetUp();
        GoodSite();
        OpenFresh(kApps);
        ASSERT_TRUE(WaitAllEnded());
        ASSERT_EQ(Rating(), 5);
        static_cast<void>(heart_->HasStopped());
        Tell("log clear");
    }
    static void GoodSite() {
        site_->GoOnFor(0);
        site_->AnswerPage(kGood);
    }
    static int Rating() { return At("com.example.weather", columnRating).value; }
    static void Refresh() {
        Command(kRefresh);
        ASSERT_TRUE(WaitAllEnded());
    }
    static void ExpectNextTryWorks() {
        GoodSite();
        Refresh();
        EXPECT_EQ(List().RowCount(), kRows);
        EXPECT_EQ(Rating(), 5);
        EXPECT_EQ(Status(), ToQString(u8"就绪"));
    }

    static std::unique_ptr<ScriptedSite> site_;
    static std::unique_ptr<Heartbeat> heart_;
};

std::unique_ptr<ScriptedSite> AppSite::site_;
std::unique_ptr<Heartbeat> AppSite::heart_;

class AppSiteFaults : public AppSite, public testing::WithParamInterface<SiteFault> {};

TEST_P(AppSiteFaults, LeaveTheRowsAsThePhoneSentThem) {
    GetParam().impose(*site_);
    Refresh();
    EXPECT_EQ(List().RowCount(), kRows);
    EXPECT_TRUE(List().Redraw());
    for (int row = 0; row < kRows; ++row) {
        EXPECT_EQ(List().At(row).store, StoreFacts());
    }
    EXPECT_EQ(Status(), ToQString(u8"就绪"));
    EXPECT_FALSE(heart_->HasStopped());
    ExpectNextTryWorks();
}

INSTANTIATE_TEST_SUITE_P(Each, AppSiteFaults, testing::ValuesIn(kSiteFaults),
                         [](const auto& test) { return std::string(test.param.name); });

TEST_F(AppSite, ThatIsGoneLeavesTheRowsAsThePhoneSentThem) {
    const quint16 port = site_->serverPort();
    site_->close();
    Refresh();
    EXPECT_EQ(List().RowCount(), kRows);
    EXPECT_EQ(Rating(), 3);
    EXPECT_EQ(Status(), ToQString(u8"就绪"));
    ASSERT_TRUE(site_->listen(QHostAddress::LocalHost, port));
    ExpectNextTryWorks();
}

TEST_F(AppSite, ThatHangsHoldsUpNeitherTheListNorItsRefresh) {
    site_->Hold();
    Command(kRefresh);
    const std::size_t asked = site_->Bodies().size() + 1;
    ASSERT_TRUE(WaitFor([&] { return site_->Bodies().size() == asked; }));
    ASSERT_TRUE(WaitIdle());
    EXPECT_EQ(List().RowCount(), kRows);
    ClickCell(List(), 20, columnTick);
    EXPECT_TRUE(List().IsTicked(20));
    Command(kRefresh);
    ASSERT_TRUE(WaitIdle());
    EXPECT_EQ(List().RowCount(), kRows);
    EXPECT_EQ(Rating(), 3);
    EXPECT_EQ(site_->Bodies().size(), asked);  // it is not asked again meanwhile
    EXPECT_FALSE(heart_->HasStopped());
    site_->Release();
    ASSERT_TRUE(WaitAllEnded());
    EXPECT_EQ(Rating(), 5);  // what it said then came to the rows of now
    ExpectNextTryWorks();
}

TEST_F(AppSite, WhoseNameNobodyKnowsLeavesTheRowsAsThePhoneSentThem) {
    // The window's own page asks the site of the tests; this one asks a host that does not exist.
    Services told = Window().PageServices();
    told.deployment.siteRoot = "http://nobody.invalid/";
    auto* own = &ThePage();
    CAppPage other(Window(), told, own);
    other.Load();
    ASSERT_TRUE(WaitAllEnded());
    EXPECT_EQ(other.findChild<AppListCtrl*>()->RowCount(), kRows);
    EXPECT_EQ(other.findChild<AppListCtrl*>()->At(0).store, StoreFacts());
    EXPECT_EQ(Status(), ToQString(u8"就绪"));
}

}  // namespace
}  // namespace quorvi
