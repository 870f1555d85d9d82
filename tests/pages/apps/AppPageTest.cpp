// The applications' page and its list. What the site says is in AppPageStoreTest.cpp, what is done
// with an application in AppPageActionsTest.cpp.
#include <QSignalSpy>

#include "base/Format.h"
#include "tests/pages/apps/AppPageFixture.h"
#include "tests/support/Contrast.h"
#include "tests/support/PictureFiles.h"
#include "ui/kit/SkinChecks.h"

namespace quorvi {
namespace {

TEST_F(AppPageTest, NumbersAreTheControls) {
    CAppPage& page = OpenAt(agent_.Port());
    EXPECT_EQ(page.objectName(), QStringLiteral("dialog 134"));
    EXPECT_EQ(CAppPage::kNumbers.page, 30);
    EXPECT_EQ(CAppPage::kNumbers.loadKey, 8);
    Settle();
    EXPECT_EQ(Loads(), 0u);  // the navigator loads it, not the page itself
}

TEST_F(AppPageTest, ColumnsAreAsTold) {
    OpenAt(agent_.Port());
    const std::vector<std::pair<std::u8string_view, int>> columns{
        {u8"图标", 60}, {u8"应用名称和描述", 180}, {u8"分类", 80}, {u8"评级", 130}, {u8"版本", 56},
        {u8"提示", 74}, {u8"安装日期", 120},       {u8"选择", 40}};
    ASSERT_EQ(List().ColumnCount(), 8);
    for (int i = 0; i < 8; ++i) {
        const ListColumn& column = List().Column(i);
        EXPECT_EQ(column.caption, columns[static_cast<std::size_t>(i)].first);
        EXPECT_EQ(column.width, columns[static_cast<std::size_t>(i)].second);
        EXPECT_EQ(column.align, i == columnVersion ? CellAlign::left : CellAlign::centre);
        EXPECT_EQ(column.cells, column.align);
    }
}

TEST_F(AppPageTest, ARowShowsWhatThePhoneSaysOfAnApplication) {
    OpenLoaded();
    ASSERT_EQ(List().RowCount(), 3);
    EXPECT_TRUE(List().Redraw());
    EXPECT_EQ(Shown(0, columnName), ToQString(u8"掌上词典"));
    EXPECT_EQ(At(0, columnName).ink, look::Color::ink);
    EXPECT_EQ(At(0, columnName).secondInk, look::Color::ink2);
    EXPECT_EQ(Shown(0, columnVersion), QStringLiteral("2.1.0"));
    EXPECT_EQ(At(0, columnVersion).ink, look::Color::ink);
    EXPECT_EQ(At(0, columnVersion).second, QStringLiteral("1.29 MB"));
    EXPECT_EQ(At(0, columnVersion).secondInk, look::Color::red);
    EXPECT_EQ(Shown(0, columnHint), ToQString(u8"已最新"));
    EXPECT_EQ(At(0, columnHint).ink, look::Color::green);
    EXPECT_EQ(Shown(0, columnInstalled), ToQString(FormatUnixTime(1'320'000'000)));
    EXPECT_FALSE(List().IsTicked(0));
    EXPECT_TRUE(host_.statuses.isEmpty());
}

TEST_F(AppPageTest, ARowKnowsNothingOfTheStoreAtFirst) {
    OpenLoaded();
    EXPECT_EQ(At(0, columnName).second, QStringLiteral("N/A"));
    EXPECT_EQ(Shown(0, columnCategory), ToQString(u8"未知"));
    EXPECT_EQ(At(0, columnCategory).second, ToQString(u8"详细"));
    EXPECT_EQ(At(0, columnCategory).secondInk, look::Color::blue);
    EXPECT_EQ(At(0, columnRating).value, 3);
    EXPECT_EQ(Shown(0, columnRating), QString());
}

TEST_F(AppPageTest, AnInstallTimeOfZeroIsNever) {
    OpenLoaded();
    EXPECT_EQ(Shown(1, columnInstalled), ToQString(u8"从未"));
}

TEST_F(AppPageTest, ASizeOfFourGigabytesShowsItsLowerBits) {
    OpenLoaded();
    EXPECT_EQ(At(2, columnVersion).second, ToQString(FormatByteSize(532)));
}

TEST_F(AppPageTest, TheHintIsGreenForStatusOneAndForAnyOverThree) {
    OpenAt(agent_.Port());
    const std::vector<std::pair<std::int32_t, look::Color>> inks{
        {0, look::Color::ink}, {1, look::Color::green}, {2, look::Color::ink},
        {3, look::Color::ink}, {4, look::Color::green}, {99, look::Color::green}};
    AppList list;
    for (const auto& [status, ink] : inks) {
        list.rows.emplace_back().status = status;
    }
    List().Show(std::move(list));
    for (int row = 0; row < List().RowCount(); ++row) {
        EXPECT_EQ(At(row, columnHint).ink, inks[static_cast<std::size_t>(row)].second) << row;
        EXPECT_EQ(Shown(row, columnHint), ToQString(u8"已最新"));
    }
}

TEST_F(AppPageTest, AnAppWithoutAnIconHasTheDefaultPicture) {
    OpenLoaded();
    EXPECT_EQ(List().PictureAt(0).bytes, "icon");
    EXPECT_TRUE(List().PictureAt(1).bytes.empty());
    EXPECT_EQ(List().PictureAt(1).fallback, u"app-default");
    EXPECT_FALSE(List().PictureAt(1).rounded);
}

TEST_F(AppPageTest, IconsAreDecodedWhenTheirRowIsFirstPaintedAndOnce) {
    std::vector<ListedApp> many(50);
    for (ListedApp& app : many) {
        app.icon = Png(48, 48, 0xFFD64541);
    }
    ListApps(many);
    OpenAt(agent_.Port()).hide();
    LoadAgain();
    EXPECT_EQ(List().Pictures().Decodes(), 0);
    static_cast<void>(List().viewport()->grab());
    const int shown = List().rowAt(List().viewport()->height() - 1) + 1;
    EXPECT_EQ(List().Pictures().Decodes(), shown);
    static_cast<void>(List().viewport()->grab());
    EXPECT_EQ(List().Pictures().Decodes(), shown);
}

TEST_F(AppPageTest, TextsReadOnEveryGroundOfARow) {
    OpenLoaded();
    ExpectReadableRows(List());
}

TEST_F(AppPageTest, InAWideWindowTheNamesTakeWhatIsLeft) {
    OpenLoaded();
    const int before = List().columnWidth(columnName);
    page_->resize(page_->width() + 400, page_->height());
    EXPECT_EQ(List().columnWidth(columnName), before + 400);
    EXPECT_EQ(List().columnWidth(columnTick), 40);
}

TEST_F(AppPageTest, AClickInTheTickColumnFlipsTheTick) {
    OpenLoaded();
    ClickCell(List(), 1, columnTick);
    EXPECT_TRUE(List().IsTicked(1));
    ClickCell(List(), 1, columnTick);
    EXPECT_FALSE(List().IsTicked(1));
    DrainWindow();
    EXPECT_EQ(page_->CountLine(), ToQString(u8"共 3 项 · 已选 0 项"));
}

TEST_F(AppPageTest, AClickOnTheHintDoesNothing) {
    OpenLoaded();
    const auto before = agent_.Requests().size();
    ClickCell(List(), 1, columnHint);
    Settle();
    EXPECT_EQ(agent_.Requests().size(), before);
    EXPECT_TRUE(host_.posted.empty());
    EXPECT_FALSE(host_.loadState.Contains(9));
}

TEST_F(AppPageTest, TheBoxThatHidesSystemAppsIsOnAndReadByNothing) {
    OpenLoaded();
    auto* box = FindControl<CSkinCheck>(page_.get(), 1043);
    ASSERT_NE(box, nullptr);
    EXPECT_EQ(box->text(), ToQString(u8"隐藏系统应用"));
    EXPECT_EQ(box->GetCheck(), 1);
    const auto before = agent_.Requests().size();
    ClickOn(*box);
    EXPECT_EQ(box->GetCheck(), 0);
    Settle();
    EXPECT_EQ(agent_.Requests().size(), before);
    EXPECT_EQ(List().RowCount(), 3);
    LoadAgain();
    EXPECT_EQ(box->GetCheck(), 0);
    EXPECT_EQ(List().RowCount(), 3);
}

TEST_F(AppPageTest, WhileItLoadsTheListIsEmptyWithoutRedrawAndARefreshIsDropped) {
    CAppPage& page = OpenLoaded();
    agent_.Hold(AgentCommand::listApplications);
    page.OnCommand(CAppPage::commandRefresh);
    EXPECT_EQ(List().RowCount(), 0);
    EXPECT_FALSE(List().Redraw());
    EXPECT_EQ(List().State(), ListState::loading);
    ASSERT_TRUE(WaitFor([&] { return Key() == PageLoadState::kRunning; }));
    page.OnCommand(CAppPage::commandRefresh);
    agent_.Release();
    Settle();
    EXPECT_EQ(Loads(), 2u);
    EXPECT_EQ(Key(), PageLoadState::kEnded);
    EXPECT_TRUE(List().Redraw());
    EXPECT_EQ(List().RowCount(), 3);
}

TEST_F(AppPageTest, RowsAreShownWhileThePhoneIsAskedWhatItIsAndARefreshIsDroppedUntilThen) {
    agent_.Hold(AgentCommand::deviceSummary);
    OpenAt(agent_.Port()).Load();
    ASSERT_TRUE(WaitFor([&] { return Identified() == 1 && List().RowCount() == 3; }));
    EXPECT_TRUE(List().Redraw());
    EXPECT_EQ(Key(), PageLoadState::kRunning);
    page_->Load();
    DrainWindow();
    EXPECT_EQ(List().RowCount(), 3);
    EXPECT_TRUE(site_.Bodies().empty());
    agent_.Release();
    Settle();
    EXPECT_EQ(Loads(), 1u);
    EXPECT_EQ(Key(), PageLoadState::kEnded);
    EXPECT_EQ(site_.Bodies().size(), 1u);
}

TEST_F(AppPageTest, AFailedConnectIsFollowedByTheRest) {
    OpenAt(UnusedPort()).Load();
    Settle();
    // Of the list, and of what the phone is: that is asked for all the same.
    EXPECT_EQ(host_.statuses, (QStringList{kConnectError, kConnectError}));
    EXPECT_TRUE(List().Redraw());
    EXPECT_EQ(List().State(), ListState::failed);
    EXPECT_EQ(List().RowCount(), 0);
    EXPECT_EQ(Key(), PageLoadState::kEnded);
    EXPECT_TRUE(site_.Bodies().empty());  // there is no row to ask about
}

TEST_F(AppPageTest, ALoadThatWorksTakesAnOldConnectFailureBack) {
    FailBefore();
    OpenLoaded();
    EXPECT_EQ(host_.status, kReady);
}

// Replies that end the worker early.
class AppPageEarlyEnd : public AppPageTest,
                        public testing::WithParamInterface<ScriptedAgent::Reply> {};

TEST_P(AppPageEarlyEnd, LeavesRedrawOffAndNothingFollows) {
    OpenLoaded();
    agent_.Answer(AgentCommand::listApplications, GetParam());
    LoadAgain();
    EXPECT_FALSE(List().Redraw());
    EXPECT_EQ(List().RowCount(), 0);
    EXPECT_EQ(Key(), PageLoadState::kEnded);
    EXPECT_EQ(Identified(), 1u);            // of the first load
    EXPECT_EQ(site_.Bodies().size(), 1u);   //
    EXPECT_TRUE(host_.statuses.isEmpty());  // nor is anything said
    ListApps({{}});
    LoadAgain();
    EXPECT_TRUE(List().Redraw());
    EXPECT_EQ(List().RowCount(), 1);
    EXPECT_EQ(Identified(), 2u);
    EXPECT_EQ(site_.Bodies().size(), 2u);
}

INSTANTIATE_TEST_SUITE_P(
    Closed_Broken_Absent, AppPageEarlyEnd,
    testing::Values(ScriptedAgent::Reply{Bytes{}},
                    ScriptedAgent::Reply{Join({Word(100), Word(0)}), ScriptedAgent::End::reset},
                    ScriptedAgent::Reply{Join({Word(12), Word(0),   // leading word
                                               Word(0),             // skipped
                                               Word(AbsentMark)})}  // in the place of a name
                    ));

TEST_F(AppPageTest, AnAbsentNameBehindRowsLeavesThemWithoutRedraw) {
    WireBytes bytes = AppsPayload({{}, {}});
    bytes.U32(0).Absent();  // a record whose name is absent
    agent_.AnswerPayload(AgentCommand::listApplications, bytes.Get());
    OpenLoaded();
    EXPECT_EQ(List().RowCount(), 2);
    EXPECT_FALSE(List().Redraw());
    EXPECT_EQ(Identified(), 0u);
    EXPECT_TRUE(site_.Bodies().empty());
    EXPECT_EQ(Key(), PageLoadState::kEnded);
}

TEST_F(AppPageTest, TheMarkOfNoDataIsTakenForALengthAndLeavesAnEmptyListThatIsDrawn) {
    agent_.AnswerNoData(AgentCommand::listApplications);
    OpenLoaded();
    EXPECT_EQ(List().RowCount(), 0);
    EXPECT_TRUE(List().Redraw());
    EXPECT_EQ(List().State(), ListState::idle);
    EXPECT_EQ(Identified(), 1u);
    EXPECT_TRUE(site_.Bodies().empty());
}

TEST_F(AppPageTest, HostileTextsAreShownAsTheyStandInOneLine) {
    ListApps({{.name = "<b>a</b>\n\x1b[2J<img src=x>", .version = std::string(1 << 20, 'x')},
              {.name = std::string("a\0b", 3), .version = "\xff\xfe"}});
    OpenLoaded();
    ASSERT_EQ(List().RowCount(), 2);
    EXPECT_EQ(Shown(0, columnName), QStringLiteral("<b>a</b> \x1b[2J<img src=x>"));
    EXPECT_LE(Shown(0, columnVersion).size(), 1025);
    EXPECT_EQ(Shown(1, columnName), QStringLiteral("ab"));
    EXPECT_FALSE(List().viewport()->grab().isNull());
}

TEST_F(AppPageTest, ARatingIsReadOutAsItsNumberOfStars) {
    OpenLoaded();
    EXPECT_EQ(Spoken(0, columnRating), ToQString(u8"3 星"));
    EXPECT_EQ(Spoken(0, columnIcon), ToQString(u8"有图标"));
    EXPECT_EQ(Spoken(1, columnIcon), ToQString(u8"没有图标"));
}

TEST_F(AppPageTest, MayGoWhileItsPhoneStalls) {
    GoWhileThePhoneStalls();
}

}  // namespace
}  // namespace quorvi
