#include <QAbstractButton>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

#include "pages/alarms/AlarmPage.h"
#include "phone/agent/HostileTexts.h"
#include "tests/pages/alarms/AlarmReplies.h"
#include "tests/support/AgentPageTest.h"
#include "tests/support/Contrast.h"
#include "tests/support/ControlDriver.h"
#include "tests/support/DialogDriver.h"
#include "tests/support/LoopbackAgent.h"
#include "ui/kit/ControlNumber.h"
#include "ui/kit/QtText.h"

namespace quorvi {
namespace {

constexpr int kEditor = 551;
constexpr int kConfirm = 548;
constexpr int kNothingChecked = 682;
constexpr int kLabel = 1257;
constexpr int kOk = 1215;
constexpr int kCancel = 1021;

const std::vector<ListedAlarm> kThree{
    {.id = 0x500000007},
    {.id = 8, .hour = 12, .minute = 30, .days = 0, .enabled = 0, .vibrate = 1, .label = "午饭"},
    {.id = 9, .hour = 0, .days = 0x7F, .label = "吃药"},
};

class AlarmPage : public AgentPageTest<CAlarmPage, AgentCommand::listAlarms> {
  protected:
    void SetUp() override {
        agent_.AnswerPayload(AgentCommand::listAlarms, AlarmsPayload(kThree).Get());
        agent_.AnswerAcknowledged(AgentCommand::addAlarm);
        agent_.AnswerAcknowledged(AgentCommand::updateAlarm);
        agent_.AnswerAcknowledged(AgentCommand::deleteAlarms);
    }

    CAlarmPage& OpenAt(std::uint16_t port) {
        MakeAt(port).show();
        return *page_;
    }
    CAlarmPage& Open() { return OpenAt(agent_.Port()); }
    CAlarmPage& OpenLoaded() {
        CAlarmPage& page = Open();
        page.Load();
        WaitForLoads(1);
        return page;
    }
    CAlarmPage& OpenLoaded(const std::vector<ListedAlarm>& alarms) {
        agent_.AnswerPayload(AgentCommand::listAlarms, AlarmsPayload(alarms).Get());
        return OpenLoaded();
    }

    CAlarmListCtrl& List() { return *FindControl<CAlarmListCtrl>(page_.get(), 1090); }
    Cell At(int row, int column) { return List().CellAt(row, column); }
    void Click(int row) { ClickCell(List(), row, 1); }
    void LoadAgain() {
        page_->Load();
        ASSERT_TRUE(WaitFor([&] { return List().State() != ListState::loading; }));
    }
    // Waits for the editor that a command or a click opens.
    SkinDialog* Editor() {
        EXPECT_TRUE(WaitFor([] { return OpenDialog(kEditor) != nullptr; }));
        return OpenDialog(kEditor);
    }
    QLineEdit& Label() { return *FindControl<QLineEdit>(Editor(), kLabel); }
    QString State() { return Editor()->findChild<CSkinStateLabel*>()->text(); }
    // Ends the editor, and lets all come to its end that follows.
    void EndBy(int button) {
        PressIn(kEditor, button);
        ASSERT_TRUE(WaitFor([] { return OpenDialog(kEditor) == nullptr; }));
        Settle();
    }
    std::optional<std::uint32_t> Selected() { return host_.selection.Id(PageSelection::kAlarm); }
};

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
    agent_.AnswerPayload(AgentCommand::listAlarms, AlarmsPayload(kThree).Get());
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
    phone->AnswerPayload(AgentCommand::listAlarms, AlarmsPayload(kThree).Get());
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

TEST_F(AlarmPage, MayGoWhileItsPhoneStalls) {
    GoWhileThePhoneStalls();
}

}  // namespace
}  // namespace quorvi
