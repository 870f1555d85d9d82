// What is done with an application: started, looked up in the store, uninstalled.
#include <gmock/gmock.h>

#include <QLabel>
#include <QToolTip>

#include "tests/pages/apps/AppPageFixture.h"
#include "tests/support/DialogDriver.h"
#include "tests/support/KeyDriver.h"
#include "tests/support/MenuDriver.h"

namespace quorvi {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr int kNothingChecked = 682;
constexpr int kConfirm = 548;
constexpr int kQuestion = 1378;
constexpr int kAffirm = 1215;
constexpr int kCancel = 1021;
constexpr int kStoreKey = 9;

class AppPageActions : public AppPageTest {
  protected:
    using AppPageTest::AppPageTest;

    // Opens the menu of a row with the right button.
    CSkinMenu& OpenMenu(int row) { return *OpenRowMenu(*page_, List(), row, columnName); }
    void Choose(int row, int command) { ChooseFrom(&OpenMenu(row), command); }
    // Loads with store numbers for com.a.
    void OpenWithStore() {
        site_.AnswerPage(R"([{"pkg":"com.a","level":"4","id":"4711"}])");
        OpenLoaded();
    }
    void Tick(const std::vector<int>& rows) {
        for (const int row : rows) {
            ClickCell(List(), row, columnTick);
        }
    }
    // Waits until the list was read once more behind an uninstall.
    void AwaitRefresh(std::size_t loads) {
        ASSERT_TRUE(WaitFor([&] { return Loads() == loads && Key() == PageLoadState::kEnded; }));
        Settle();
    }
    void UninstallTicked() {
        page_->OnCommand(CAppPage::commandUninstall);
        PressIn(kConfirm, kAffirm);
        Settle();
    }
    [[nodiscard]] std::vector<Bytes> Starts() {
        return agent_.Requests(AgentCommand::runApplication);
    }
    bool StuckRuns() {
        return WaitFor([&] { return adb_.IsRunning("stuck"); });
    }
};

// ---- the menu ----------------------------------------------------------------------------------

TEST_F(AppPageActions, TheMenuHasThreeItemsWithTheirPictures) {
    OpenLoaded();
    CSkinMenu& menu = OpenMenu(1);
    EXPECT_EQ(List().CurrentRow(), 1);
    const std::vector<std::pair<int, std::u8string_view>> items{
        {32790, u8"立即运行"}, {32791, u8"删除卸载"}, {32792, u8"商城搜索"}};
    ASSERT_EQ(menu.actions().size(), 3);
    for (int i = 0; i < 3; ++i) {
        const auto& [command, text] = items[static_cast<std::size_t>(i)];
        const QAction* item = menu.actions().at(i);
        EXPECT_EQ(CSkinMenu::CommandOf(item), command);
        EXPECT_EQ(item->text(), ToQString(text));
        EXPECT_FALSE(item->icon().isNull());
        EXPECT_TRUE(item->isEnabled());
    }
}

TEST_F(AppPageActions, AMenuThatIsDismissedDoesNothing) {
    OpenLoaded();
    const auto before = agent_.Requests().size();
    QTest::keyClick(&OpenMenu(0), Qt::Key_Escape);
    Settle();
    EXPECT_EQ(agent_.Requests().size(), before);
    EXPECT_TRUE(host_.posted.empty());
    EXPECT_THAT(adb_.Runs(), IsEmpty());
}

TEST_F(AppPageActions, BesideTheRowsThereIsNoMenu) {
    OpenLoaded();
    const QPoint beside(100, List().viewport()->height() - 2);
    QContextMenuEvent event(QContextMenuEvent::Mouse, beside,
                            List().viewport()->mapToGlobal(beside));
    QApplication::sendEvent(List().viewport(), &event);
    EXPECT_EQ(page_->findChild<CSkinMenu*>(), nullptr);
}

TEST_F(AppPageActions, AMenuWhoseRowARefreshTookAwayDoesNothing) {
    OpenLoaded();
    CSkinMenu& menu = OpenMenu(0);
    LoadAgain();
    const auto before = agent_.Requests().size();
    for (const int command : {32790, 32791, 32792}) {
        Q_EMIT menu.commandChosen(command);
    }
    Settle();
    EXPECT_EQ(agent_.Requests().size(), before);
    EXPECT_THAT(adb_.Runs(), IsEmpty());
    EXPECT_FALSE(host_.loadState.Contains(kStoreKey));
}

// ---- starting ----------------------------------------------------------------------------------

TEST_F(AppPageActions, StartingAnAppSendsItsFrameAndReadsNoList) {
    OpenLoaded();
    Choose(0, CAppPage::menuRun);
    Settle();
    EXPECT_THAT(Starts(), ElementsAre(Join({
                              Word(870805),                                          // code
                              Word(1),                                               // count
                              Word(21),                                              // total
                              Word(5),                                               // length
                              Bytes{std::byte{'c'}, std::byte{'o'}, std::byte{'m'},  //
                                    std::byte{'.'}, std::byte{'a'}},                 // name
                          })));
    EXPECT_EQ(Loads(), 1u);
    EXPECT_TRUE(host_.statuses.isEmpty());
}

TEST_F(AppPageActions, WhileAnAppIsStartedThePageIsDisabled) {
    OpenLoaded();
    agent_.Hold(AgentCommand::runApplication);
    Choose(0, CAppPage::menuRun);
    ASSERT_TRUE(WaitFor([&] { return Starts().size() == 1; }));
    EXPECT_FALSE(page_->isEnabled());
    page_->OnCommand(CAppPage::commandRefresh);
    page_->OnCommand(CAppPage::commandUninstall);
    EXPECT_EQ(OpenDialog(kNothingChecked), nullptr);
    agent_.Release();
    Settle();
    EXPECT_TRUE(page_->isEnabled());
    EXPECT_EQ(Loads(), 1u);
}

TEST_F(AppPageActions, AStartThatFindsNoPhoneIsTold) {
    OpenAt(UnusedPort()).RunApplication("com.a");
    Settle();
    EXPECT_EQ(host_.statuses, QStringList{kConnectError});
}

// ---- the store ---------------------------------------------------------------------------------

TEST_F(AppPageActions, TheLinkGoesToTheAppInTheStore) {
    OpenWithStore();
    QTest::mouseClick(List().viewport(), Qt::LeftButton, {},
                      List().LinkRect(0, columnCategory).center());
    EXPECT_THAT(host_.posted, ElementsAre(FakeHost::Posted{Message::pageCommand, 1, 4711}));
    EXPECT_EQ(static_cast<int>(Message::pageCommand), 2024);
    EXPECT_EQ(host_.loadState.Value(kStoreKey), 1);
    EXPECT_EQ(List().CurrentRow(), 0);
}

TEST_F(AppPageActions, TheCursorIsAHandOverTheLinkAlone) {
    OpenLoaded();
    QTest::mouseMove(List().viewport(), List().LinkRect(0, columnCategory).center());
    EXPECT_EQ(List().viewport()->cursor().shape(), Qt::PointingHandCursor);
    QTest::mouseMove(List().viewport(),
                     List().CellRect(0, columnCategory).topLeft() + QPoint(40, 4));
    EXPECT_EQ(List().viewport()->cursor().shape(), Qt::ArrowCursor);
}

TEST_F(AppPageActions, AClickOnTheCategoryBesideItsLinkOnlySelects) {
    OpenWithStore();
    QTest::mouseClick(List().viewport(), Qt::LeftButton, {},
                      List().CellRect(0, columnCategory).topLeft() + QPoint(40, 4));
    EXPECT_EQ(List().CurrentRow(), 0);
    EXPECT_TRUE(host_.posted.empty());
    EXPECT_FALSE(host_.loadState.Contains(kStoreKey));
}

TEST_F(AppPageActions, TheMenuGoesToTheAppInTheStore) {
    OpenWithStore();
    Choose(0, CAppPage::menuStore);
    EXPECT_THAT(host_.posted, ElementsAre(FakeHost::Posted{Message::pageCommand, 1, 4711}));
    EXPECT_EQ(host_.loadState.Value(kStoreKey), 1);
}

TEST_F(AppPageActions, AnAppThatTheSiteDoesNotKnowOnlySetsTheKeyOfTheStore) {
    OpenWithStore();
    QTest::mouseClick(List().viewport(), Qt::LeftButton, {},
                      List().LinkRect(1, columnCategory).center());
    EXPECT_TRUE(host_.posted.empty());
    EXPECT_EQ(host_.loadState.Value(kStoreKey), 1);
    Choose(2, CAppPage::menuStore);
    EXPECT_TRUE(host_.posted.empty());
}

// ---- uninstalling ------------------------------------------------------------------------------

TEST_F(AppPageActions, OneFromTheMenuIsUninstalledWithoutAQuestionAndTheListReadOnce) {
    OpenLoaded();
    ListApps({{.package = "com.b"}});
    Choose(0, CAppPage::menuUninstall);
    EXPECT_EQ(OpenDialog(kConfirm), nullptr);
    AwaitRefresh(2);
    EXPECT_THAT(adb_.Calls(), ElementsAre(ElementsAre("uninstall", "com.a")));
    EXPECT_EQ(List().RowCount(), 1);
    EXPECT_EQ(Loads(), 2u);
    EXPECT_TRUE(page_->isEnabled());
    EXPECT_EQ(host_.status, ToQString(u8"已卸载 1 个应用"));
}

TEST_F(AppPageActions, WithNothingTickedItSaysSo) {
    OpenLoaded();
    page_->OnCommand(CAppPage::commandUninstall);
    auto* dialog = OpenDialog(kNothingChecked);
    ASSERT_NE(dialog, nullptr);
    EXPECT_EQ(FindControl<QLabel>(dialog, 65535)->text(),
              ToQString(u8"请先勾选每项最后的复选框后，再执行删除操作"));
    EXPECT_EQ(FindControl<QAbstractButton>(dialog, kAffirm)->text(), ToQString(u8"确定"));
    PressIn(kNothingChecked, kAffirm);
}

TEST_F(AppPageActions, AnEmptyListHasNothingTicked) {
    OpenAt(agent_.Port()).OnCommand(CAppPage::commandUninstall);
    EXPECT_NE(OpenDialog(kNothingChecked), nullptr);
    PressIn(kNothingChecked, kAffirm);
}

TEST_F(AppPageActions, TheQuestionNamesTheirNumberAndTheWayBackIsItsDefault) {
    OpenLoaded();
    Tick({0, 2});
    page_->OnCommand(CAppPage::commandUninstall);
    auto* dialog = OpenDialog(kConfirm);
    ASSERT_NE(dialog, nullptr);
    EXPECT_EQ(FindControl<QLabel>(dialog, kQuestion)->text(),
              ToQString(u8"您真的要删除选择的【 2 】个应用吗？"));
    EXPECT_EQ(FindControl<QAbstractButton>(dialog, kAffirm)->text(), ToQString(u8"删除"));
    EXPECT_EQ(FindControl<QAbstractButton>(dialog, kCancel)->text(), ToQString(u8"取消"));
    PressIn(kConfirm, kCancel);
    Settle();
    EXPECT_THAT(adb_.Runs(), IsEmpty());
    EXPECT_EQ(List().TickedCount(), 2);
}

TEST_F(AppPageActions, TheQuestionNamesThemToo) {
    OpenLoaded();
    Tick({0, 2});
    page_->OnCommand(CAppPage::commandUninstall);
    EXPECT_EQ(FindControl<QLabel>(OpenDialog(kConfirm), 4)->text(),
              ToQString(u8"掌上词典、星图天气"));
    PressIn(kConfirm, kCancel);
}

TEST_F(AppPageActions, TheDeleteKeyAsksAboutTheSelectedOneAndTheStatusSaysThatItWent) {
    OpenLoaded();
    List().SelectRow(1);
    PressKeyIn(List(), Qt::Key_Delete);
    EXPECT_EQ(FindControl<QLabel>(OpenDialog(kConfirm), kQuestion)->text(),
              ToQString(u8"您真的要删除选择的【 1 】个应用吗？"));
    PressIn(kConfirm, kAffirm);
    AwaitRefresh(2);
    EXPECT_THAT(adb_.Runs(), ElementsAre("uninstall com.b"));
    EXPECT_EQ(host_.status, ToQString(u8"已卸载 1 个应用"));
}

TEST_F(AppPageActions, F5Refreshes) {
    OpenLoaded();
    PressKeyIn(List(), Qt::Key_F5);
    AwaitRefresh(2);
}

TEST_F(AppPageActions, OneThatIsTickedIsUninstalledAndTheListReadOnce) {
    OpenLoaded();
    Tick({1});
    UninstallTicked();
    AwaitRefresh(2);
    EXPECT_THAT(adb_.Runs(), ElementsAre("uninstall com.b"));
}

TEST_F(AppPageActions, ABatchIsStartedInTheOrderOfTheRowsWithoutWaiting) {
    ListApps({{.package = "com.stuck"}, {.package = "com.b"}, {.package = "com.c"}});
    OpenLoaded();
    Tick({2, 0});
    UninstallTicked();
    // The last one ends by itself, whatever became of the one before it.
    ASSERT_TRUE(
        WaitFor([&] { return !adb_.Runs().empty() && adb_.Runs().back() == "uninstall com.c"; }));
    EXPECT_FALSE(adb_.IsRunning("stuck"));
}

TEST_F(AppPageActions, BehindAnUninstallThatWasCutOffNoneReadsTheListAnyMore) {
    ListApps({{.name = "a", .package = "com.stuck"}, {.name = "b", .package = "com.b"}});
    OpenLoaded();
    Choose(0, CAppPage::menuUninstall);
    ASSERT_TRUE(StuckRuns());
    // The page is not disabled while adb is at it: the next one cuts it off.
    Settle();
    EXPECT_TRUE(page_->isEnabled());
    Choose(1, CAppPage::menuUninstall);
    Settle();
    EXPECT_FALSE(adb_.IsRunning("stuck"));
    // Each is waited for: the next one would cut it off before it has written that it runs.
    ASSERT_TRUE(WaitFor([&] { return adb_.Runs().size() == 2; }));
    for (std::size_t runs = 3; runs <= 5; ++runs) {
        page_->Uninstall({{"again", "com.c"}});
        Settle();
        ASSERT_TRUE(WaitFor([&] { return adb_.Runs().size() == runs; }));
    }
    // What ends next would read the list. A failure shows that it has ended.
    page_->Uninstall({{"bad", "com.fails"}});
    ASSERT_TRUE(WaitFor([&] { return !host_.statuses.isEmpty(); }));
    Settle();
    EXPECT_EQ(Loads(), 1u);
    // The user reads it.
    LoadAgain();
    EXPECT_EQ(Loads(), 2u);
}

TEST_F(AppPageActions, ANameOfAnotherFormIsNotUninstalledAndItsRowSaysWhy) {
    ListApps({{.name = "坏包名", .package = "com.a; reboot"}});
    OpenLoaded();
    EXPECT_EQ(At(0, columnName).note, ToQString(u8"包名不合规范，不能卸载"));
    EXPECT_EQ(Spoken(0, columnName), ToQString(u8"坏包名\nN/A\n包名不合规范，不能卸载"));
    const QPoint at = PlaceOf(List(), 0, columnName);
    QHelpEvent help(QEvent::ToolTip, at, List().viewport()->mapToGlobal(at));
    QApplication::sendEvent(List().viewport(), &help);
    EXPECT_EQ(QToolTip::text(), ToQString(u8"坏包名\nN/A\n包名不合规范，不能卸载"));
    QToolTip::hideText();
    Choose(0, CAppPage::menuUninstall);
    Settle();
    EXPECT_EQ(host_.status, ToQString(u8"【X】“坏包名”没有卸载：它的包名不合规范，请在手机上卸载"));
    Tick({0});
    page_->OnCommand(CAppPage::commandUninstall);
    EXPECT_EQ(OpenDialog(kConfirm), nullptr);
    EXPECT_EQ(OpenDialog(kNothingChecked), nullptr);
    EXPECT_EQ(host_.statuses.size(), 2);
    EXPECT_THAT(adb_.Runs(), IsEmpty());
}

TEST_F(AppPageActions, AmongOthersANameOfAnotherFormIsNeitherCountedNorRun) {
    ListApps({{.name = "坏包名", .package = "-k"}, {.package = "com.b"}});
    OpenLoaded();
    EXPECT_TRUE(At(1, columnName).note.isEmpty());
    Tick({0, 1});
    page_->OnCommand(CAppPage::commandUninstall);
    EXPECT_EQ(FindControl<QLabel>(OpenDialog(kConfirm), kQuestion)->text(),
              ToQString(u8"您真的要删除选择的【 1 】个应用吗？"));
    PressIn(kConfirm, kAffirm);
    AwaitRefresh(2);  // the one that was run was the last one that is waited for
    EXPECT_THAT(adb_.Runs(), ElementsAre("uninstall com.b"));
    EXPECT_EQ(host_.status, ToQString(u8"【X】“坏包名”没有卸载：它的包名不合规范，请在手机上卸载"));
}

TEST_F(AppPageActions, MayGoWhileAdbIsAtIt) {
    ListApps({{.package = "com.stuck"}});
    OpenLoaded();
    Choose(0, CAppPage::menuUninstall);
    ASSERT_TRUE(StuckRuns());
    Settle();
    page_.reset();
    EXPECT_FALSE(adb_.IsRunning("stuck"));
    Settle();
    EXPECT_EQ(Loads(), 1u);
}

// An adb that fails.
class AppPageFailures : public AppPageActions {
  protected:
    AppPageFailures()
        : AppPageActions(
              "case \"$2\" in\n"
              "com.a) echo 'Failure [DELETE_FAILED_INTERNAL_ERROR]';;\n"
              "com.b) echo 'adb: more than one device/emulator' >&2; exit 1;;\n"
              "com.c) exit 1;;\n"
              "*) echo Success;;\n"
              "esac") {}
};

TEST_F(AppPageFailures, TheStatusSaysWhatAdbSaidAndTheListIsReadAllTheSame) {
    OpenLoaded();
    Choose(0, CAppPage::menuUninstall);
    AwaitRefresh(2);
    EXPECT_EQ(
        host_.status,
        ToQString(
            u8"【X】“掌上词典”没有卸载：手机不肯卸载，它可能是系统应用，请在手机的应用设置里停用"));
    Choose(1, CAppPage::menuUninstall);
    AwaitRefresh(3);
    EXPECT_EQ(host_.status,
              ToQString(u8"【X】“简记便签”没有卸载：电脑连着不止一部手机，请只留下一部再试"));
    Choose(2, CAppPage::menuUninstall);
    AwaitRefresh(4);
    EXPECT_EQ(host_.status, ToQString(u8"【X】“星图天气”没有卸载：adb 没有说明原因，请再试一次"));
}

TEST_F(AppPageFailures, TheNextTryTakesAnOldFailureBack) {
    OpenLoaded();
    Choose(0, CAppPage::menuUninstall);
    AwaitRefresh(2);
    ASSERT_NE(host_.status, kReady);
    page_->Uninstall({{"other", "com.other"}});
    EXPECT_EQ(host_.status, kReady);
    AwaitRefresh(3);
    EXPECT_EQ(host_.status, ToQString(u8"已卸载 1 个应用"));
}

TEST_F(AppPageFailures, ALongNameIsCutInTheStatus) {
    ListApps({{.name = "一二三四五六七八九十一二三四五六七八九十", .package = "com.c"}});
    OpenLoaded();
    Choose(0, CAppPage::menuUninstall);
    AwaitRefresh(2);
    EXPECT_TRUE(
        host_.status.startsWith(ToQString(u8"【X】“一二三四五六七八九十一二三四五六…”没有卸载：")));
}

// An adb that finds no phone and waits for one.
class AppPageWaits : public AppPageActions {
  protected:
    AppPageWaits()
        : AppPageActions("echo '- waiting for device -' >&2; await phone; echo Success") {}
};

TEST_F(AppPageWaits, TheStatusSaysSoUntilThePhoneIsThere) {
    OpenLoaded();
    Choose(0, CAppPage::menuUninstall);
    ASSERT_TRUE(WaitFor([&] { return !host_.statuses.isEmpty(); }));
    EXPECT_EQ(host_.status, ToQString(u8"【X】没有找到手机，接上手机后会卸载“掌上词典”"));
    Settle();
    EXPECT_TRUE(page_->isEnabled());
    EXPECT_EQ(Loads(), 1u);
    adb_.Put("phone");
    AwaitRefresh(2);
    EXPECT_EQ(host_.status, ToQString(u8"已卸载 1 个应用"));
}

TEST_F(AppPageActions, AnAdbThatIsNotThereIsTold) {
    OpenLoaded();
    std::filesystem::remove(adb_.Path());
    Choose(0, CAppPage::menuUninstall);
    Settle();
    EXPECT_EQ(host_.status,
              ToQString(u8"【X】“掌上词典”没有卸载：没有找到 adb，请安装 adb 后再试"));
    EXPECT_TRUE(page_->isEnabled());
    EXPECT_EQ(Loads(), 1u);
}

}  // namespace
}  // namespace quorvi
