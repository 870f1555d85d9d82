#include <QGroupBox>
#include <QLabel>
#include <QPushButton>

#include "pages/tasks/TaskPage.h"
#include "tests/pages/tasks/TaskReplies.h"
#include "tests/support/AgentPageTest.h"
#include "tests/support/Contrast.h"
#include "tests/support/ControlDriver.h"
#include "tests/support/KeyDriver.h"
#include "tests/support/LoopbackAgent.h"
#include "tests/support/PictureFiles.h"
#include "ui/kit/ControlNumber.h"
#include "ui/kit/QtText.h"

namespace quorvi {
namespace {

enum Column {
    columnIcon,
    columnName,
    columnSystem,
    columnCpu,
    columnMemory,
    columnPid,
    columnDetails,
    columnTick
};

const std::vector<ListedProcess> kThree{
    {.importance = 100, .cpu = 12, .pid = 1301, .system = 1, .name = "电话", .package = "com.a"},
    {.memory = (1ULL << 32) + 532, .importance = 230, .cpu = 0xFFFFFFFF, .pid = 0xFFFFFFFE},
    {.importance = 500, .name = "五子棋", .package = "com.example.gomoku"},
};
constexpr std::uint32_t kFree = 155'189'248;

class TaskPage : public AgentPageTest<CTaskPage, AgentCommand::listProcesses> {
  protected:
    void SetUp() override {
        agent_.AnswerPayload(AgentCommand::listProcesses, ProcessesPayload(kThree).Get());
        agent_.Answer(AgentCommand::freeMemory, {Word(kFree)});
        agent_.AnswerAcknowledged(AgentCommand::endProcesses);
    }

    CTaskPage& OpenAt(std::uint16_t port) {
        MakeAt(port).show();
        return *page_;
    }
    CTaskPage& OpenLoaded() {
        CTaskPage& page = OpenAt(agent_.Port());
        page.Load();
        WaitForLoads(1);
        return page;
    }
    void LoadAgain() {
        page_->Load();
        ASSERT_TRUE(WaitFor([&] { return List().State() != ListState::loading; }));
    }

    TaskListCtrl& List() { return *page_->findChild<TaskListCtrl*>(); }
    QString Shown(int row, int column) { return List().CellAt(row, column).text; }
    QString FreeMemory() { return FindControl<QLabel>(page_.get(), 1363)->text(); }
    QString Spoken(int row, int column) {
        return List().model()->index(row, column).data(Qt::AccessibleTextRole).toString();
    }
};

TEST_F(TaskPage, NumbersAreTheControls) {
    CTaskPage& page = OpenAt(agent_.Port());
    EXPECT_EQ(page.objectName(), QStringLiteral("dialog 424"));
    EXPECT_EQ(CTaskPage::kNumbers.page, 45);
    EXPECT_EQ(CTaskPage::kNumbers.loadKey, 15);
    EXPECT_EQ(FindControl<QGroupBox>(&page, 1179)->title(),
              ToQString(u8"Quorvi 手机任务管理器统计信息"));
    EXPECT_EQ(FreeMemory(), QStringLiteral("N/A"));
    Settle();
    EXPECT_EQ(Loads(), 0u);  // the navigator loads it, not the page itself
}

TEST_F(TaskPage, TheButtonThatReleasesMemoryIsHiddenAndDoesNothing) {
    CTaskPage& page = OpenLoaded();
    auto* release = FindControl<QPushButton>(&page, 1180);
    ASSERT_NE(release, nullptr);
    EXPECT_EQ(release->text(), ToQString(u8"释放内存"));
    EXPECT_FALSE(release->isVisibleTo(&page));
    const auto before = agent_.Requests().size();
    release->click();
    Settle();
    EXPECT_EQ(agent_.Requests().size(), before);
}

TEST_F(TaskPage, ColumnsAreAsTold) {
    OpenAt(agent_.Port());
    const std::vector<std::pair<std::u8string_view, int>> columns{
        {u8"图标", 70},     {u8"应用名称", 250}, {u8"系统自带", 80}, {u8"CPU 使用率", 80},
        {u8"内存占用", 90}, {u8"PID", 60},       {u8"详细", 60},     {u8"选择", 44}};
    ASSERT_EQ(List().ColumnCount(), 8);
    for (int i = 0; i < 8; ++i) {
        const ListColumn& column = List().Column(i);
        EXPECT_EQ(column.caption, columns[static_cast<std::size_t>(i)].first);
        EXPECT_EQ(column.width, columns[static_cast<std::size_t>(i)].second);
        EXPECT_EQ(column.align, i == columnMemory ? CellAlign::left : CellAlign::centre);
        EXPECT_EQ(column.cells, column.align);
    }
}

TEST_F(TaskPage, LoadShowsEachProcessInItsRowInTheOrderOfTheAgent) {
    OpenLoaded();
    ASSERT_EQ(List().RowCount(), 3);
    EXPECT_EQ(Shown(0, columnName), ToQString(u8"电话"));
    EXPECT_EQ(List().CellAt(0, columnName).second, QStringLiteral("com.a"));
    EXPECT_EQ(List().CellAt(0, columnName).secondInk, look::Color::ink2);
    EXPECT_EQ(Shown(0, columnCpu), QStringLiteral("12 %"));
    EXPECT_EQ(List().CellAt(0, columnCpu).ink, look::Color::blue);
    EXPECT_EQ(Shown(0, columnMemory), QStringLiteral("9.00 MB"));
    EXPECT_EQ(List().CellAt(0, columnMemory).second, ToQString(u8"前台"));
    EXPECT_EQ(Shown(0, columnPid), QStringLiteral("1301"));
    EXPECT_EQ(Shown(0, columnDetails), ToQString(u8"详细"));
    EXPECT_EQ(Shown(2, columnName), ToQString(u8"五子棋"));
    EXPECT_TRUE(List().Redraw());
    EXPECT_TRUE(List().TickedRows().empty());
    EXPECT_TRUE(host_.statuses.isEmpty());
}

TEST_F(TaskPage, NumbersHaveTheSignOfTheir32Bits) {
    OpenLoaded();
    EXPECT_EQ(Shown(1, columnCpu), QStringLiteral("-1 %"));
    EXPECT_EQ(Shown(1, columnPid), QStringLiteral("-2"));
}

TEST_F(TaskPage, AnImportanceOf230IsUnknown) {
    OpenLoaded();
    EXPECT_EQ(List().CellAt(1, columnMemory).second, ToQString(u8"未知"));
}

TEST_F(TaskPage, Importances130And200ReadAlike) {
    agent_.AnswerPayload(AgentCommand::listProcesses,
                         ProcessesPayload({{.importance = 130}, {.importance = 200}}).Get());
    OpenLoaded();
    EXPECT_EQ(List().CellAt(0, columnMemory).second, ToQString(u8"可见"));
    EXPECT_EQ(List().CellAt(1, columnMemory).second, ToQString(u8"可见"));
}

TEST_F(TaskPage, MemoryAboveFourGigabytesShowsItsLowerBits) {
    OpenLoaded();
    EXPECT_EQ(Shown(1, columnMemory), ToQString(u8"532 字节"));
}

TEST_F(TaskPage, WhatCameWithThePhoneHasAPictureAndAWord) {
    OpenLoaded();
    EXPECT_EQ(List().CellAt(0, columnSystem).icon, QStringLiteral("success"));
    EXPECT_EQ(Spoken(0, columnSystem), ToQString(u8"是"));
    EXPECT_EQ(List().CellAt(1, columnSystem).icon, QStringLiteral("dash"));
    EXPECT_EQ(Spoken(1, columnSystem), ToQString(u8"否"));
}

TEST_F(TaskPage, IconsAreDecodedWhenTheirRowIsFirstPaintedAndOnce) {
    std::vector<ListedProcess> many(50);
    for (ListedProcess& process : many) {
        process.icon = Png(48, 48, 0xFFD64541);
    }
    many[0].icon.clear();
    many[1].icon = "no picture";
    agent_.AnswerPayload(AgentCommand::listProcesses, ProcessesPayload(many).Get());
    MakeAt(agent_.Port()).Load();  // not shown yet
    WaitForLoads(1);
    EXPECT_EQ(List().Pictures().Decodes(), 0);
    static_cast<void>(List().viewport()->grab());
    const int shown = List().rowAt(List().viewport()->height() - 1) + 1;
    EXPECT_EQ(List().Pictures().Decodes(), shown - 1);  // the first row has none
    static_cast<void>(List().viewport()->grab());
    EXPECT_EQ(List().Pictures().Decodes(), shown - 1);
    EXPECT_EQ(List().PictureAt(0).fallback, u"app-default");
    EXPECT_FALSE(List().PictureAt(2).rounded);
}

TEST_F(TaskPage, AClickOnTheDetailsChangesNothing) {
    OpenLoaded();
    const auto before = agent_.Requests().size();
    const QPoint at = List().LinkRect(0, columnDetails).center();
    QTest::mouseMove(List().viewport(), at);
    EXPECT_EQ(List().viewport()->cursor().shape(), Qt::PointingHandCursor);
    QTest::mouseClick(List().viewport(), Qt::LeftButton, {}, at);
    Settle();
    EXPECT_EQ(agent_.Requests().size(), before);
    EXPECT_TRUE(host_.statuses.isEmpty());
    EXPECT_TRUE(host_.posted.empty());
    EXPECT_TRUE(List().TickedRows().empty());
    EXPECT_TRUE(page_->isEnabled());
}

TEST_F(TaskPage, AScreenReaderHearsOfNoDetails) {
    OpenLoaded();
    EXPECT_EQ(Spoken(0, columnDetails), ToQString(u8"空"));
}

TEST_F(TaskPage, TextsReadOnEveryGroundOfARow) {
    OpenLoaded();
    ExpectReadableRows(List());
}

TEST_F(TaskPage, InAWideWindowTheNamesTakeWhatIsLeft) {
    OpenLoaded();
    const int before = List().columnWidth(columnName);
    page_->resize(page_->width() + 400, page_->height());
    EXPECT_EQ(List().columnWidth(columnName), before + 400);
    EXPECT_EQ(List().columnWidth(columnTick), 44);
}

TEST_F(TaskPage, TheFreeMemoryIsReadFirstAtEachRefresh) {
    OpenLoaded();
    EXPECT_EQ(FreeMemory(), QStringLiteral("148 MB"));
    agent_.Answer(AgentCommand::freeMemory, {Word(2048)});
    LoadAgain();
    EXPECT_EQ(FreeMemory(), QStringLiteral("2.00 KB"));
    const std::vector<Bytes> both{Word(871806), Word(871801)};
    std::vector<Bytes> twice = both;
    twice.insert(twice.end(), both.begin(), both.end());
    EXPECT_EQ(agent_.Requests(), twice);
}

TEST_F(TaskPage, TheFreeMemoryShowsBeforeTheListHasCome) {
    agent_.Hold(AgentCommand::listProcesses);
    OpenAt(agent_.Port()).Load();
    ASSERT_TRUE(WaitFor([&] { return FreeMemory() == QStringLiteral("148 MB"); }));
    EXPECT_EQ(List().State(), ListState::loading);
    agent_.Release();
    WaitForLoads(1);
}

TEST_F(TaskPage, AFreeMemoryThatDoesNotComeLeavesTheOldOneAndTheListIsReadAllTheSame) {
    OpenLoaded();
    agent_.Answer(AgentCommand::freeMemory, {Bytes{}});
    LoadAgain();
    EXPECT_EQ(FreeMemory(), QStringLiteral("148 MB"));
    EXPECT_EQ(List().RowCount(), 3);
}

TEST_F(TaskPage, TheCpuShareOfAllIsNeverKnown) {
    OpenLoaded();
    auto* share = page_->findChild<QLabel*>(QStringLiteral("cpuShare"));
    ASSERT_NE(share, nullptr);
    EXPECT_EQ(share->text(), QStringLiteral("N/A"));
}

TEST_F(TaskPage, WhileItLoadsTheListIsClearedWithoutRedrawAndSaysSo) {
    CTaskPage& page = OpenLoaded();
    List().SetTicked(0, true);
    agent_.Hold(AgentCommand::listProcesses);
    page.OnCommand(CTaskPage::commandRefresh);
    EXPECT_EQ(List().RowCount(), 0);
    EXPECT_FALSE(List().Redraw());
    EXPECT_EQ(List().State(), ListState::loading);
    ASSERT_TRUE(WaitFor([&] { return Key() == PageLoadState::kRunning; }));
    page.OnCommand(CTaskPage::commandRefresh);  // dropped
    agent_.Release();
    WaitForLoads(2);
    EXPECT_TRUE(List().Redraw());
    EXPECT_TRUE(List().TickedRows().empty());
    Settle();
    EXPECT_EQ(Loads(), 2u);
}

TEST_F(TaskPage, ConnectFailureIsToldAndRedrawGoesOn) {
    OpenAt(UnusedPort()).Load();
    ASSERT_TRUE(WaitFor([&] { return Key() == PageLoadState::kEnded; }));
    EXPECT_EQ(host_.statuses, QStringList{kConnectError});
    EXPECT_EQ(List().RowCount(), 0);
    EXPECT_TRUE(List().Redraw());
    EXPECT_EQ(List().State(), ListState::failed);
    EXPECT_EQ(FreeMemory(), QStringLiteral("N/A"));
}

TEST_F(TaskPage, ALoadThatWorksTakesAnOldConnectFailureBack) {
    FailBefore();
    OpenLoaded();
    EXPECT_EQ(host_.status, kReady);
}

// Replies that end the worker early.
class TaskPageEarlyEnd : public TaskPage,
                         public testing::WithParamInterface<ScriptedAgent::Reply> {};

TEST_P(TaskPageEarlyEnd, LeavesRedrawOffUntilALaterLoadGetsFurther) {
    OpenLoaded();
    agent_.Answer(AgentCommand::listProcesses, GetParam());
    LoadAgain();
    EXPECT_FALSE(List().Redraw());
    EXPECT_EQ(List().RowCount(), 0);
    EXPECT_EQ(Key(), PageLoadState::kEnded);
    EXPECT_TRUE(host_.statuses.isEmpty());
    agent_.AnswerPayload(AgentCommand::listProcesses, ProcessesPayload(kThree).Get());
    LoadAgain();
    EXPECT_TRUE(List().Redraw());
    EXPECT_EQ(List().RowCount(), 3);
}

INSTANTIATE_TEST_SUITE_P(
    NoData_Closed_Broken, TaskPageEarlyEnd,
    testing::Values(ScriptedAgent::Reply{Word(NoDataMark)}, ScriptedAgent::Reply{Bytes{}},
                    ScriptedAgent::Reply{Join({Word(100), Word(0)}), ScriptedAgent::End::reset}));

TEST_F(TaskPage, AnAbsentNameLeavesARowWithoutARecordWhichNothingIsSentOf) {
    WireBytes bytes = ProcessesPayload({{.package = "com.a"}});
    bytes.U64(4'096).U32(100).U32(1).U32(7).U32(1).Absent();  // a record whose name is absent
    agent_.AnswerPayload(AgentCommand::listProcesses, bytes.Get());
    CTaskPage& page = OpenLoaded();
    ASSERT_EQ(List().RowCount(), 2);
    EXPECT_FALSE(List().Redraw());
    EXPECT_EQ(Shown(1, columnName), QString());
    List().TickAll(true);
    page.OnCommand(CTaskPage::commandEnd);
    WaitForLoads(2);
    EXPECT_EQ(agent_.Requests(AgentCommand::endProcesses),
              std::vector<Bytes>{Join({Word(871804), Word(21), Word(1), Text("com.a")})});
}

TEST_F(TaskPage, EndingSendsTheTickedPackagesInTheirOrderWithoutAQuestionAndRefreshes) {
    CTaskPage& page = OpenLoaded();
    ClickCell(List(), 2, columnTick);
    ClickCell(List(), 0, columnTick);
    page.OnCommand(CTaskPage::commandEnd);
    WaitForLoads(2);
    EXPECT_EQ(agent_.Requests(AgentCommand::endProcesses),
              std::vector<Bytes>{Join({
                  Word(871804),                // code
                  Word(43),                    // total: 12 + 4 + 5 + 4 + 18
                  Word(2),                     // count of packages
                  Text("com.a"),               //
                  Text("com.example.gomoku"),  //
              })});
    EXPECT_TRUE(List().TickedRows().empty());
}

TEST_F(TaskPage, NothingTickedIsSentAllTheSameAndRefreshes) {
    OpenLoaded().OnCommand(CTaskPage::commandEnd);
    WaitForLoads(2);
    EXPECT_EQ(agent_.Requests(AgentCommand::endProcesses),
              std::vector<Bytes>{Join({Word(871804), Word(12), Word(0)})});
}

TEST_F(TaskPage, TheDeleteKeyEndsTheTickedOrElseTheSelectedAndTheStatusSaysHowMany) {
    OpenLoaded();
    List().SelectRow(2);
    PressKeyIn(List(), Qt::Key_Delete);
    WaitForLoads(2);
    EXPECT_EQ(agent_.Requests(AgentCommand::endProcesses).back(),
              Join({Word(871804), Word(34), Word(1), Text("com.example.gomoku")}));
    EXPECT_EQ(host_.status, ToQString(u8"已结束 1 个进程"));
    List().SelectRow(2);
    List().SetTicked(0, true);
    List().SetTicked(2, true);
    PressKeyIn(List(), Qt::Key_Delete);
    WaitForLoads(3);
    EXPECT_EQ(host_.status, ToQString(u8"已结束 2 个进程"));
}

TEST_F(TaskPage, TheDeleteKeyWithNothingChosenSendsNothing) {
    OpenLoaded();
    List().SelectRow(-1);
    PressKeyIn(List(), Qt::Key_Delete);
    Settle();
    EXPECT_TRUE(agent_.Requests(AgentCommand::endProcesses).empty());
    EXPECT_TRUE(host_.statuses.isEmpty());
}

TEST_F(TaskPage, F5Refreshes) {
    OpenLoaded();
    PressKeyIn(List(), Qt::Key_F5);
    WaitForLoads(2);
}

TEST_F(TaskPage, IsDisabledWhileProcessesAreBeingEndedAndRefreshesBehindThem) {
    CTaskPage& page = OpenLoaded();
    agent_.Hold(AgentCommand::endProcesses);
    page.OnCommand(CTaskPage::commandEnd);
    ASSERT_TRUE(WaitFor([&] { return !agent_.Requests(AgentCommand::endProcesses).empty(); }));
    EXPECT_FALSE(page.isEnabled());
    page.OnCommand(CTaskPage::commandRefresh);
    page.OnCommand(CTaskPage::commandEnd);
    DrainWindow();
    EXPECT_EQ(Loads(), 1u);
    agent_.Release();
    WaitForLoads(2);
    Settle();
    EXPECT_TRUE(page.isEnabled());
    EXPECT_EQ(agent_.Requests(AgentCommand::endProcesses).size(), 1u);
}

TEST_F(TaskPage, AnEndThatFindsNoPhoneIsToldAndTheListIsLoadedAgain) {
    OpenAt(UnusedPort()).OnCommand(CTaskPage::commandEnd);
    ASSERT_TRUE(WaitFor([&] { return Key() == PageLoadState::kEnded; }));
    EXPECT_EQ(host_.statuses, (QStringList{kConnectError, kConnectError}));
}

TEST_F(TaskPage, MayGoWhileItsPhoneStalls) {
    GoWhileThePhoneStalls();
}

}  // namespace
}  // namespace quorvi
