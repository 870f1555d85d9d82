// What the alarm page has edited: a new alarm, the one of the last click, and what did not get to
// the phone before.
#include "phone/agent/HostileTexts.h"
#include "tests/pages/alarms/AlarmPageFixture.h"
#include "tests/support/KeptDeletePageTest.h"
#include "tests/support/KeyDriver.h"

namespace quorvi {
namespace {

TEST_F(AlarmPage, AddingOpensTheEditorForANewAlarmAndOkLoadsAgain) {
    CAlarmPage& page = OpenLoaded();
    page.OnCommand(CAlarmPage::commandAdd);
    EXPECT_EQ(Editor()->windowTitle(), ToQString(u8"添加闹铃提醒"));
    Label().setText(ToQString(u8"新"));
    EndBy(kOk);
    EXPECT_EQ(agent_.Requests(AgentCommand::addAlarm).size(), 1u);
    EXPECT_EQ(Loads(), 2u);
}

TEST_F(AlarmPage, CancellingTheEditorLoadsNothing) {
    OpenLoaded().OnCommand(CAlarmPage::commandAdd);
    EndBy(kCancel);
    EXPECT_EQ(Loads(), 1u);
}

TEST_F(AlarmPage, ChangingBeforeAnyClickDoesNothing) {
    OpenLoaded().OnCommand(CAlarmPage::commandEdit);
    EXPECT_EQ(OpenDialog(kEditor), nullptr);
    EXPECT_EQ(Selected(), std::nullopt);
}

TEST_F(AlarmPage, ChangingGoesToTheAlarmOfTheLastClick) {
    CAlarmPage& page = OpenLoaded();
    Click(1);
    Click(0);
    EXPECT_EQ(Selected(), 7u);  // the low 32 bits of its id
    page.OnCommand(CAlarmPage::commandEdit);
    EXPECT_EQ(Editor()->windowTitle(), ToQString(u8"修改闹铃提醒"));
    EXPECT_EQ(Label().text(), ToQString(u8"起床"));
    EndBy(kOk);
    EXPECT_EQ(Loads(), 2u);
    EXPECT_EQ(agent_.Requests(AgentCommand::updateAlarm),
              std::vector<Bytes>{WireBytes()
                                     .U32(870403)  // code
                                     .U32(96)      // total
                                     .U32(1)       // item count
                                     .U32(7)       // alarm id
                                     .U32(7)       // hour
                                     .U32(5)       // minute
                                     .U32(0x1F)    // days
                                     .U64(0)       // alert time
                                     .U32(1)       // enabled
                                     .U32(0)       // vibrate
                                     .Text("起床")
                                     .Text("content://media/internal/audio/media/4")
                                     .Get()});
}

TEST_F(AlarmPage, ARowThatIsOpenedOrComeToByKeyIsTheOneToChange) {
    OpenLoaded();
    List().setFocus();
    QTest::keyClick(&List(), Qt::Key_End);
    EXPECT_EQ(Selected(), 9u);
    QTest::keyClick(&List(), Qt::Key_Return);
    EXPECT_EQ(Label().text(), ToQString(u8"吃药"));
    EndBy(kCancel);
    DoubleClickCell(List(), 1, 1);
    EXPECT_EQ(Label().text(), ToQString(u8"午饭"));
    EndBy(kCancel);
}

TEST_F(AlarmPage, TheEditorShowsTheAlarmOfTheLastClickAfterARefreshToo) {
    CAlarmPage& page = OpenLoaded();
    Click(1);
    agent_.AnswerPayload(AgentCommand::listAlarms,
                         AlarmsPayload({{.id = 8, .label = "别的"}}).Get());
    page.OnCommand(CAlarmPage::commandRefresh);
    WaitForLoads(2);
    EXPECT_EQ(List().CurrentRow(), -1);
    page.OnCommand(CAlarmPage::commandEdit);
    EXPECT_EQ(Label().text(), ToQString(u8"午饭"));
    EndBy(kCancel);
}

TEST_F(AlarmPage, ANewAlarmThatWasNotAcknowledgedStandsInTheNextEditor) {
    CAlarmPage& page = OpenLoaded();
    agent_.Answer(AgentCommand::addAlarm, {});  // closed without a word
    page.OnCommand(CAlarmPage::commandAdd);
    Label().setText(ToQString(u8"新"));
    EndBy(kOk);
    EXPECT_EQ(host_.status, kUnacknowledged);
    page.OnCommand(CAlarmPage::commandAdd);
    EXPECT_EQ(Label().text(), ToQString(u8"新"));
    EXPECT_EQ(State(), ToQString(u8"上次填写的闹铃没有得到手机的确认"));
    EXPECT_EQ(host_.status, kReady);  // it stands before the user
    agent_.AnswerAcknowledged(AgentCommand::addAlarm);
    EndBy(kOk);
    page.OnCommand(CAlarmPage::commandAdd);
    EXPECT_EQ(Label().text(), QString());
    EndBy(kCancel);
}

TEST_F(AlarmPage, ANewAlarmThatWasGivenUpIsForgotten) {
    CAlarmPage& page = OpenLoaded();
    agent_.Answer(AgentCommand::addAlarm, {});
    page.OnCommand(CAlarmPage::commandAdd);
    Label().setText(ToQString(u8"新"));
    EndBy(kOk);
    page.OnCommand(CAlarmPage::commandAdd);
    EndBy(kCancel);
    page.OnCommand(CAlarmPage::commandAdd);
    EXPECT_EQ(Label().text(), QString());
    EndBy(kCancel);
}

TEST_F(AlarmPage, AChangeThatWasNotAcknowledgedStandsInTheNextEditorOfThatAlarmOnThatPhone) {
    CAlarmPage& page = OpenLoaded();
    services_.device.SetSerial("first");
    agent_.Answer(AgentCommand::updateAlarm, {});
    Click(0);
    page.OnCommand(CAlarmPage::commandEdit);
    Label().setText(ToQString(u8"改过的"));
    EndBy(kOk);
    const auto shown = [&](const char* serial, int row) {
        services_.device.SetSerial(serial);
        Click(row);
        page.OnCommand(CAlarmPage::commandEdit);
        const QString text = Label().text();
        EndBy(kCancel);
        return text;
    };
    EXPECT_EQ(shown("first", 1), ToQString(u8"午饭"));
    EXPECT_EQ(shown("second", 0), ToQString(u8"起床"));
    EXPECT_EQ(shown("first", 0), ToQString(u8"改过的"));
    EXPECT_EQ(shown("first", 0), ToQString(u8"起床"));  // given up by then
}

TEST_F(AlarmPage, AChangeThatThePhoneHasByNowIsNotResumed) {
    CAlarmPage& page = OpenLoaded();
    agent_.Answer(AgentCommand::updateAlarm, {});
    Click(0);
    page.OnCommand(CAlarmPage::commandEdit);
    Label().setText(ToQString(u8"改过的"));
    agent_.AnswerPayload(AgentCommand::listAlarms,
                         AlarmsPayload({{.id = 7, .label = "改过的"}}).Get());
    EndBy(kOk);
    Click(0);
    page.OnCommand(CAlarmPage::commandEdit);
    EXPECT_EQ(Label().text(), ToQString(u8"改过的"));
    EXPECT_EQ(State(), ToQString(u8"就绪"));
    EndBy(kCancel);
}

TEST_F(AlarmPage, HostileTextsAreShownInOneLineAndGoBackAsTheyCame) {
    std::vector<ListedAlarm> alarms;
    for (const std::string& text : phone::HostileTexts()) {
        alarms.push_back(
            {.id = alarms.size(), .label = text, .tone = text, .alert = "content://" + text});
    }
    alarms.push_back({.hour = 0xFFFFFFFF, .minute = 0xFFFFFFFF, .days = 0xFFFFFFFF});
    CAlarmPage& page = OpenLoaded(alarms);
    ASSERT_EQ(List().RowCount(), static_cast<int>(alarms.size()));
    page.grab();
    for (int row = 0; row < List().RowCount(); ++row) {
        EXPECT_FALSE(At(row, 1).text.contains(QLatin1Char('\n'))) << row;
        EXPECT_LT(At(row, 1).text.size(), 10'000) << row;
        const AlarmSettings expected = SettingsOf(FormOf(List().At(row)));
        Click(row);
        page.OnCommand(CAlarmPage::commandEdit);
        Editor()->grab();
        PressIn(kEditor, kOk);
        ASSERT_TRUE(WaitFor([] { return OpenDialog(kEditor) == nullptr; }));
        Settle();
        const std::uint32_t id = List().At(row).id;
        EXPECT_EQ(agent_.Requests(AgentCommand::updateAlarm).back(),
                  UpdateAlarmRequest(id, expected))
            << row;
    }
}

// ---- what is kept of a delete ------------------------------------------------------------------

TEST_F(AlarmPage, CtrlNOpensAnEditorAndADeleteIsToldInTheStatus) {
    OpenLoaded();
    PressKeyIn(List(), Qt::Key_N, Qt::ControlModifier);
    ASSERT_NE(Editor(), nullptr);
    Editor()->reject();
    Settle();
    List().TickAll(true);
    PressKeyIn(List(), Qt::Key_Delete);
    PressIn(548, 1215);
    WaitForLoads(2);
    EXPECT_EQ(host_.status, ToQString(u8"已删除 3 个闹铃"));
}

TEST_F(AlarmPage, ADeleteThatThePhoneDidNotAcknowledgeIsNotToldAsDone) {
    agent_.Answer(AgentCommand::deleteAlarms, {});  // closed without a word
    OpenLoaded();
    List().SelectRow(0);
    PressKeyIn(List(), Qt::Key_Delete);
    PressIn(548, 1215);
    WaitForLoads(2);
    EXPECT_TRUE(host_.statuses.isEmpty());
}

using AlarmDelete = TickedDelete<AlarmPage, CAlarmPage::commandDelete, AgentCommand::listAlarms,
                                 AgentCommand::deleteAlarms, BackupKind::alarms, 2>;
INSTANTIATE_TYPED_TEST_SUITE_P(Alarms, KeptDeletePage, AlarmDelete);

}  // namespace
}  // namespace quorvi
