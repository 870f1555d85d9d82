// What the site says of the applications on the page.
#include <QScrollBar>
#include <QSignalSpy>

#include "base/Json.h"
#include "online/CheckSum.h"
#include "tests/pages/apps/AppPageFixture.h"

namespace quorvi {
namespace {

// An element of the site's reply.
std::string Said(const std::string& package, const std::string& level, const std::string& id = "17",
                 const std::string& category = "工具", const std::string& description = "查词") {
    return R"({"pkg":")" + package + R"(","level":")" + level + R"(","id":")" + id +
           R"(","category":")" + category + R"(","description":")" + description + R"("})";
}

// The reply for so many packages, com.0 and so on.
std::string SaidOf(int count, const std::string& level) {
    std::string reply = "[";
    for (int i = 0; i < count; ++i) {
        reply += (i == 0 ? "" : ",") + Said("com." + std::to_string(i), level);
    }
    return reply + "]";
}

std::vector<ListedApp> Apps(int count) {
    std::vector<ListedApp> apps;
    for (int i = 0; i < count; ++i) {
        apps.push_back({.package = "com." + std::to_string(i)});
    }
    return apps;
}

class AppPageStore : public AppPageTest {
  protected:
    // Loads, and waits until the site holds the request.
    void LoadWhileTheSiteIsHeld() {
        site_.Hold();
        OpenAt(agent_.Port()).Load();
        ASSERT_TRUE(WaitFor([&] { return site_.Bodies().size() == 1; }));
        ASSERT_EQ(Key(), PageLoadState::kEnded);
    }
    void ReleaseSite() {
        site_.Release();
        Settle();
    }
};

TEST_F(AppPageStore, TheSiteIsToldThePackagesAndWhatThePhoneIs) {
    OpenLoaded();
    ASSERT_EQ(site_.Bodies().size(), 1u);
    const std::string& body = site_.Bodies()[0];
    ASSERT_TRUE(body.starts_with("apps={"));
    ASSERT_TRUE(body.ends_with("&"));
    const auto document = ParseFirstJson(std::string_view(body).substr(5));
    ASSERT_TRUE(document);
    const std::vector<std::string> packages{"com.a", "com.b", "com.c"};
    EXPECT_EQ((*document)["CheckSum"].asString(), StoreCheckCheckSum(packages));
    EXPECT_EQ((*document)["Client"].asInt(), 7);
    EXPECT_EQ((*document)["Api"].asInt(), 10);
    EXPECT_EQ((*document)["Model"].asString(), "HTC Desire");
    ASSERT_EQ((*document)["PackageName"].size(), 3u);
    EXPECT_EQ((*document)["PackageName"][2].asString(), "com.c");
}

TEST_F(AppPageStore, APhoneThatDoesNotSayWhatItIsLeavesWhatWasKnown) {
    OpenLoaded();
    agent_.AnswerNoData(AgentCommand::deviceSummary);
    LoadAgain();
    ASSERT_EQ(site_.Bodies().size(), 2u);
    EXPECT_EQ(site_.Bodies()[1], site_.Bodies()[0]);
    EXPECT_TRUE(host_.statuses.isEmpty());
}

TEST_F(AppPageStore, AnEmptyListPostsNothing) {
    agent_.AnswerNoData(AgentCommand::listApplications);
    OpenLoaded();
    EXPECT_TRUE(site_.Bodies().empty());
}

TEST_F(AppPageStore, TheAnswersComeIntoTheirRows) {
    site_.AnswerPage("[" + Said("com.c", "5", "9", "生活", "六日预报") + "," +
                     Said("com.a", "4", "17", "工具", "离线英汉双解") + "]\n");
    OpenLoaded();
    EXPECT_EQ(At(0, columnName).second, ToQString(u8"离线英汉双解"));
    EXPECT_EQ(Shown(0, columnCategory), ToQString(u8"工具"));
    EXPECT_EQ(At(0, columnRating).value, 4);
    EXPECT_EQ(List().At(0).store.storeId, 17);
    EXPECT_EQ(At(2, columnName).second, ToQString(u8"六日预报"));
    EXPECT_EQ(At(2, columnRating).value, 5);
    EXPECT_EQ(List().At(2).store.storeId, 9);
}

TEST_F(AppPageStore, APackageThatTheSiteDoesNotKnowStaysAsItIs) {
    site_.AnswerPage("[" + Said("com.a", "4") + "," + Said("com.other", "1") + "]");
    OpenLoaded();
    EXPECT_EQ(At(1, columnName).second, QStringLiteral("N/A"));
    EXPECT_EQ(Shown(1, columnCategory), ToQString(u8"未知"));
    EXPECT_EQ(At(1, columnRating).value, 3);
    EXPECT_EQ(List().At(1).store.storeId, -1);
}

TEST_F(AppPageStore, OfTwoAnswersForOnePackageTheLaterStands) {
    site_.AnswerPage("[" + Said("com.a", "4") + "," + Said("com.a", "1", "18") + "]");
    OpenLoaded();
    EXPECT_EQ(At(0, columnRating).value, 1);
    EXPECT_EQ(List().At(0).store.storeId, 18);
}

TEST_F(AppPageStore, TwoRowsOfOnePackageBothHaveItsAnswer) {
    ListApps({{.package = "com.a"}, {.package = "com.a"}});
    site_.AnswerPage("[" + Said("com.a", "4") + "]");
    OpenLoaded();
    EXPECT_EQ(At(0, columnRating).value, 4);
    EXPECT_EQ(At(1, columnRating).value, 4);
}

TEST_F(AppPageStore, ARefreshBringsTheDefaultsBackUntilTheSiteAnswersAgain) {
    site_.AnswerPage("[" + Said("com.a", "4") + "]");
    OpenLoaded();
    ASSERT_EQ(At(0, columnRating).value, 4);
    site_.AnswerPage("[]");
    LoadAgain();
    EXPECT_EQ(At(0, columnRating).value, 3);
    EXPECT_EQ(Shown(0, columnCategory), ToQString(u8"未知"));
}

TEST_F(AppPageStore, AnswersChangeRowsInPlaceAndTheUserLosesNothing) {
    ListApps(Apps(200));
    site_.AnswerPage(SaidOf(200, "5"));
    LoadWhileTheSiteIsHeld();
    ASSERT_EQ(List().RowCount(), 200);
    ClickCell(List(), 120, columnTick);
    ClickCell(List(), 130, columnName);
    const int scrolled = List().verticalScrollBar()->value();
    ASSERT_GT(scrolled, 0);
    ReleaseSite();
    EXPECT_EQ(At(130, columnRating).value, 5);
    EXPECT_EQ(List().CurrentRow(), 130);
    EXPECT_EQ(List().TickedRows(), std::vector<int>{120});
    EXPECT_EQ(List().verticalScrollBar()->value(), scrolled);
    EXPECT_TRUE(List().Redraw());
}

TEST_F(AppPageStore, OnlyRowsThatChangedAreRepainted) {
    // What the site says of com.b is what the row shows already.
    site_.AnswerPage("[" + Said("com.c", "1") + "," + Said("com.b", "3", "-1", "未知", "N/A") +
                     "]");
    LoadWhileTheSiteIsHeld();
    const QImage before = List().viewport()->grab().toImage();
    const QSignalSpy changed(List().model(), &QAbstractItemModel::dataChanged);
    ReleaseSite();
    ASSERT_EQ(changed.size(), 1);
    EXPECT_EQ(changed[0][0].toModelIndex().row(), 2);
    EXPECT_NE(List().viewport()->grab().toImage(), before);
}

TEST_F(AppPageStore, AnswersOfAnOldListComeToTheirPackagesWhereverTheyStandNow) {
    site_.AnswerPage("[" + Said("com.a", "1") + "," + Said("com.b", "2") + "]");
    LoadWhileTheSiteIsHeld();
    ListApps({{.package = "com.new"}, {.package = "com.b"}});
    page_->Load();
    ASSERT_TRUE(WaitFor([&] { return Loads() == 2 && Key() == PageLoadState::kEnded; }));
    ReleaseSite();
    EXPECT_EQ(At(0, columnRating).value, 3);
    EXPECT_EQ(At(1, columnRating).value, 2);
    // While one store check runs no second one is started.
    EXPECT_EQ(site_.Bodies().size(), 1u);
}

TEST_F(AppPageStore, AnswersThatComeWhileTheListLoadsAreDropped) {
    site_.AnswerPage("[" + Said("com.a", "1") + "]");
    LoadWhileTheSiteIsHeld();
    agent_.Hold(AgentCommand::listApplications);
    page_->Load();
    ASSERT_TRUE(WaitFor([&] { return Loads() == 2; }));
    site_.Release();
    ASSERT_TRUE(WaitFor([&] { return RunningJobs() == 1; }));  // the list's alone
    EXPECT_EQ(List().RowCount(), 0);
    site_.AnswerPage("[]");
    agent_.Release();
    Settle();
    EXPECT_EQ(At(0, columnRating).value, 3);
    EXPECT_EQ(site_.Bodies().size(), 2u);
}

TEST_F(AppPageStore, ALevelOutsideTheScaleIsKeptAndShowsNoStar) {
    site_.AnswerPage("[" + Said("com.a", "6") + "," + Said("com.b", "-1") + "," +
                     Said("com.c", "0") + "]");
    OpenLoaded();
    EXPECT_EQ(At(0, columnRating).value, 6);
    EXPECT_EQ(At(1, columnRating).value, -1);
    const QImage shot = List().viewport()->grab().toImage();
    const auto strip = [&](int row) { return shot.copy(List().CellRect(row, columnRating)); };
    EXPECT_EQ(strip(0), strip(2));  // on the same ground
}

TEST_F(AppPageStore, HostileAnswersAreShownAsTheyStandInOneLine) {
    site_.AnswerPage("[" + Said("com.a", "4", "17", R"(<i>x</i>\ny)", R"(<a href='file:///'>)") +
                     "]");
    OpenLoaded();
    EXPECT_EQ(Shown(0, columnCategory), QStringLiteral("<i>x</i> y"));
    EXPECT_EQ(At(0, columnName).second, QStringLiteral("<a href='file:///'>"));
}

// Replies that say nothing.
class AppPageBadSite : public AppPageStore, public testing::WithParamInterface<const char*> {};

TEST_P(AppPageBadSite, LeavesTheRowsAsTheyAreWithoutAWord) {
    site_.AnswerBytes(GetParam());
    OpenLoaded();
    ASSERT_EQ(site_.Bodies().size(), 1u);
    for (int row = 0; row < 3; ++row) {
        EXPECT_EQ(List().At(row).store, StoreFacts());
    }
    EXPECT_TRUE(host_.statuses.isEmpty());
    site_.AnswerPage("[" + Said("com.a", "4") + "]");
    LoadAgain();
    EXPECT_EQ(At(0, columnRating).value, 4);
}

INSTANTIATE_TEST_SUITE_P(
    Each, AppPageBadSite,
    testing::Values("", "HTTP/1.1 404 Not Found\r\nContent-Length: 4\r\n\r\ngone",
                    "HTTP/1.1 301 Moved\r\nLocation: http://127.0.0.1:1/\r\n\r\n",
                    "HTTP/1.1 200 OK\r\nContent-Length: 900\r\n\r\n[{\"pkg\":\"com.a\",\"level\"",
                    "HTTP/1.1 200 OK\r\n\r\n<html></html>", "HTTP/1.1 200 OK\r\n\r\n17",
                    "HTTP/1.1 200 OK\r\n\r\n\"com.a\"", "HTTP/1.1 200 OK\r\n\r\nnull",
                    "HTTP/1.1 200 OK\r\n\r\n[[{\"pkg\":\"com.a\"}],17,null]"));

TEST_F(AppPageStore, MayGoWhileItsSiteIsSilent) {
    LoadWhileTheSiteIsHeld();
    page_.reset();
    ReleaseSite();
    EXPECT_TRUE(host_.statuses.isEmpty());
}

}  // namespace
}  // namespace quorvi
