// A user's story with the applications: through the window, to the phone by its agent and by adb,
// to a real site, and back.
#include <gmock/gmock.h>

#include "pages/apps/AppActions.h"
#include "tests/app/apps/AppsOnPhone.h"
#include "tests/support/MenuDriver.h"
#include "tests/support/SiteServer.h"

namespace quorvi {
namespace {

using testing::HasSubstr;

constexpr const char* kStorePath = "feedback/apk_list.php";
constexpr std::size_t kRefresh = 0;
constexpr std::size_t kUninstall = 1;

class AppStory : public AppsOnPhone {
  public:
    static void SetUpTestSuite() {
        site_ = std::make_unique<SiteServer>();
        site_->Serve(kStorePath, "[]");
        StandUp(MakersWithSite(site_->Root()));
    }
    static void TearDownTestSuite() {
        AppsOnPhone::TearDownTestSuite();
        site_.reset();
    }

  protected:
    void SetUp() override {
        AppsOnPhone::SetUp();
        OpenFresh(kApps);
        ASSERT_TRUE(WaitAllEnded());
        ASSERT_EQ(List().RowCount(), kRows);
        Tell("log clear");
    }
    // Chooses from the menu of a row, as the user does by mouse and key.
    static void Choose(const std::string& package, int command) {
        ChooseFrom(OpenRowMenu(ThePage(), List(), RowOf(package), columnName), command);
    }
    static std::size_t Listed() { return Requests(870802).size(); }
    static std::string Installed() {
        return Desk().Rig().Adb({"shell", "pm", "list", "packages"}).output;
    }

    static std::unique_ptr<SiteServer> site_;
};

std::unique_ptr<SiteServer> AppStory::site_;

TEST_F(AppStory, TheListShowsWhatIsInstalled) {
    EXPECT_EQ(At("com.example.weather", columnName).text, ToQString(u8"小区天气"));
    EXPECT_EQ(At("com.example.weather", columnVersion).text, QStringLiteral("3.2"));
    EXPECT_EQ(At("com.example.weather", columnVersion).second, QStringLiteral("1.33 MB"));
    EXPECT_EQ(At("android", columnInstalled).text, ToQString(u8"从未"));
    // 4 GiB and some: its lower bits alone.
    EXPECT_EQ(At("com.example.audiobooks", columnVersion).second, QStringLiteral("318 MB"));
    EXPECT_EQ(Status(), ToQString(u8"就绪"));
}

TEST_F(AppStory, AnAppIsStartedAndNoListIsRead) {
    Choose("com.example.gomoku", CAppPage::menuRun);
    ASSERT_TRUE(WaitIdle());
    ASSERT_EQ(Requests(870805).size(), 1u);
    EXPECT_THAT(Requests(870805)[0], HasSubstr(Hex(WireBytes()
                                                       .U32(870805)  // code
                                                       .U32(1)       // count
                                                       .U32(34)      // total
                                                       .Text("com.example.gomoku"))));
    EXPECT_EQ(Listed(), 0u);
    EXPECT_EQ(Status(), ToQString(u8"就绪"));
}

TEST_F(AppStory, OneThatIsUninstalledIsGoneFromThePhoneAndTheListIsReadOnce) {
    Choose("com.example.notes", CAppPage::menuUninstall);
    ASSERT_TRUE(WaitFor([] { return List().RowCount() == kRows - 1; }));
    ASSERT_TRUE(WaitAllEnded());
    EXPECT_EQ(Listed(), 1u);
    EXPECT_EQ(RowOf("com.example.notes"), -1);
    EXPECT_EQ(Installed().find("com.example.notes"), std::string::npos);
    EXPECT_EQ(Status(), ToQString(u8"已卸载 1 个应用"));
}

TEST_F(AppStory, OneThatIsTickedIsAskedForAndUninstalled) {
    ClickCell(List(), RowOf("com.example.run"), columnTick);
    Command(kUninstall);
    EXPECT_EQ(ConfirmDelete(), ToQString(u8"您真的要删除选择的【 1 】个应用吗？"));
    ASSERT_TRUE(WaitFor([] { return List().RowCount() == kRows - 1; }));
    ASSERT_TRUE(WaitAllEnded());
    EXPECT_EQ(Listed(), 1u);
    EXPECT_EQ(RowOf("com.example.run"), -1);
}

TEST_F(AppStory, OneThatIsGoneByThenIsToldInWords) {
    ASSERT_THAT(Desk().Rig().Adb({"uninstall", "com.example.bus"}).output, HasSubstr("Success"));
    Choose("com.example.bus", CAppPage::menuUninstall);
    ASSERT_TRUE(WaitFor([] { return List().RowCount() == kRows - 1; }));
    ASSERT_TRUE(WaitAllEnded());
    EXPECT_THAT(Status().toStdString(),
                HasSubstr(ToQString(u8"“公交到站”没有卸载：").toStdString()));
}

TEST_F(AppStory, RatingsArriveFromTheSite) {
    site_->Serve(kStorePath, R"([{"pkg":"com.example.weather","level":"5","id":"4711",)"
                             R"("category":"生活","description":"六日预报与生活指数"},)"
                             R"({"pkg":"com.example.dictionary","level":"4","id":"12",)"
                             R"("category":"工具","description":"离线英汉双解"}])");
    const std::size_t before = site_->Requests(0).size();
    Command(kRefresh);
    ASSERT_TRUE(WaitAllEnded());
    EXPECT_EQ(At("com.example.weather", columnRating).value, 5);
    EXPECT_EQ(At("com.example.weather", columnCategory).text, ToQString(u8"生活"));
    EXPECT_EQ(At("com.example.weather", columnName).second, ToQString(u8"六日预报与生活指数"));
    EXPECT_EQ(At("com.example.dictionary", columnRating).value, 4);
    EXPECT_EQ(At("com.example.chat", columnRating).value, 3);
    EXPECT_EQ(At("com.example.chat", columnCategory).text, ToQString(u8"未知"));
    const auto requests = site_->Requests(before + 1);
    ASSERT_EQ(requests.size(), before + 1);
    EXPECT_EQ(requests.back().line, "POST /feedback/apk_list.php HTTP/1.1");
    EXPECT_THAT(requests.back().body, HasSubstr("apps={"));
    EXPECT_THAT(requests.back().body, HasSubstr("\"com.example.weather\""));
}

TEST_F(AppStory, TheLinkLeadsToTheAppInTheStoreWhichDoesNotLoadItsFrontPage) {
    site_->Serve(kStorePath, R"([{"pkg":"com.example.chat","level":"5","id":"4711"}])");
    Command(kRefresh);
    ASSERT_TRUE(WaitAllEnded());
    const int row = RowOf("com.example.chat");
    List().SelectRow(row);
    QTest::mouseClick(List().viewport(), Qt::LeftButton, {},
                      List().LinkRect(row, columnCategory).center());
    ASSERT_TRUE(WaitFor([] { return Window().MainPage() == kStorePage.page; }));
    const auto& store = *dynamic_cast<NotedStore*>(Window().ShownPage());
    ASSERT_TRUE(WaitFor([&] { return !store.messages.empty(); }));
    EXPECT_EQ(store.messages, (std::vector{std::pair{Message::openStoreItem, 4711}}));
    EXPECT_EQ(static_cast<int>(Message::openStoreItem), 1275);
    EXPECT_EQ(store.loads, 0);
    EXPECT_EQ(Window().LoadState().Value(kStorePage.loadKey), PageLoadState::kEnded);
}

TEST_F(AppStory, HostileAppsAreShownAndNoneOfThemIsUninstalled) {
    Tell("data hostile 1");
    Command(kRefresh);
    ASSERT_TRUE(WaitAllEnded());
    ASSERT_GT(List().RowCount(), kRows);
    const std::string before = Installed();
    for (int row = kRows; row < List().RowCount(); ++row) {
        List().SelectRow(row);
        static_cast<void>(List().viewport()->grab());
        if (!IsPackageName(List().At(row).package)) {
            EXPECT_FALSE(List().CellAt(row, columnName).note.isEmpty());
            ThePage().Uninstall({{List().At(row).name, List().At(row).package}});
        }
    }
    ASSERT_TRUE(WaitAllEnded());
    EXPECT_TRUE(Status().startsWith(ToQString(u8"【X】")));
    EXPECT_EQ(Installed(), before);
}

}  // namespace
}  // namespace quorvi
