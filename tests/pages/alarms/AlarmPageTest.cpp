#include <QHeaderView>
#include <QLabel>

#include "tests/pages/alarms/AlarmPageFixture.h"
#include "tests/support/Contrast.h"
#include "tests/support/LoopbackAgent.h"

namespace quorvi {
namespace {

TEST_F(AlarmPage, NumbersAreTheControls) {
    CAlarmPage& page = Open();
    EXPECT_EQ(page.objectName(), QStringLiteral("dialog 403"));
    EXPECT_EQ(CAlarmPage::kNumbers.loadKey, 4);
    EXPECT_EQ(CAlarmPage::kNumbers.page, 13);
    EXPECT_NE(FindControl(&page, 1090), nullptr);
    Settle();
    EXPECT_EQ(Loads(), 0u);  // the navigator loads it, not the page itself
}

TEST_F(AlarmPage, ColumnsAreAsTold) {
    Open();
    const std::vector<std::pair<std::u8string_view, int>> columns{
        {u8"图例", 54},      {u8"标题和时间", 150}, {u8"闹铃周期 (星期)", 170},
        {u8"闹铃音乐", 130}, {u8"振动提醒", 80},    {u8"状态", 100},
        {u8"选择", 44}};
    ASSERT_EQ(List().ColumnCount(), 7);
    for (int i = 0; i < 7; ++i) {
        EXPECT_EQ(List().Column(i).caption, columns[static_cast<std::size_t>(i)].first);
        EXPECT_EQ(List().Column(i).width, columns[static_cast<std::size_t>(i)].second);
        EXPECT_EQ(List().Column(i).align, i == 4 ? CellAlign::left : CellAlign::centre);
    }
}

TEST_F(AlarmPage, LoadShowsEachAlarmInItsRowInTheOrderOfTheAgent) {
    OpenLoaded();
    ASSERT_EQ(List().RowCount(), 3);
    EXPECT_EQ(At(0, 1).text, ToQString(u8"起床"));
    EXPECT_EQ(At(0, 1).second, QStringLiteral("07:05"));
    EXPECT_EQ(At(0, 2).text, ToQString(u8"一 二 三 四 五 "));
    EXPECT_EQ(At(0, 3).text, ToQString(u8"晨光"));
    EXPECT_EQ(At(1, 1).text, ToQString(u8"午饭"));
    EXPECT_EQ(At(1, 1).second, QStringLiteral("12:30"));
    EXPECT_TRUE(List().Redraw());
    EXPECT_EQ(List().CurrentRow(), -1);
    EXPECT_TRUE(host_.statuses.isEmpty());
    EXPECT_EQ(Loads(), 1u);
}

TEST_F(AlarmPage, EveryDayHasAWordAndNoDayIsOnce) {
    OpenLoaded();
    EXPECT_EQ(At(2, 2).text, ToQString(u8"每天"));
    EXPECT_EQ(At(2, 2).second, ToQString(u8"有重复"));
    EXPECT_EQ(At(1, 2).text, ToQString(u8"无重复"));
    EXPECT_EQ(At(1, 2).second, ToQString(u8"仅一次"));
}

TEST_F(AlarmPage, MondayStandsBeforeSundayEachWithABlankBehindIt) {
    OpenLoaded({{.days = 1}, {.id = 8, .days = 0x41}});
    EXPECT_EQ(At(0, 2).text, ToQString(u8"一 "));
    EXPECT_EQ(At(1, 2).text, ToQString(u8"一 日 "));
}

TEST_F(AlarmPage, SwitchesAreSaidInWordsAndSignsButNotOfferedToBeSwitched) {
    OpenLoaded();
    EXPECT_EQ(At(0, 4).text, ToQString(u8"振动关闭"));
    EXPECT_EQ(At(1, 4).text, ToQString(u8"振动提醒"));
    EXPECT_EQ(At(0, 5).text, ToQString(u8"已启用"));
    EXPECT_EQ(At(1, 5).text, ToQString(u8"已禁用"));
    EXPECT_EQ(At(0, 0).icon, QStringLiteral("alarms"));
    for (const int column : {0, 5}) {
        EXPECT_FALSE(At(0, column).off);
        EXPECT_TRUE(At(1, column).off);
    }
    for (const int column : {0, 4, 5}) {
        ClickCell(List(), 0, column);
    }
    Settle();
    EXPECT_EQ(agent_.Requests().size(), 1u);  // the list
}

TEST_F(AlarmPage, AClickOnAColumnHeaderDoesNothing) {
    OpenLoaded();
    QTest::mouseClick(List().horizontalHeader()->viewport(), Qt::LeftButton, {},
                      {List().columnViewportPosition(1) + 20, 10});
    EXPECT_EQ(At(0, 1).text, ToQString(u8"起床"));
    EXPECT_EQ(List().CurrentRow(), -1);
}

TEST_F(AlarmPage, TextsReadOnEveryGroundOfARow) {
    OpenLoaded();
    ExpectReadableRows(List());
}

TEST_F(AlarmPage, InAWideWindowTheNamesTakeWhatIsLeft) {
    OpenLoaded();
    const int before = List().columnWidth(1);
    page_->resize(page_->width() + 400, page_->height());
    EXPECT_EQ(List().columnWidth(1), before + 400);
    EXPECT_EQ(List().columnWidth(6), 44);
}

TEST_F(AlarmPage, CountsItsRowsAndTicks) {
    OpenLoaded();
    List().SetTicked(1, true);
    EXPECT_TRUE(WaitFor([&] { return page_->CountLine() == ToQString(u8"共 3 项 · 已选 1 项"); }));
}

TEST_F(AlarmPage, WhileItLoadsTheListIsClearedWithoutRedrawAndARefreshIsDropped) {
    CAlarmPage& page = OpenLoaded();
    List().SetTicked(0, true);
    agent_.Hold(AgentCommand::listAlarms);
    page.OnCommand(CAlarmPage::commandRefresh);
    EXPECT_EQ(List().RowCount(), 0);
    EXPECT_FALSE(List().Redraw());
    EXPECT_EQ(List().State(), ListState::loading);
    ASSERT_TRUE(WaitFor([&] { return Key() == PageLoadState::kRunning; }));
    page.OnCommand(CAlarmPage::commandRefresh);
    agent_.Release();
    WaitForLoads(2);
    EXPECT_TRUE(List().Redraw());
    EXPECT_TRUE(List().TickedRows().empty());
    Settle();
    EXPECT_EQ(Loads(), 2u);
}

TEST_F(AlarmPage, ConnectFailureIsToldAndRedrawGoesOn) {
    OpenAt(UnusedPort()).Load();
    ASSERT_TRUE(WaitFor([&] { return Key() == PageLoadState::kEnded; }));
    EXPECT_EQ(host_.statuses, QStringList{kConnectError});
    EXPECT_EQ(List().RowCount(), 0);
    EXPECT_TRUE(List().Redraw());
    EXPECT_EQ(List().State(), ListState::failed);
}

// Replies that end the worker early.
class AlarmPageEarlyEnd : public AlarmPage,
                          public testing::WithParamInterface<ScriptedAgent::Reply> {};

TEST_P(AlarmPageEarlyEnd, LeavesRedrawOffUntilALaterLoadGetsFurther) {
    OpenLoaded();
    agent_.Answer(AgentCommand::listAlarms, GetParam());
    LoadAgain();
    EXPECT_FALSE(List().Redraw());
    EXPECT_EQ(List().RowCount(), 0);
    EXPECT_EQ(Key(), PageLoadState::kEnded);
    EXPECT_TRUE(host_.statuses.isEmpty());
    agent_.AnswerPayload(AgentCommand::listAlarms, AlarmsPayload(three_).Get());
    LoadAgain();
    EXPECT_TRUE(List().Redraw());
    EXPECT_EQ(List().RowCount(), 3);
}

INSTANTIATE_TEST_SUITE_P(
    NoData_Closed_Broken, AlarmPageEarlyEnd,
    testing::Values(ScriptedAgent::Reply{Word(NoDataMark)}, ScriptedAgent::Reply{Bytes{}},
                    ScriptedAgent::Reply{Join({Word(100), Word(0)}), ScriptedAgent::End::reset}));

TEST_F(AlarmPage, AnAbsentLabelLeavesARowThatTellsOnlyWhetherItRepeatsAndNoRedraw) {
    WireBytes bytes = AlarmsPayload({{}});
    bytes
        .U64(8)     // alarm id
        .U32(7)     // hour
        .U32(5)     // minute
        .U32(1)     // days
        .U32(1)     // enabled
        .U32(1)     // vibrate
        .Absent();  // label
    agent_.AnswerPayload(AgentCommand::listAlarms, bytes.Get());
    OpenLoaded();
    ASSERT_EQ(List().RowCount(), 2);
    EXPECT_FALSE(List().Redraw());
    EXPECT_EQ(At(1, 2).text, QString());
    EXPECT_EQ(At(1, 2).second, ToQString(u8"有重复"));
    for (const int column : {0, 1, 3, 4, 5}) {
        EXPECT_EQ(At(1, column).text + At(1, column).second + At(1, column).icon, QString());
    }
    // Nothing of it can be changed or deleted.
    List().SelectRow(1);
    EXPECT_EQ(Selected(), std::nullopt);
    List().SetTicked(1, true);
    page_->OnCommand(CAlarmPage::commandDelete);
    EXPECT_NE(OpenDialog(kNothingChecked), nullptr);
    PressIn(kNothingChecked, kOk);
}

TEST_F(AlarmPage, DeletingWithNothingTickedSaysSo) {
    OpenLoaded().OnCommand(CAlarmPage::commandDelete);
    EXPECT_NE(OpenDialog(kNothingChecked), nullptr);
    PressIn(kNothingChecked, kOk);
    Settle();
    EXPECT_TRUE(agent_.Requests(AgentCommand::deleteAlarms).empty());
}

TEST_F(AlarmPage, DeletingTickedAlarmsAsksSendsTheirIdsAndLoadsAgain) {
    CAlarmPage& page = OpenLoaded();
    List().SetTicked(0, true);
    List().SetTicked(2, true);
    page.OnCommand(CAlarmPage::commandDelete);
    EXPECT_EQ(FindControl<QLabel>(OpenDialog(kConfirm), 1378)->text(),
              ToQString(u8"您真的要删除选择的【 2 】条闹铃提醒吗？"));
    PressIn(kConfirm, kOk);
    WaitForLoads(2);
    EXPECT_EQ(agent_.Requests(AgentCommand::deleteAlarms),
              std::vector<Bytes>{Join({Word(870405), Word(20), Word(2), Word(7), Word(9)})});
}

TEST_F(AlarmPage, AnythingButTheDeleteButtonDeletesNothing) {
    CAlarmPage& page = OpenLoaded();
    List().SetTicked(0, true);
    page.OnCommand(CAlarmPage::commandDelete);
    PressIn(kConfirm, kCancel);
    page.OnCommand(CAlarmPage::commandDelete);
    OpenDialog(kConfirm)->close();
    Settle();
    EXPECT_TRUE(agent_.Requests(AgentCommand::deleteAlarms).empty());
    EXPECT_EQ(Loads(), 1u);
}

TEST_F(AlarmPage, ADeleteThatFindsNoPhoneIsToldAndTheListIsLoadedAgain) {
    auto phone = std::make_unique<ScriptedAgent>();
    phone->AnswerPayload(AgentCommand::listAlarms, AlarmsPayload(three_).Get());
    CAlarmPage& page = OpenAt(phone->Port());
    page.Load();
    ASSERT_TRUE(WaitFor([&] { return List().RowCount() == 3; }));
    phone.reset();
    List().SetTicked(0, true);
    page.OnCommand(CAlarmPage::commandDelete);
    PressIn(kConfirm, kOk);
    ASSERT_TRUE(WaitFor([&] { return host_.statuses.size() == 2; }));
    EXPECT_EQ(host_.statuses, (QStringList{kConnectError, kConnectError}));
    EXPECT_EQ(List().RowCount(), 0);
}

TEST_F(AlarmPage, IsDisabledWhileADeleteIsOnItsWay) {
    CAlarmPage& page = OpenLoaded();
    Click(0);
    List().SetTicked(0, true);
    agent_.Hold(AgentCommand::deleteAlarms);
    page.OnCommand(CAlarmPage::commandDelete);
    PressIn(kConfirm, kOk);
    ASSERT_TRUE(WaitFor([&] { return !agent_.Requests(AgentCommand::deleteAlarms).empty(); }));
    EXPECT_FALSE(page.isEnabled());
    for (const int command : {CAlarmPage::commandRefresh, CAlarmPage::commandAdd,
                              CAlarmPage::commandEdit, CAlarmPage::commandDelete}) {
        page.OnCommand(command);
    }
    EXPECT_EQ(OpenDialog(kEditor), nullptr);
    EXPECT_EQ(OpenDialog(kConfirm), nullptr);
    agent_.Release();
    WaitForLoads(2);
    EXPECT_TRUE(page.isEnabled());
}

TEST_F(AlarmPage, MayGoWhileItsPhoneStalls) {
    GoWhileThePhoneStalls();
}

}  // namespace
}  // namespace quorvi
