#include <QAbstractButton>
#include <QHelpEvent>
#include <QPushButton>
#include <QTest>
#include <QToolTip>
#include <cstdlib>
#include <ctime>

#include "base/Text.h"
#include "pages/files/FilePage.h"
#include "phone/agent/HostileTexts.h"
#include "tests/pages/files/FileReplies.h"
#include "tests/support/AgentPageTest.h"
#include "tests/support/Contrast.h"
#include "tests/support/ControlDriver.h"
#include "tests/support/KeyDriver.h"
#include "tests/support/LoopbackAgent.h"
#include "ui/kit/ControlNumber.h"
#include "ui/kit/QtText.h"

namespace quorvi {
namespace {

constexpr int kUp = 1048;

enum Row { rowCard, rowFolder, rowFile };

const std::vector<ListedFile> kRoot{
    {"/sdcard"},
    {"/LOST.DIR", 1, 0, 0, 1, 1, 1},
    {"/backup.tar.gz", 0, (1ull << 32) + 2048, 1308361330000, 0, 0, 0},
};
const std::vector<ListedFile> kCard{{"/sdcard/DCIM"}, {"/sdcard/data", 0, 655'360}};

class FilePage : public AgentPageTest<CFilePage, AgentCommand::listFileRoots> {
  protected:
    void SetUp() override {
        setenv("TZ", "Asia/Shanghai", 1);
        tzset();
        agent_.AnswerPayload(AgentCommand::listFileRoots, FilesPayload("/", kRoot).Get());
        agent_.AnswerPayload(AgentCommand::listDirectory, FilesPayload("/", kCard).Get());
    }

    CFilePage& OpenAt(std::uint16_t port) {
        MakeAt(port).show();
        return *page_;
    }
    CFilePage& Open() { return OpenAt(agent_.Port()); }
    CFilePage& OpenLoaded() {
        CFilePage& page = Open();
        page.Load();
        WaitForLoads(1);
        return page;
    }
    // Until no folder is on its way.
    void WaitForFolder() {
        ASSERT_TRUE(WaitFor([&] { return page_->isEnabled(); }));
    }

    CFileListCtrl& List() { return *page_->findChild<CFileListCtrl*>(); }
    QAbstractButton& Up() { return *FindControl<QAbstractButton>(page_.get(), kUp); }
    QString Text(int row, int column) { return List().CellAt(row, column).text; }
    // The texts of the column of names, from the top.
    QString Names() {
        QStringList names;
        for (int row = 0; row < List().RowCount(); ++row) {
            names.append(Text(row, 0));
        }
        return names.join(QLatin1Char('|'));
    }
    std::vector<Bytes> Folders() { return agent_.Requests(AgentCommand::listDirectory); }
    static Bytes RequestOf(std::string_view path) {
        return WireBytes()
            .U32(870602)                                        // code
            .U32(static_cast<std::uint32_t>(path.size()) + 16)  // total
            .U32(1)                                             // item count
            .Text(path)                                         // path
            .Get();
    }
    void DoubleClick(int row) {
        ClickCell(List(), row, 0);
        DoubleClickCell(List(), row, 0);
    }
};

TEST_F(FilePage, NumbersAreTheControls) {
    CFilePage& page = Open();
    EXPECT_EQ(page.objectName(), QStringLiteral("dialog 405"));
    EXPECT_EQ(CFilePage::kNumbers.loadKey, 6);
    EXPECT_TRUE(Up().isVisible());
    EXPECT_EQ(Up().text(), ToQString(u8"向上"));
    Settle();
    EXPECT_EQ(Loads(), 0u);  // the navigator loads it, not the page itself
}

TEST_F(FilePage, TheOtherButtonsAreHiddenAndDoNothing) {
    OpenLoaded();
    const std::vector<std::pair<int, std::u8string_view>> hidden{
        {1047, u8"刷新"}, {1092, u8"复制"}, {1093, u8"剪切"}, {1094, u8"粘贴"},  {1095, u8"重命名"},
        {1050, u8"属性"}, {1049, u8"删除"}, {1053, u8"新建"}, {10600, u8"搜索"}, {1124, u8"位置"}};
    for (const auto& [number, caption] : hidden) {
        auto* button = FindControl<QAbstractButton>(page_.get(), number);
        ASSERT_NE(button, nullptr) << number;
        EXPECT_FALSE(button->isVisible()) << number;
        EXPECT_EQ(button->text(), ToQString(caption));
        button->click();
    }
    Settle();
    EXPECT_EQ(agent_.Requests().size(), 1u);
    EXPECT_TRUE(List().Redraw());
}

TEST_F(FilePage, ColumnsAreAsTold) {
    Open();
    const std::vector<std::pair<std::u8string_view, int>> columns{{u8"文件名", 254},
                                                                  {u8"大小", 100},
                                                                  {u8"文件类型", 100},
                                                                  {u8"上次修改时间", 160},
                                                                  {u8"属性", 110}};
    ASSERT_EQ(List().ColumnCount(), 5);
    for (int i = 0; i < 5; ++i) {
        EXPECT_EQ(List().Column(i).caption, columns[static_cast<std::size_t>(i)].first);
        EXPECT_EQ(List().Column(i).width, columns[static_cast<std::size_t>(i)].second);
        EXPECT_EQ(List().Column(i).align, i == 4 ? CellAlign::left : CellAlign::centre);
    }
}

TEST_F(FilePage, LoadShowsEachEntryInItsRowInTheOrderOfTheAgent) {
    OpenLoaded();
    EXPECT_EQ(Names(), QStringLiteral("sdcard|LOST|backup.tar"));
    EXPECT_EQ(Text(rowCard, 1), ToQString(u8"0 字节"));
    EXPECT_EQ(Text(rowCard, 2), ToQString(u8"文件夹"));
    EXPECT_EQ(Text(rowCard, 3), QStringLiteral("2011-06-18 09:42:10"));
    EXPECT_EQ(Text(rowCard, 4), ToQString(u8"可读 可写"));
    EXPECT_EQ(Text(rowFolder, 3), ToQString(u8"未知"));
    EXPECT_EQ(Text(rowFolder, 4), ToQString(u8"可读 可写 隐藏"));
    EXPECT_EQ(Text(rowFile, 1), QStringLiteral("2.00 KB"));
    EXPECT_EQ(Text(rowFile, 2), ToQString(u8"文件"));
    EXPECT_EQ(Text(rowFile, 4), ToQString(u8"可读 可写 隐藏"));  // carried over
    EXPECT_EQ(List().CellAt(rowCard, 0).icon, QStringLiteral("file-folder"));
    EXPECT_EQ(List().CellAt(rowFile, 0).icon, QStringLiteral("file-archive"));
    EXPECT_TRUE(List().Redraw());
    EXPECT_EQ(List().CurrentRow(), -1);
    EXPECT_TRUE(host_.statuses.isEmpty());
}

TEST_F(FilePage, AnEmptyFolderSaysSoAndHasAParent) {
    agent_.AnswerPayload(AgentCommand::listFileRoots, FilesPayload("/above", {}).Get());
    OpenLoaded();
    EXPECT_EQ(List().RowCount(), 0);
    EXPECT_TRUE(List().Redraw());
    ClickOn(Up());
    WaitForFolder();
    EXPECT_EQ(Folders(), std::vector<Bytes>{RequestOf("/above")});
}

TEST_F(FilePage, TextsReadOnEveryGroundOfARow) {
    OpenLoaded();
    ExpectReadableRows(List());
}

TEST_F(FilePage, InAWideWindowTheNamesTakeWhatIsLeft) {
    OpenLoaded();
    const int before = List().columnWidth(0);
    page_->resize(page_->width() + 400, page_->height());
    EXPECT_EQ(List().columnWidth(0), before + 400);
    EXPECT_EQ(List().columnWidth(3), 160);
}

TEST_F(FilePage, ANameThatIsCutBesideItsIconShowsWholeInATip) {
    Open();
    const QFontMetrics metrics(look::font(look::Size::s12));
    QString name;
    // It would just have room in the column without the icon.
    const int mark = look::Metric::rowIcon + look::Metric::rowIconGap;
    while (metrics.horizontalAdvance(name) < List().columnWidth(0) - mark) {
        name += QLatin1Char('i');
    }
    agent_.AnswerPayload(AgentCommand::listFileRoots,
                         FilesPayload("/", {{"/" + name.toStdString()}, {"/short"}}).Get());
    page_->Load();
    WaitForLoads(1);
    const auto ask = [&](int row) {
        const QPoint at = PlaceOf(List(), row, 0);
        QHelpEvent help(QEvent::ToolTip, at, List().viewport()->mapToGlobal(at));
        QApplication::sendEvent(List().viewport(), &help);
        return QToolTip::text().remove(QLatin1Char('\n'));
    };
    EXPECT_TRUE(ask(0).contains(name));
    QToolTip::hideText();
    EXPECT_FALSE(ask(1).contains(QStringLiteral("short")));
}

TEST_F(FilePage, TheCountLineTellsHowManyEntriesThereAre) {
    OpenLoaded();
    Settle();
    EXPECT_EQ(page_->CountLine(), ToQString(u8"共 3 项"));
}

TEST_F(FilePage, ADoubleClickOpensAFolder) {
    OpenLoaded();
    DoubleClick(rowCard);
    WaitForFolder();
    EXPECT_EQ(Folders(), std::vector<Bytes>{RequestOf("/sdcard")});
    EXPECT_EQ(Names(), QStringLiteral("DCIM|data"));
    EXPECT_TRUE(List().Redraw());
    EXPECT_EQ(Loads(), 1u);
}

TEST_F(FilePage, ADoubleClickOnAFileDoesNothing) {
    OpenLoaded();
    DoubleClick(rowFile);
    Settle();
    EXPECT_TRUE(Folders().empty());
    EXPECT_EQ(List().RowCount(), 3);
}

TEST_F(FilePage, EnterOpensTheSelectedFolder) {
    OpenLoaded();
    QTest::keyClick(&List(), Qt::Key_Return);  // nothing is selected yet
    QTest::keyClick(&List(), Qt::Key_Down);
    QTest::keyClick(&List(), Qt::Key_Down);
    QTest::keyClick(&List(), Qt::Key_Return);
    WaitForFolder();
    EXPECT_EQ(Folders(), std::vector<Bytes>{RequestOf("/LOST.DIR")});
}

TEST_F(FilePage, ARightClickDoesNothing) {
    OpenLoaded();
    QTest::mouseClick(List().viewport(), Qt::RightButton, {}, PlaceOf(List(), rowCard, 0));
    const QPoint place = PlaceOf(List(), rowCard, 0);
    QContextMenuEvent asked(QContextMenuEvent::Mouse, place, List().viewport()->mapToGlobal(place));
    QApplication::sendEvent(List().viewport(), &asked);
    Settle();
    EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
    EXPECT_EQ(agent_.Requests().size(), 1u);
}

TEST_F(FilePage, UpGoesWhereTheLastHeaderSays) {
    agent_.AnswerPayload(AgentCommand::listDirectory, FilesPayload("/文件", kCard).Get());
    OpenLoaded();
    ClickOn(Up());
    WaitForFolder();
    ClickOn(Up());
    WaitForFolder();
    EXPECT_EQ(Folders(), (std::vector<Bytes>{RequestOf("/"), RequestOf("/文件")}));
}

TEST_F(FilePage, UpBeforeTheFirstReplySendsAnEmptyPath) {
    Open();
    ClickOn(Up());
    WaitForFolder();
    EXPECT_EQ(Folders(), std::vector<Bytes>{RequestOf("")});
}

TEST_F(FilePage, TheButtonAboveGoesToTheRoot) {
    CFilePage& page = OpenLoaded();
    DoubleClick(rowCard);
    WaitForFolder();
    page.OnCommand(CFilePage::commandRoot);
    WaitForLoads(2);
    EXPECT_EQ(List().RowCount(), 3);
    page.OnCommand(1);
    Settle();
    EXPECT_EQ(agent_.Requests().size(), 3u);
}

TEST_F(FilePage, AFolderLeavesTheLoadKeyAlone) {
    Open();
    ClickOn(Up());
    WaitForFolder();
    EXPECT_EQ(Key(), std::nullopt);
    page_->Load();
    WaitForLoads(1);
    agent_.Hold(AgentCommand::listDirectory);
    DoubleClick(rowCard);
    ASSERT_TRUE(WaitFor([&] { return Folders().size() == 2; }));
    EXPECT_EQ(Key(), PageLoadState::kEnded);
    agent_.Release();
    WaitForFolder();
    EXPECT_EQ(Key(), PageLoadState::kEnded);
}

TEST_F(FilePage, WhileAFolderIsOnItsWayThePageIsDisabledAndTheListSaysSo) {
    CFilePage& page = OpenLoaded();
    agent_.Hold(AgentCommand::listFileRoots);
    agent_.Hold(AgentCommand::listDirectory);
    for (const bool root : {true, false}) {
        root ? page.ShowRoot() : page.ShowDirectory("/sdcard");
        EXPECT_FALSE(page.isEnabled());
        EXPECT_EQ(List().RowCount(), 0);
        EXPECT_FALSE(List().Redraw());
        EXPECT_EQ(List().State(), ListState::loading);
        const std::size_t before = root ? 1 : 2;
        ASSERT_TRUE(WaitFor([&] { return agent_.Requests().size() == before + 1; }));
        EXPECT_EQ(Key(), root ? PageLoadState::kRunning : PageLoadState::kEnded);
        // All that is asked for meanwhile is dropped.
        page.OnCommand(CFilePage::commandRoot);
        page.ShowParent();
        ClickOn(Up());
        agent_.Release();
        WaitForFolder();
        Settle();
        EXPECT_EQ(agent_.Requests().size(), before + 1);
        EXPECT_EQ(List().State(), ListState::idle);
        EXPECT_TRUE(List().Redraw());
        agent_.Hold(AgentCommand::listDirectory);
    }
    agent_.Release();
}

TEST_F(FilePage, TwoQuickDoubleClicksOpenOneFolder) {
    OpenLoaded();
    agent_.Hold(AgentCommand::listDirectory);
    const QPoint place = PlaceOf(List(), rowCard, 0);
    ClickCell(List(), rowCard, 0);
    QTest::mouseDClick(List().viewport(), Qt::LeftButton, {}, place);
    QTest::mouseClick(List().viewport(), Qt::LeftButton, {}, place);
    QTest::mouseDClick(List().viewport(), Qt::LeftButton, {}, place);
    agent_.Release();
    WaitForFolder();
    Settle();
    EXPECT_EQ(Folders(), std::vector<Bytes>{RequestOf("/sdcard")});
}

// The first click of the second double click was lost while the page was disabled.
TEST_F(FilePage, TheSecondClickOfADoubleClickOpensNothingInAListThatCameBetween) {
    OpenLoaded();
    DoubleClick(rowCard);
    WaitForFolder();
    DoubleClickCell(List(), 0, 0);
    Settle();
    EXPECT_EQ(Folders().size(), 1u);
    EXPECT_EQ(Names(), QStringLiteral("DCIM|data"));
}

TEST_F(FilePage, ConnectFailureIsToldAndRedrawGoesOn) {
    CFilePage& page = OpenAt(UnusedPort());
    page.Load();
    ASSERT_TRUE(WaitFor([&] { return Key() == PageLoadState::kEnded; }));
    EXPECT_EQ(host_.statuses, QStringList{kConnectError});
    EXPECT_TRUE(List().Redraw());
    EXPECT_EQ(List().State(), ListState::failed);
    EXPECT_TRUE(page.isEnabled());
    page.ShowDirectory("/sdcard");
    WaitForFolder();
    EXPECT_EQ(host_.statuses, (QStringList{kConnectError, kConnectError}));
    EXPECT_TRUE(List().Redraw());
    EXPECT_EQ(List().State(), ListState::failed);
    EXPECT_EQ(Key(), PageLoadState::kEnded);
}

TEST_F(FilePage, F5FetchesTheFolderThatIsShownAndInTheRootTheRoot) {
    CFilePage& page = OpenLoaded();
    PressKeyIn(List(), Qt::Key_F5);
    WaitForLoads(2);
    page.ShowDirectory("/sdcard");
    WaitForFolder();
    PressKeyIn(List(), Qt::Key_F5);
    WaitForFolder();
    EXPECT_EQ(Folders(), (std::vector<Bytes>{RequestOf("/sdcard"), RequestOf("/sdcard")}));
    EXPECT_EQ(Loads(), 2u);
}

TEST_F(FilePage, AFailureLeavesTheParentAsItWas) {
    agent_.AnswerPayload(AgentCommand::listFileRoots, FilesPayload("/above", kRoot).Get());
    CFilePage& page = OpenLoaded();
    agent_.AnswerNoData(AgentCommand::listDirectory);
    page.ShowDirectory("/nowhere");
    WaitForFolder();
    page.ShowParent();
    WaitForFolder();
    EXPECT_EQ(Folders(), (std::vector<Bytes>{RequestOf("/nowhere"), RequestOf("/above")}));
}

TEST_F(FilePage, AFolderThatCanBeReadTakesAnOldConnectFailureBack) {
    FailBefore();
    OpenLoaded();
    EXPECT_EQ(host_.status, kReady);
    FailBefore();
    page_->ShowDirectory("/sdcard");
    WaitForFolder();
    EXPECT_EQ(host_.status, kReady);
}

TEST_F(FilePage, AReplyThatIsCutShowsWhatCameOfIt) {
    const Bytes payload = FilesPayload("/", kRoot).Get();
    WireBytes cut;
    cut.U32(static_cast<std::uint32_t>(payload.size()))  // length
        .Add(std::span(payload).first(payload.size() - 60));
    agent_.Answer(AgentCommand::listFileRoots, {cut.Get()});
    OpenLoaded();
    EXPECT_EQ(Names(), QStringLiteral("sdcard|LOST"));
    EXPECT_TRUE(List().Redraw());
}

// Replies that end the exchange early.
class FilePageEarlyEnd : public FilePage,
                         public testing::WithParamInterface<ScriptedAgent::Reply> {};

TEST_P(FilePageEarlyEnd, OfTheRootLeavesRedrawOffAndTheNextVisitLoadsAgain) {
    CFilePage& page = OpenLoaded();
    agent_.Answer(AgentCommand::listFileRoots, GetParam());
    page.Load();
    WaitForFolder();
    EXPECT_FALSE(List().Redraw());
    EXPECT_EQ(List().RowCount(), 0);
    EXPECT_EQ(Key(), PageLoadState::kRunning);
    EXPECT_TRUE(host_.statuses.isEmpty());
    agent_.AnswerPayload(AgentCommand::listFileRoots, FilesPayload("/", kRoot).Get());
    page.hide();
    Settle();
    EXPECT_EQ(Loads(), 2u);
    page.show();
    WaitForLoads(3);
    WaitForFolder();
    EXPECT_TRUE(List().Redraw());
    EXPECT_EQ(List().RowCount(), 3);
    page.hide();
    page.show();
    Settle();
    EXPECT_EQ(Loads(), 3u);  // the key is 1 now
}

TEST_P(FilePageEarlyEnd, OfAFolderLeavesRedrawOffAndTheKeyAlone) {
    CFilePage& page = OpenLoaded();
    agent_.Answer(AgentCommand::listDirectory, GetParam());
    DoubleClick(rowCard);
    WaitForFolder();
    EXPECT_FALSE(List().Redraw());
    EXPECT_EQ(List().RowCount(), 0);
    EXPECT_EQ(Key(), PageLoadState::kEnded);
    page.hide();
    page.show();
    Settle();
    EXPECT_EQ(Loads(), 1u);
    page.OnCommand(CFilePage::commandRoot);
    WaitForLoads(2);
    WaitForFolder();
    EXPECT_TRUE(List().Redraw());
    EXPECT_EQ(List().RowCount(), 3);
}

INSTANTIATE_TEST_SUITE_P(
    NoData_Closed_Broken, FilePageEarlyEnd,
    testing::Values(ScriptedAgent::Reply{Word(NoDataMark)}, ScriptedAgent::Reply{Bytes{}},
                    ScriptedAgent::Reply{Join({Word(100), Word(0)}), ScriptedAgent::End::reset}));

TEST_F(FilePage, HostileNamesAreShownInOneLineAndCanBeAskedFor) {
    std::vector<ListedFile> files;
    for (const std::string& harm : phone::HostileTexts()) {
        files.push_back({"/" + harm});
    }
    agent_.AnswerPayload(AgentCommand::listFileRoots, FilesPayload("/", files).Get());
    OpenLoaded();
    ASSERT_EQ(List().RowCount(), static_cast<int>(files.size()));
    for (int row = 0; row < List().RowCount(); ++row) {
        EXPECT_FALSE(Text(row, 0).contains(QLatin1Char('\n')));
        EXPECT_LT(Text(row, 0).size(), 1'100);
    }
    page_->grab();
    DoubleClick(0);
    WaitForFolder();
    EXPECT_EQ(Folders(), std::vector<Bytes>{RequestOf(files[0].path)});
}

TEST_F(FilePage, TheKeyboardIsInTheListAgainBehindAFolder) {
    QWidget window;
    CFilePage& page = OpenLoaded();
    page.setParent(&window);
    page.show();
    window.show();
    List().setFocus();
    page.ShowDirectory("/sdcard");
    EXPECT_EQ(window.focusWidget(), &window);
    WaitForFolder();
    EXPECT_EQ(window.focusWidget(), &List());
    page.setParent(nullptr);
}

TEST_F(FilePage, MayGoWhileItsPhoneStalls) {
    GoWhileThePhoneStalls();
}

TEST_F(FilePage, MayGoWhileAFolderStalls) {
    OpenLoaded();
    agent_.Hold(AgentCommand::listDirectory);
    page_->ShowDirectory("/sdcard");
    ASSERT_TRUE(WaitFor([&] { return Folders().size() == 1; }));
    page_.reset();
    agent_.Release();
    Settle();
    EXPECT_TRUE(host_.statuses.isEmpty());
}

}  // namespace
}  // namespace quorvi
