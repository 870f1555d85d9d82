#include <QAbstractButton>
#include <QLineEdit>
#include <QPushButton>

#include "tests/pages/calls/CallLogPageFixture.h"
#include "tests/support/Contrast.h"
#include "tests/support/LoopbackAgent.h"
#include "ui/list/ListFind.h"

namespace quorvi {
namespace {

TEST_F(CallLogPage, NumbersAreTheControls) {
    CCallLogPage& page = Open();
    EXPECT_EQ(page.objectName(), QStringLiteral("dialog 368"));
    EXPECT_EQ(CCallLogPage::kNumbers.loadKey, 3);
    EXPECT_NE(FindControl(&page, 1072), nullptr);
    Settle();
    EXPECT_EQ(Loads(), 0u);  // the navigator loads it, not the page itself
}

TEST_F(CallLogPage, ColumnsAreAsTold) {
    Open();
    const std::vector<std::pair<std::u8string_view, int>> columns{{u8"头像", 60},
                                                                  {u8"联系人", 160},
                                                                  {u8"类型", 110},
                                                                  {u8"通话用时", 140},
                                                                  {u8"上次联系时间、归属地", 200},
                                                                  {u8"选择", 44},
                                                                  {u8"", 0}};
    ASSERT_EQ(List().ColumnCount(), 7);
    for (int i = 0; i < 7; ++i) {
        EXPECT_EQ(List().Column(i).caption, columns[static_cast<std::size_t>(i)].first);
        EXPECT_EQ(List().Column(i).width, columns[static_cast<std::size_t>(i)].second);
        EXPECT_EQ(List().Column(i).align, i == 4 ? CellAlign::left : CellAlign::centre);
    }
    EXPECT_TRUE(List().isColumnHidden(6));
}

TEST_F(CallLogPage, LoadShowsEachCallInItsRowInTheOrderOfTheAgent) {
    OpenLoaded();
    ASSERT_EQ(List().RowCount(), 3);
    EXPECT_EQ(Text(0, 1), ToQString(u8"林远舟"));
    EXPECT_EQ(List().CellAt(0, 1).second, QStringLiteral("10086"));
    EXPECT_EQ(Text(0, 2), ToQString(u8"已接来电"));
    EXPECT_EQ(List().CellAt(0, 2).icon, QStringLiteral("call-in"));
    EXPECT_EQ(List().CellAt(1, 2).icon, QStringLiteral("call-out"));
    EXPECT_EQ(List().CellAt(2, 2).icon, QStringLiteral("call-missed"));
    EXPECT_EQ(Text(0, 4), QStringLiteral("2011-06-18 09:42:10"));
    EXPECT_EQ(List().CellAt(0, 4).second, ToQString(u8"中国移动"));
    EXPECT_TRUE(List().Redraw());
    EXPECT_EQ(List().CurrentRow(), -1);
    EXPECT_TRUE(host_.statuses.isEmpty());
}

TEST_F(CallLogPage, TheAttributionIsTheOneThatItWasHanded) {
    services_.attribution = [](std::string_view number) { return "of " + std::string(number); };
    OpenLoaded();
    EXPECT_EQ(List().CellAt(1, 4).second, QStringLiteral("of 95588"));
}

TEST_F(CallLogPage, TheHiddenColumnHoldsTheIdWithATrailingBlank) {
    OpenLoaded();
    EXPECT_EQ(Text(0, 6), QStringLiteral("7 "));
}

TEST_F(CallLogPage, DurationsDropTheDaysAndKeepTheirLineFeed) {
    OpenLoaded();
    EXPECT_EQ(Text(1, 3), QStringLiteral("01:01:40\n"));
    EXPECT_EQ(Text(2, 3), QStringLiteral("01:00:00\n"));
}

TEST_F(CallLogPage, AnEmptyNameLeavesItsLineEmptyAboveTheNumber) {
    OpenLoaded();
    EXPECT_EQ(Text(1, 1), QString());
    EXPECT_EQ(List().CellAt(1, 1).second, QStringLiteral("95588"));
}

TEST_F(CallLogPage, ADateOfZeroShowsTheLocalTimeOf1970) {
    OpenLoaded();
    EXPECT_EQ(Text(2, 4), QStringLiteral("1970-01-01 08:00:00"));
}

TEST_F(CallLogPage, AnUnknownTypeHasItsTextAndAMark) {
    agent_.AnswerPayload(AgentCommand::listCalls, CallsPayload({{.type = 0}}).Get());
    OpenLoaded();
    EXPECT_EQ(Text(0, 2), ToQString(u8"未知类型"));
    EXPECT_EQ(List().CellAt(0, 2).icon, QStringLiteral("call"));
}

TEST_F(CallLogPage, TextsReadOnEveryGroundOfARow) {
    OpenLoaded();
    ExpectReadableRows(List());
}

TEST_F(CallLogPage, InAWideWindowTheNamesTakeWhatIsLeft) {
    OpenLoaded();
    const int before = List().columnWidth(1);
    page_->resize(page_->width() + 400, page_->height());
    EXPECT_EQ(List().columnWidth(1), before + 400);
    EXPECT_EQ(List().columnWidth(5), 44);
}

TEST_F(CallLogPage, WhileItLoadsTheListIsClearedWithoutRedrawAndSaysSo) {
    CCallLogPage& page = OpenLoaded();
    List().SetTicked(0, true);
    agent_.Hold(AgentCommand::listCalls);
    page.OnCommand(CCallLogPage::commandRefresh);
    EXPECT_EQ(List().RowCount(), 0);
    EXPECT_FALSE(List().Redraw());
    EXPECT_EQ(List().State(), ListState::loading);
    ASSERT_TRUE(WaitFor([&] { return Key() == PageLoadState::kRunning; }));
    page.OnCommand(CCallLogPage::commandRefresh);  // dropped
    agent_.Release();
    WaitForLoads(2);
    EXPECT_TRUE(List().Redraw());
    EXPECT_TRUE(List().TickedRows().empty());  // ticks are lost at each refresh
    Settle();
    EXPECT_EQ(Loads(), 2u);
}

TEST_F(CallLogPage, ConnectFailureIsToldAndRedrawGoesOn) {
    OpenAt(UnusedPort()).Load();
    ASSERT_TRUE(WaitFor([&] { return Key() == PageLoadState::kEnded; }));
    EXPECT_EQ(host_.statuses, QStringList{kConnectError});
    EXPECT_EQ(List().RowCount(), 0);
    EXPECT_TRUE(List().Redraw());
    EXPECT_EQ(List().State(), ListState::failed);
}

TEST_F(CallLogPage, ALoadThatWorksTakesAnOldConnectFailureBack) {
    FailBefore();
    OpenLoaded();
    EXPECT_EQ(host_.status, kReady);
}

TEST_F(CallLogPage, ALoadThatWorksLeavesAnotherStatusAlone) {
    host_.SetStatus(QStringLiteral("something else"));
    OpenLoaded();
    EXPECT_EQ(host_.status, QStringLiteral("something else"));
}

TEST_F(CallLogPage, AReplyThatDoesNotComeWholeLeavesAConnectFailureStanding) {
    OpenLoaded();
    FailBefore();
    for (const ScriptedAgent::Reply& reply :
         {ScriptedAgent::Reply{Bytes{}}, ScriptedAgent::Reply{Join({Word(100), Word(0)})},
          ScriptedAgent::Reply{Join({Word(100), Word(0)}), ScriptedAgent::End::reset}}) {
        agent_.Answer(AgentCommand::listCalls, reply);
        LoadAgain();
        EXPECT_EQ(host_.status, kConnectError);
    }
    agent_.AnswerNoData(AgentCommand::listCalls);
    LoadAgain();
    EXPECT_EQ(host_.status, kReady);
}

// Replies that end the worker early.
class CallLogPageEarlyEnd : public CallLogPage,
                            public testing::WithParamInterface<ScriptedAgent::Reply> {};

TEST_P(CallLogPageEarlyEnd, LeavesRedrawOffUntilALaterLoadGetsFurther) {
    OpenLoaded();
    agent_.Answer(AgentCommand::listCalls, GetParam());
    LoadAgain();
    EXPECT_FALSE(List().Redraw());
    EXPECT_EQ(List().RowCount(), 0);
    EXPECT_EQ(Key(), PageLoadState::kEnded);
    EXPECT_TRUE(host_.statuses.isEmpty());
    agent_.AnswerPayload(AgentCommand::listCalls, CallsPayload(kThreeCalls).Get());
    LoadAgain();
    EXPECT_TRUE(List().Redraw());
    EXPECT_EQ(List().RowCount(), 3);
}

INSTANTIATE_TEST_SUITE_P(
    NoData_Closed_Broken, CallLogPageEarlyEnd,
    testing::Values(ScriptedAgent::Reply{Word(NoDataMark)}, ScriptedAgent::Reply{Bytes{}},
                    ScriptedAgent::Reply{Join({Word(100), Word(0)}), ScriptedAgent::End::reset}));

TEST_F(CallLogPage, AnAbsentNumberLeavesARowThatHoldsNothingButItsIdAndNoRedraw) {
    WireBytes bytes = CallsPayload({{.id = 1}});
    bytes.U64(2).Absent();  // a record whose number is absent
    agent_.AnswerPayload(AgentCommand::listCalls, bytes.Get());
    Open().Load();
    ASSERT_TRUE(WaitFor([&] { return Key() == PageLoadState::kEnded; }));
    ASSERT_EQ(List().RowCount(), 2);
    EXPECT_FALSE(List().Redraw());
    EXPECT_EQ(Text(1, 6), QStringLiteral("2 "));
    for (const int column : {1, 2, 3, 4}) {
        EXPECT_EQ(Text(1, column), QString());
    }
}

TEST_F(CallLogPage, DeletingWithNothingTickedSaysSo) {
    OpenLoaded().OnCommand(CCallLogPage::commandDelete);
    ASSERT_TRUE(WaitFor([] { return OpenDialog(kNothingChecked) != nullptr; }));
    PressIn(kNothingChecked, 1215);
    EXPECT_TRUE(agent_.Requests(AgentCommand::deleteCalls).empty());
}

TEST_F(CallLogPage, DeletingTickedCallsAsksSendsTheirIdsAndLoadsAgain) {
    CCallLogPage& page = OpenLoaded();
    List().SetTicked(0, true);
    List().SetTicked(2, true);
    page.OnCommand(CCallLogPage::commandDelete);
    EXPECT_EQ(Question(), ToQString(u8"您真的要删除选择的【 2 】条通话记录吗？"));
    PressIn(kConfirm, 1215);
    WaitForLoads(2);
    const auto requests = agent_.Requests(AgentCommand::deleteCalls);
    ASSERT_EQ(requests.size(), 1u);
    EXPECT_EQ(requests[0], Join({Word(870303), Word(20), Word(2), Word(7), Word(9)}));
}

// 95588 is ticked, and then 妈妈 is looked for and ticked: both go, and both are counted.
TEST_F(CallLogPage, ADeleteWhileOneFindsCountsAndTakesTheTickedCallsThatAreHidden) {
    CCallLogPage& page = OpenLoaded();
    List().SetTicked(1, true);
    List().Find()->Open();
    page.findChild<QLineEdit*>(QStringLiteral("find"))->setText(QStringLiteral("mm"));
    ASSERT_FALSE(List().IsShown(1));
    List().SetTicked(2, true);
    page.OnCommand(CCallLogPage::commandDelete);
    EXPECT_EQ(Question(), ToQString(u8"您真的要删除选择的【 2 】条通话记录吗？"));
    PressIn(kConfirm, 1215);
    WaitForLoads(2);
    const auto requests = agent_.Requests(AgentCommand::deleteCalls);
    ASSERT_EQ(requests.size(), 1u);
    EXPECT_EQ(requests[0], Join({Word(870303), Word(20), Word(2), Word(8), Word(9)}));
    // The list that comes behind it is narrowed like the one before.
    EXPECT_TRUE(WaitFor([&] { return List().model()->rowCount() == 1; }));
}

TEST_F(CallLogPage, AnythingButTheDeleteButtonDeletesNothing) {
    CCallLogPage& page = OpenLoaded();
    page.OnCommand(CCallLogPage::commandDeleteAll);
    PressIn(kConfirm, 1021);
    page.OnCommand(CCallLogPage::commandDeleteAll);
    OpenDialog(kConfirm)->close();
    Settle();
    EXPECT_TRUE(agent_.Requests(AgentCommand::deleteAllCalls).empty());
    EXPECT_EQ(Loads(), 1u);
}

TEST_F(CallLogPage, DeletingAllAsksAndSendsEvenWhileTheListIsEmpty) {
    CCallLogPage& page = Open();
    page.OnCommand(CCallLogPage::commandDeleteAll);
    EXPECT_EQ(Question(), ToQString(u8"您真的要删除【 所有 】通话记录吗？"));
    PressIn(kConfirm, 1215);
    WaitForLoads(2);  // what goes is read first, to be kept
    const auto requests = agent_.Requests(AgentCommand::deleteAllCalls);
    ASSERT_EQ(requests.size(), 1u);
    EXPECT_EQ(requests[0], Join({Word(870304), Word(12), Word(1)}));
}

TEST_F(CallLogPage, ADeleteThatFindsNoPhoneIsToldAndTheListIsLoadedAgain) {
    CCallLogPage& page = OpenAt(UnusedPort());
    page.OnCommand(CCallLogPage::commandDeleteAll);
    PressIn(kConfirm, 1215);
    ASSERT_TRUE(WaitFor([&] { return Key() == PageLoadState::kEnded; }));
    EXPECT_EQ(host_.statuses, (QStringList{kConnectError, kConnectError}));
}

TEST_F(CallLogPage, ADeleteOfTickedCallsThatFindsNoPhoneIsToldAndTheListIsLoadedAgain) {
    auto phone = std::make_unique<ScriptedAgent>();
    phone->AnswerPayload(AgentCommand::listCalls, CallsPayload(kThreeCalls).Get());
    CCallLogPage& page = OpenAt(phone->Port());
    page.Load();
    ASSERT_TRUE(WaitFor([&] { return List().RowCount() == 3; }));
    phone.reset();
    List().SetTicked(0, true);
    page.OnCommand(CCallLogPage::commandDelete);
    PressIn(kConfirm, 1215);
    ASSERT_TRUE(WaitFor([&] { return host_.statuses.size() == 2; }));
    EXPECT_EQ(host_.statuses, (QStringList{kConnectError, kConnectError}));
    EXPECT_EQ(List().RowCount(), 0);
}

TEST_F(CallLogPage, AnIdOfMoreThan31BitsIsSentAsTheSame32Bits) {
    agent_.AnswerPayload(AgentCommand::listCalls, CallsPayload({{.id = 0xFFFFFFFE}}).Get());
    CCallLogPage& page = OpenLoaded();
    EXPECT_EQ(Text(0, 6), QStringLiteral("-2 "));
    List().SetTicked(0, true);
    page.OnCommand(CCallLogPage::commandDelete);
    PressIn(kConfirm, 1215);
    WaitForLoads(2);
    EXPECT_EQ(agent_.Requests(AgentCommand::deleteCalls),
              std::vector<Bytes>{Join({Word(870303), Word(16), Word(1), Word(0xFFFFFFFE)})});
}

TEST_F(CallLogPage, IsDisabledWhileADeleteIsOnItsWay) {
    CCallLogPage& page = OpenLoaded();
    agent_.Hold(AgentCommand::deleteAllCalls);
    page.OnCommand(CCallLogPage::commandDeleteAll);
    PressIn(kConfirm, 1215);
    ASSERT_TRUE(WaitFor([&] { return !agent_.Requests(AgentCommand::deleteAllCalls).empty(); }));
    EXPECT_FALSE(page.isEnabled());
    page.OnCommand(CCallLogPage::commandRefresh);
    page.OnCommand(CCallLogPage::commandDeleteAll);
    EXPECT_EQ(OpenDialog(kConfirm), nullptr);
    agent_.Release();
    WaitForLoads(3);
    EXPECT_TRUE(page.isEnabled());
}

TEST_F(CallLogPage, TheKeyboardIsInTheListAgainBehindADelete) {
    QWidget window;
    CCallLogPage& page = OpenLoaded();
    page.setParent(&window);
    QPushButton other(&window);  // where the keyboard would go
    page.show();
    window.show();
    List().setFocus();
    page.OnCommand(CCallLogPage::commandDeleteAll);
    PressIn(kConfirm, 1215);
    WaitForLoads(3);
    EXPECT_EQ(window.focusWidget(), &List());
    page.setParent(nullptr);
}

TEST_F(CallLogPage, AKeyboardThatTheUserHasMovedOnStaysWhereItIs) {
    QWidget window;
    CCallLogPage& page = OpenLoaded();
    page.setParent(&window);
    QPushButton other(&window);
    page.show();
    window.show();
    List().setFocus();
    page.OnCommand(CCallLogPage::commandDeleteAll);
    PressIn(kConfirm, 1215);
    other.setFocus();
    WaitForLoads(3);
    EXPECT_EQ(window.focusWidget(), &other);
    page.setParent(nullptr);
}

TEST_F(CallLogPage, MayGoWhileItsPhoneStalls) {
    GoWhileThePhoneStalls();
}

}  // namespace
}  // namespace quorvi
