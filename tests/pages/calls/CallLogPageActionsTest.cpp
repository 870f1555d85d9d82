// What the call log page does with its calls: what is kept of those that it deletes.
#include "tests/pages/calls/CallLogPageFixture.h"
#include "tests/support/LoopbackAgent.h"

namespace quorvi {
namespace {

// ---- what is kept of a delete ------------------------------------------------------------------

TEST_F(CallLogPage, WhatIsDeletedIsKeptBeforeTheRequestIsSent) {
    CCallLogPage& page = OpenLoaded();
    List().SetTicked(0, true);
    List().SetTicked(2, true);
    agent_.Hold(AgentCommand::deleteCalls);
    page.OnCommand(CCallLogPage::commandDelete);
    PressIn(kConfirm, 1215);
    ASSERT_TRUE(WaitFor([&] { return !agent_.Requests(AgentCommand::deleteCalls).empty(); }));
    EXPECT_TRUE(kept_.IsOne(BackupKind::calls, 2));
    agent_.Release();
    WaitForLoads(2);
    EXPECT_EQ(kept_.List().size(), 1u);
}

TEST_F(CallLogPage, WhatCannotBeKeptIsAskedAboutOnceMoreAndStaysWhenTheAnswerIsNo) {
    kept_.Refuse();
    CCallLogPage& page = OpenLoaded();
    List().SetTicked(0, true);
    page.OnCommand(CCallLogPage::commandDelete);
    PressIn(kConfirm, 1215);
    Settle();
    ASSERT_NE(OpenDialog(kConfirm), nullptr);
    EXPECT_EQ(FindControl<QLabel>(OpenDialog(kConfirm), 1378)->text(),
              ToQString(u8"要删除的内容没能先保存到电脑：路径里有一段不是文件夹。"
                        u8"这样删除以后就找不回来了，还要删除吗？"));
    EXPECT_TRUE(page.isEnabled());
    PressIn(kConfirm, 1021);
    Settle();
    EXPECT_TRUE(agent_.Requests(AgentCommand::deleteCalls).empty());
    EXPECT_EQ(Loads(), 1u);
    EXPECT_TRUE(List().IsTicked(0));
}

TEST_F(CallLogPage, WhatCannotBeKeptIsDeletedWhenTheUserWantsItAllTheSame) {
    kept_.Refuse();
    CCallLogPage& page = OpenLoaded();
    List().SetTicked(0, true);
    page.OnCommand(CCallLogPage::commandDelete);
    PressIn(kConfirm, 1215);
    Settle();
    PressIn(kConfirm, 1215);
    WaitForLoads(2);
    EXPECT_EQ(agent_.Requests(AgentCommand::deleteCalls).size(), 1u);
}

TEST_F(CallLogPage, WhatWasKeptOfADeleteThatFindsNoPhoneIsForgotten) {
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
    EXPECT_TRUE(kept_.List().empty());
}

TEST_F(CallLogPage, OfAllCallsThoseAreKeptThatThePhoneHasByThen) {
    CCallLogPage& page = OpenLoaded();
    agent_.AnswerPayload(AgentCommand::listCalls, CallsPayload({{.id = 7}, {.id = 10}}).Get());
    agent_.Hold(AgentCommand::deleteAllCalls);
    page.OnCommand(CCallLogPage::commandDeleteAll);
    PressIn(kConfirm, 1215);
    ASSERT_TRUE(WaitFor([&] { return !agent_.Requests(AgentCommand::deleteAllCalls).empty(); }));
    EXPECT_TRUE(kept_.IsOne(BackupKind::calls, 2));
    agent_.Release();
    WaitForLoads(3);
}

TEST_F(CallLogPage, OfAnEmptyLogNothingIsKept) {
    agent_.AnswerNoData(AgentCommand::listCalls);
    Open().OnCommand(CCallLogPage::commandDeleteAll);
    PressIn(kConfirm, 1215);
    ASSERT_TRUE(WaitFor([&] { return !agent_.Requests(AgentCommand::deleteAllCalls).empty(); }));
    Settle();
    EXPECT_TRUE(kept_.List().empty());
}

TEST_F(CallLogPage, ALogThatDoesNotComeWholeIsAskedAboutBeforeAllOfItGoes) {
    CCallLogPage& page = OpenLoaded();
    agent_.Answer(AgentCommand::listCalls, {Join({Word(100), Word(0)}), ScriptedAgent::End::reset});
    page.OnCommand(CCallLogPage::commandDeleteAll);
    PressIn(kConfirm, 1215);
    Settle();
    EXPECT_EQ(Question(), ToQString(u8"要删除的内容没能先保存到电脑：手机给出的内容不完整。"
                                    u8"这样删除以后就找不回来了，还要删除吗？"));
    PressIn(kConfirm, 1021);
    Settle();
    EXPECT_TRUE(agent_.Requests(AgentCommand::deleteAllCalls).empty());
}

TEST_F(CallLogPage, ACallOfWhichOnlyTheIdCameIsAskedAboutAndForgottenWhenItStays) {
    WireBytes bytes = CallsPayload({{.id = 1}});
    bytes.U64(2).Absent();  // a record whose number is absent
    agent_.AnswerPayload(AgentCommand::listCalls, bytes.Get());
    CCallLogPage& page = Open();
    page.Load();
    ASSERT_TRUE(WaitFor([&] { return Key() == PageLoadState::kEnded; }));
    List().SetTicked(0, true);
    List().SetTicked(1, true);
    page.OnCommand(CCallLogPage::commandDelete);
    PressIn(kConfirm, 1215);
    Settle();
    EXPECT_EQ(Question(), ToQString(u8"要删除的内容没能先保存到电脑：手机没有给出其中 1 项的内容。"
                                    u8"这样删除以后就找不回来了，还要删除吗？"));
    EXPECT_TRUE(kept_.IsOne(BackupKind::calls, 1));
    PressIn(kConfirm, 1021);
    Settle();
    EXPECT_TRUE(agent_.Requests(AgentCommand::deleteCalls).empty());
    EXPECT_TRUE(kept_.List().empty());
}

}  // namespace
}  // namespace quorvi
