#include <QAccessible>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>

#include "pages/cleaner/CleanerPage.h"
#include "tests/pages/cleaner/CleanReplies.h"
#include "tests/support/AgentPageTest.h"
#include "tests/support/Contrast.h"
#include "tests/support/ControlDriver.h"
#include "tests/support/LoopbackAgent.h"
#include "tests/support/PictureFiles.h"
#include "ui/kit/AccessibleControls.h"
#include "ui/kit/ControlNumber.h"
#include "ui/kit/QtText.h"

namespace quorvi {
namespace {

enum Column { columnIcon, columnItem, columnPeriod, columnRisk, columnSize, columnTick };

const std::vector<ListedCache> kTwo{
    {.package = "com.a"},
    {.bytes = 820 * 1024, .name = "离线词典", .package = "com.example.dictionary"},
};
const QString kScanning = ToQString(u8"正在获取应用的缓存信息，整个过程需要5秒左右，请稍等...");
const QString kScanned = ToQString(u8"扫描完成");

Bytes Flags(int first, int second, int third) {
    return {static_cast<std::byte>(first), static_cast<std::byte>(second),
            static_cast<std::byte>(third)};
}

class CleanerPage : public AgentPageTest<CCleanerPage, AgentCommand::scanForCleaning> {
  protected:
    void SetUp() override {
        agent_.AnswerPayload(AgentCommand::scanForCleaning, CachesPayload(kTwo).Get());
        agent_.AnswerAcknowledged(AgentCommand::clean);
    }

    CCleanerPage& OpenAt(std::uint16_t port) {
        MakeAt(port).show();
        return *page_;
    }
    CCleanerPage& OpenScanned() {
        CCleanerPage& page = OpenAt(agent_.Port());
        page.Load();
        WaitForLoads(1);
        return page;
    }
    void ScanAgain() {
        page_->Load();
        ASSERT_TRUE(WaitFor([&] { return List().State() != ListState::loading; }));
    }
    // Cleans, and waits until the page is at no work.
    void Clean() {
        page_->OnCommand(CCleanerPage::commandClean);
        Settle();
    }
    std::vector<Bytes> Cleans() { return agent_.Requests(AgentCommand::clean); }

    CleanListCtrl& List() { return *page_->findChild<CleanListCtrl*>(); }
    QString Shown(int row, int column) { return List().CellAt(row, column).text; }
    QString State() { return FindControl<QLabel>(page_.get(), 1109)->text(); }
    void ExpectFixedRowsTicked() {
        EXPECT_EQ(Shown(0, columnItem), ToQString(u8"浏览器搜索"));
        EXPECT_EQ(Shown(1, columnItem), ToQString(u8"浏览器历史"));
        EXPECT_EQ(Shown(2, columnItem), ToQString(u8"Market搜索"));
        EXPECT_EQ(List().TickedFixedItems(), (FixedCleanFlags{true, true, true}));
    }
};

TEST_F(CleanerPage, NumbersAreTheControls) {
    CCleanerPage& page = OpenAt(agent_.Port());
    EXPECT_EQ(page.objectName(), QStringLiteral("dialog 599"));
    EXPECT_EQ(CCleanerPage::kNumbers.page, 42);
    EXPECT_EQ(CCleanerPage::kNumbers.loadKey, 12);
    EXPECT_EQ(FindControl<QGroupBox>(&page, 1198)->title(), ToQString(u8"手机系统清理"));
    EXPECT_EQ(State(), ToQString(u8"扫描系统搜索历史记录和应用缓存"));
    Settle();
    EXPECT_EQ(Loads(), 0u);  // the navigator loads it, not the page itself
}

TEST_F(CleanerPage, TheHelpButtonDoesNothingAndIsATextToAScreenReader) {
    InstallAccessibleControls();
    CCleanerPage& page = OpenScanned();
    auto* help = FindControl<QPushButton>(&page, 1199);
    ASSERT_NE(help, nullptr);
    EXPECT_EQ(help->text(), ToQString(u8"使用帮助"));
    const auto before = agent_.Requests().size();
    ClickOn(*help);
    Settle();
    EXPECT_EQ(agent_.Requests().size(), before);
    EXPECT_TRUE(host_.posted.empty());
    EXPECT_TRUE(host_.statuses.isEmpty());
    QAccessibleInterface* spoken = QAccessible::queryAccessibleInterface(help);
    EXPECT_EQ(spoken->role(), QAccessible::StaticText);
    EXPECT_EQ(spoken->text(QAccessible::Name), ToQString(u8"使用帮助"));
}

TEST_F(CleanerPage, ColumnsAreAsTold) {
    OpenAt(agent_.Port());
    const std::vector<std::pair<std::u8string_view, int>> columns{
        {u8"类型", 60},     {u8"清理项目和说明", 330}, {u8"推荐周期", 100},
        {u8"风险提示", 90}, {u8"数量或大小", 90},      {u8"选择", 54}};
    ASSERT_EQ(List().ColumnCount(), 6);
    for (int i = 0; i < 6; ++i) {
        const ListColumn& column = List().Column(i);
        EXPECT_EQ(column.caption, columns[static_cast<std::size_t>(i)].first);
        EXPECT_EQ(column.width, columns[static_cast<std::size_t>(i)].second);
        EXPECT_EQ(column.align, i >= columnSize ? CellAlign::left : CellAlign::centre);
        EXPECT_EQ(column.cells, column.align);
    }
}

TEST_F(CleanerPage, ApplicationsStandBehindTheFixedRowsAndAllAreTicked) {
    OpenScanned();
    ASSERT_EQ(List().RowCount(), 5);
    ExpectFixedRowsTicked();
    EXPECT_EQ(List().TickedRows().size(), 5u);
    EXPECT_EQ(List().CellAt(0, columnItem).second, ToQString(u8"删除系统自带浏览器的搜索记录"));
    EXPECT_EQ(Shown(2, columnPeriod), ToQString(u8"每月"));
    EXPECT_EQ(Shown(2, columnSize), QStringLiteral("N/A"));
    EXPECT_EQ(Shown(3, columnItem), ToQString(u8"小区天气"));
    EXPECT_EQ(List().CellAt(3, columnItem).second, QStringLiteral("com.a"));
    EXPECT_EQ(List().CellAt(3, columnItem).secondInk, look::Color::ink2);
    EXPECT_EQ(Shown(3, columnPeriod), ToQString(u8"随时"));
    EXPECT_EQ(List().CellAt(3, columnPeriod).ink, look::Color::blue);
    EXPECT_EQ(Shown(3, columnRisk), ToQString(u8"无"));
    EXPECT_EQ(Shown(3, columnSize), QStringLiteral("12.7 MB"));
    EXPECT_EQ(Shown(4, columnSize), QStringLiteral("820 KB"));
    EXPECT_EQ(State(), kScanned);
    EXPECT_TRUE(List().Redraw());
    EXPECT_TRUE(host_.statuses.isEmpty());
}

TEST_F(CleanerPage, TheFixedRowsHavePlatesAndApplicationsTheirIcons) {
    OpenScanned();
    EXPECT_EQ(List().PictureAt(0).plate, u"search");
    EXPECT_EQ(List().PictureAt(1).plate, u"clock");
    EXPECT_EQ(List().PictureAt(2).plate, u"store");
    EXPECT_EQ(List().PictureAt(3).plate, u"");
    EXPECT_EQ(List().PictureAt(3).bytes, "icon");
    EXPECT_EQ(List().PictureAt(3).fallback, u"app-default");
    EXPECT_FALSE(List().PictureAt(3).rounded);
}

TEST_F(CleanerPage, IconsAreDecodedWhenTheirRowIsFirstPaintedAndOnce) {
    std::vector<ListedCache> many(50);
    for (ListedCache& cache : many) {
        cache.icon = Png(48, 48, 0xFFD64541);
    }
    agent_.AnswerPayload(AgentCommand::scanForCleaning, CachesPayload(many).Get());
    MakeAt(agent_.Port()).Load();  // not shown yet
    WaitForLoads(1);
    EXPECT_EQ(List().Pictures().Decodes(), 0);
    static_cast<void>(List().viewport()->grab());
    const int shown = List().rowAt(List().viewport()->height() - 1) + 1;
    EXPECT_EQ(List().Pictures().Decodes(), shown - 3);  // the fixed rows have none
    static_cast<void>(List().viewport()->grab());
    EXPECT_EQ(List().Pictures().Decodes(), shown - 3);
}

TEST_F(CleanerPage, TextsReadOnEveryGroundOfARow) {
    OpenScanned();
    ExpectReadableRows(List());
}

TEST_F(CleanerPage, InAWideWindowTheItemsTakeWhatIsLeft) {
    OpenScanned();
    const int before = List().columnWidth(columnItem);
    page_->resize(page_->width() + 400, page_->height());
    EXPECT_EQ(List().columnWidth(columnItem), before + 400);
    EXPECT_EQ(List().columnWidth(columnTick), 54);
}

TEST_F(CleanerPage, WhileItScansTheFixedRowsStandTickedWithoutRedrawAndTheWordsSaySo) {
    CCleanerPage& page = OpenScanned();
    ClickCell(List(), 1, columnTick);
    agent_.Hold(AgentCommand::scanForCleaning);
    page.OnCommand(CCleanerPage::commandScan);
    EXPECT_EQ(State(), kScanning);
    EXPECT_EQ(List().RowCount(), 3);
    ExpectFixedRowsTicked();  // whatever the user chose before
    EXPECT_FALSE(List().Redraw());
    EXPECT_EQ(List().State(), ListState::loading);
    ASSERT_TRUE(WaitFor([&] { return Key() == PageLoadState::kRunning; }));
    page.OnCommand(CCleanerPage::commandScan);  // dropped
    agent_.Release();
    WaitForLoads(2);
    EXPECT_TRUE(List().Redraw());
    EXPECT_EQ(State(), kScanned);
    EXPECT_EQ(List().TickedRows().size(), 5u);
    Settle();
    EXPECT_EQ(Loads(), 2u);
}

TEST_F(CleanerPage, AnAgentWithoutApplicationsYieldsThreeRows) {
    OpenScanned();
    agent_.AnswerNoData(AgentCommand::scanForCleaning);
    ScanAgain();
    EXPECT_EQ(List().RowCount(), 3);
    ExpectFixedRowsTicked();
}

TEST_F(CleanerPage, AFailedConnectLeavesTheFixedRowsAndSaysThatItIsDone) {
    OpenAt(UnusedPort()).Load();
    ASSERT_TRUE(WaitFor([&] { return Key() == PageLoadState::kEnded; }));
    EXPECT_EQ(host_.statuses, QStringList{kConnectError});
    EXPECT_EQ(List().RowCount(), 3);
    ExpectFixedRowsTicked();
    EXPECT_TRUE(List().Redraw());
    EXPECT_EQ(State(), kScanned);
}

TEST_F(CleanerPage, AScanThatWorksTakesAnOldConnectFailureBack) {
    FailBefore();
    OpenScanned();
    EXPECT_EQ(host_.status, kReady);
}

// Replies that end the worker early.
class CleanerPageEarlyEnd : public CleanerPage,
                            public testing::WithParamInterface<ScriptedAgent::Reply> {};

TEST_P(CleanerPageEarlyEnd, LeavesTheFixedRowsTheWordsOfTheScanAndNoRedraw) {
    OpenScanned();
    agent_.Answer(AgentCommand::scanForCleaning, GetParam());
    ScanAgain();
    EXPECT_FALSE(List().Redraw());
    EXPECT_EQ(List().RowCount(), 3);
    ExpectFixedRowsTicked();
    EXPECT_EQ(State(), kScanning);
    EXPECT_EQ(Key(), PageLoadState::kEnded);
    EXPECT_TRUE(host_.statuses.isEmpty());
    agent_.AnswerPayload(AgentCommand::scanForCleaning, CachesPayload(kTwo).Get());
    ScanAgain();
    EXPECT_TRUE(List().Redraw());
    EXPECT_EQ(List().RowCount(), 5);
    EXPECT_EQ(State(), kScanned);
}

INSTANTIATE_TEST_SUITE_P(
    NoData_Closed_Broken, CleanerPageEarlyEnd,
    testing::Values(ScriptedAgent::Reply{Word(NoDataMark)}, ScriptedAgent::Reply{Bytes{}},
                    ScriptedAgent::Reply{Join({Word(100), Word(0)}), ScriptedAgent::End::reset}));

TEST_F(CleanerPage, ATickIsSeenWhileRedrawIsOff) {
    OpenScanned();
    agent_.AnswerNoData(AgentCommand::scanForCleaning);
    ScanAgain();
    const QImage before = List().viewport()->grab().toImage();
    ClickCell(List(), 1, columnTick);
    EXPECT_FALSE(List().Redraw());
    EXPECT_FALSE(List().IsTicked(1));
    EXPECT_NE(List().viewport()->grab().toImage(), before);
}

TEST_F(CleanerPage, AnAbsentNameLeavesARowWithoutAnItemUntickedWhichIsNeverCleaned) {
    WireBytes bytes = CachesPayload({{.package = "com.a"}});
    bytes.U64(4'096).Absent();  // a record whose name is absent
    agent_.AnswerPayload(AgentCommand::scanForCleaning, bytes.Get());
    OpenScanned();
    ASSERT_EQ(List().RowCount(), 5);
    EXPECT_FALSE(List().Redraw());
    EXPECT_EQ(State(), kScanning);
    EXPECT_EQ(Shown(4, columnItem), QString());
    EXPECT_FALSE(List().IsTicked(4));
    List().TickAll(true);
    Clean();
    EXPECT_EQ(
        Cleans(),
        std::vector<Bytes>{Join({Word(871602), Word(24), Word(1), Flags(1, 1, 1), Text("com.a")})});
}

TEST_F(CleanerPage, CleaningSendsTheFlagsAndTheTickedPackagesWithoutAQuestion) {
    OpenScanned();
    ClickCell(List(), 3, columnTick);
    Clean();
    EXPECT_EQ(Cleans(), std::vector<Bytes>{Join({
                            Word(871602),                    // code
                            Word(41),                        // total: 15 + 4 + 22
                            Word(1),                         // count of names
                            Flags(1, 1, 1),                  //
                            Text("com.example.dictionary"),  //
                        })});
}

TEST_F(CleanerPage, UntickingRowOneAloneSendsFlagsOneZeroOne) {
    OpenScanned();
    ClickCell(List(), 1, columnTick);
    Clean();
    EXPECT_EQ(Cleans(), std::vector<Bytes>{Join({Word(871602), Word(50), Word(2), Flags(1, 0, 1),
                                                 Text("com.a"), Text("com.example.dictionary")})});
}

TEST_F(CleanerPage, NothingTickedIsSentAllTheSame) {
    OpenScanned();
    List().TickAll(false);
    Clean();
    EXPECT_EQ(Cleans(),
              std::vector<Bytes>{Join({Word(871602), Word(15), Word(0), Flags(0, 0, 0)})});
}

TEST_F(CleanerPage, ACleanedListKeepsItsSizesUntilTheNextScan) {
    OpenScanned();
    ClickCell(List(), 0, columnTick);
    agent_.AnswerNoData(AgentCommand::scanForCleaning);  // nothing is left on the phone
    Clean();
    EXPECT_EQ(Loads(), 1u);
    ASSERT_EQ(List().RowCount(), 5);
    EXPECT_EQ(Shown(3, columnSize), QStringLiteral("12.7 MB"));
    EXPECT_FALSE(List().IsTicked(0));
    EXPECT_EQ(State(), kScanned);
    EXPECT_TRUE(host_.statuses.isEmpty());
    ScanAgain();
    EXPECT_EQ(List().RowCount(), 3);
}

TEST_F(CleanerPage, IsDisabledWhileThePhoneIsBeingCleaned) {
    CCleanerPage& page = OpenScanned();
    agent_.Hold(AgentCommand::clean);
    page.OnCommand(CCleanerPage::commandClean);
    ASSERT_TRUE(WaitFor([&] { return !Cleans().empty(); }));
    EXPECT_FALSE(page.isEnabled());
    page.OnCommand(CCleanerPage::commandScan);
    page.OnCommand(CCleanerPage::commandClean);
    DrainWindow();
    EXPECT_EQ(Loads(), 1u);
    agent_.Release();
    Settle();
    EXPECT_TRUE(page.isEnabled());
    EXPECT_EQ(Cleans().size(), 1u);
    EXPECT_EQ(Loads(), 1u);
}

TEST_F(CleanerPage, ACleanThatFindsNoPhoneIsTold) {
    OpenAt(UnusedPort()).OnCommand(CCleanerPage::commandClean);
    Settle();
    EXPECT_EQ(host_.statuses, QStringList{kConnectError});
    EXPECT_TRUE(page_->isEnabled());
}

TEST_F(CleanerPage, MayGoWhileItsPhoneStalls) {
    GoWhileThePhoneStalls();
}

}  // namespace
}  // namespace quorvi
