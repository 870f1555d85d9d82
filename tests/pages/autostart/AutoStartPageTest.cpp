#include <QAbstractItemModelTester>
#include <QAccessible>
#include <QHelpEvent>
#include <QLineEdit>
#include <QTest>
#include <QToolTip>

#include "pages/autostart/AutoStartPage.h"
#include "phone/agent/HostileTexts.h"
#include "tests/pages/autostart/AutoStartReplies.h"
#include "tests/support/AgentPageTest.h"
#include "tests/support/LoopbackAgent.h"
#include "ui/kit/ControlNumber.h"
#include "ui/kit/QtText.h"
#include "ui/kit/SkinTree.h"
#include "ui/look/Look.h"

namespace quorvi {
namespace {

// Two applications for event 3, one for event 1; not in the order of the events.
const std::vector<ListedStart> kThree{
    {.event = 3, .name = "天气", .package = "com.example.weather"},
    {.event = 1, .name = "闹钟", .package = "com.example.clock"},
    {.event = 3, .name = "公交", .package = "com.example.bus"},
};

class AutoStartPage : public AgentPageTest<CAutoStartPage, AgentCommand::listAutoStart> {
  protected:
    void SetUp() override { Tell(kThree); }

    void Tell(const std::vector<ListedStart>& starts) {
        agent_.AnswerPayload(AgentCommand::listAutoStart, AutoStartPayload(starts).Get());
    }
    CAutoStartPage& OpenAt(std::uint16_t port) {
        MakeAt(port).show();
        return *page_;
    }
    CAutoStartPage& Open() { return OpenAt(agent_.Port()); }
    CAutoStartPage& OpenLoaded() {
        Open().Load();
        WaitForLoads(1);
        return *page_;
    }
    CAutoStartPage& OpenWith(const std::vector<ListedStart>& starts) {
        Tell(starts);
        return OpenLoaded();
    }
    void LoadAgain() {
        page_->Load();
        Settle();
    }

    SkinTreeView& Tree() { return *FindControl<SkinTreeView>(page_.get(), 1184); }
    // A node by its rows from the top.
    QModelIndex Node(std::initializer_list<int> rows) {
        QModelIndex node;
        for (const int row : rows) {
            node = Tree().model()->index(row, 0, node);
        }
        return node;
    }
    QString Text(std::initializer_list<int> rows) { return Node(rows).data().toString(); }
    int Children(std::initializer_list<int> rows) { return Tree().model()->rowCount(Node(rows)); }
    bool IsOpen(std::initializer_list<int> rows) { return Tree().isExpanded(Node(rows)); }
};

// ---- what stands there -------------------------------------------------------------------------

TEST_F(AutoStartPage, NumbersAreTheControls) {
    CAutoStartPage& page = Open();
    EXPECT_EQ(page.objectName(), QStringLiteral("dialog 422"));
    EXPECT_EQ(CAutoStartPage::kNumbers.loadKey, 13);
    EXPECT_EQ(Tree().accessibleName(), ToQString(u8"自启动项"));
    EXPECT_EQ(Tree().size(), page.size());
    Settle();
    EXPECT_EQ(Loads(), 0u);  // the navigator loads it, not the page itself
}

TEST_F(AutoStartPage, EventsAscendAndTheirApplicationsStandAsTheyCame) {
    OpenLoaded();
    ASSERT_EQ(Children({}), 2);
    EXPECT_EQ(Text({0}), ToQString(u8"系统启动后"));
    EXPECT_EQ(Text({1}), ToQString(u8"进入飞行模式时"));
    ASSERT_EQ(Children({0}), 1);
    EXPECT_EQ(Text({0, 0}), ToQString(u8"闹钟"));
    ASSERT_EQ(Children({1}), 2);
    EXPECT_EQ(Text({1, 0}), ToQString(u8"天气"));
    EXPECT_EQ(Text({1, 1}), ToQString(u8"公交"));
    ASSERT_EQ(Children({1, 1}), 1);
    EXPECT_EQ(Text({1, 1, 0}), QStringLiteral("com.example.bus"));
    EXPECT_EQ(Children({1, 1, 0}), 0);
    EXPECT_TRUE(Tree().Redraw());
    EXPECT_EQ(Tree().Status().Get(), ListState::idle);
    EXPECT_TRUE(host_.statuses.isEmpty());
}

TEST_F(AutoStartPage, OneRecordMakesThreeNodes) {
    OpenWith({{.event = 144}});
    EXPECT_EQ(Children({}), 1);
    EXPECT_EQ(Text({0}), ToQString(u8"Widget小插件删除后"));
    EXPECT_EQ(Children({0}), 1);
    EXPECT_EQ(Children({0, 0}), 1);
}

TEST_F(AutoStartPage, TwoEventsOfOneCaptionAreTwoBranches) {
    OpenWith({{.event = 77}, {.event = 74}});
    ASSERT_EQ(Children({}), 2);
    EXPECT_EQ(Text({0}), ToQString(u8"信号强度改变时"));
    EXPECT_EQ(Text({1}), Text({0}));
}

TEST_F(AutoStartPage, EveryNodeHasThePictureAndEventsAreTheBrightOnes) {
    OpenLoaded();
    const auto ink = [&](std::initializer_list<int> rows, int role) {
        return static_cast<look::Color>(Node(rows).data(role).toInt());
    };
    for (const auto& rows : {std::initializer_list<int>{0}, {0, 0}, {0, 0, 0}}) {
        EXPECT_EQ(Node(rows).data(treeRoleIcon).toString(), QStringLiteral("autostart"));
    }
    EXPECT_EQ(ink({0}, treeRoleIconInk), look::Color::plum6);
    EXPECT_EQ(ink({0, 0}, treeRoleIconInk), look::Color::ink2);
    EXPECT_EQ(ink({0, 0, 0}, treeRoleIconInk), look::Color::ink2);
    EXPECT_EQ(ink({0, 0}, treeRoleTextInk), look::Color::ink);
    EXPECT_EQ(ink({0, 0, 0}, treeRoleTextInk), look::Color::ink2);
}

TEST_F(AutoStartPage, TheModelHoldsTogether) {
    Open();
    const QAbstractItemModelTester tester(Tree().model(),
                                          QAbstractItemModelTester::FailureReportingMode::Fatal);
    page_->Load();
    WaitForLoads(1);
    page_->ExpandAll();
    LoadAgain();
    EXPECT_EQ(Children({}), 2);
}

TEST_F(AutoStartPage, ASelectionDoesNothing) {
    OpenLoaded();
    Tree().setCurrentIndex(Node({1}));
    Settle();
    EXPECT_EQ(Loads(), 1u);
    EXPECT_TRUE(host_.posted.empty());
}

// ---- opening and closing -----------------------------------------------------------------------

TEST_F(AutoStartPage, ExpandingAllShowsTheApplicationsAndLeavesTheirPackagesFolded) {
    OpenLoaded().OnCommand(CAutoStartPage::commandExpandAll);
    EXPECT_TRUE(IsOpen({0}));
    EXPECT_TRUE(IsOpen({1}));
    EXPECT_FALSE(IsOpen({0, 0}));
    EXPECT_FALSE(IsOpen({1, 1}));
    EXPECT_EQ(Tree().visualRect(Node({1, 1})).top() - Tree().visualRect(Node({0})).top(), 4 * 28);
}

TEST_F(AutoStartPage, CollapsingAllLeavesWhatWasOpenBelowOpen) {
    CAutoStartPage& page = OpenLoaded();
    page.OnCommand(CAutoStartPage::commandExpandAll);
    Tree().setExpanded(Node({1, 1}), true);
    page.OnCommand(CAutoStartPage::commandCollapseAll);
    EXPECT_FALSE(IsOpen({0}));
    EXPECT_FALSE(IsOpen({1}));
    EXPECT_TRUE(IsOpen({1, 1}));
    EXPECT_EQ(Tree().visualRect(Node({1})).top() - Tree().visualRect(Node({0})).top(), 28);
}

TEST_F(AutoStartPage, CollapsingAllBringsAHiddenCurrentNodeToItsEvent) {
    CAutoStartPage& page = OpenLoaded();
    page.OnCommand(CAutoStartPage::commandExpandAll);
    Tree().setExpanded(Node({1, 1}), true);
    Tree().setCurrentIndex(Node({1, 1, 0}));
    page.OnCommand(CAutoStartPage::commandCollapseAll);
    EXPECT_EQ(Tree().currentIndex(), Node({1}));
    EXPECT_FALSE(IsOpen({1}));
}

TEST_F(AutoStartPage, CollapsingAndExpandingAnEmptyTreeDoesNothing) {
    CAutoStartPage& page = Open();
    page.OnCommand(CAutoStartPage::commandCollapseAll);
    page.OnCommand(CAutoStartPage::commandExpandAll);
    Settle();
    EXPECT_EQ(Children({}), 0);
    EXPECT_EQ(Loads(), 0u);
}

TEST_F(AutoStartPage, KeysMoveOpenAndClose) {
    OpenLoaded();
    Tree().setFocus();
    Tree().setCurrentIndex(Node({0}));
    QTest::keyClick(&Tree(), Qt::Key_Down);
    EXPECT_EQ(Tree().currentIndex(), Node({1}));
    QTest::keyClick(&Tree(), Qt::Key_Right);
    EXPECT_TRUE(IsOpen({1}));
    QTest::keyClick(&Tree(), Qt::Key_Right);
    EXPECT_EQ(Tree().currentIndex(), Node({1, 0}));
    QTest::keyClick(&Tree(), Qt::Key_Return);
    EXPECT_TRUE(IsOpen({1, 0}));
    QTest::keyClick(&Tree(), Qt::Key_Space);  // there is nothing to tick
    QTest::keyClick(&Tree(), Qt::Key_Down);
    EXPECT_EQ(Tree().currentIndex(), Node({1, 0, 0}));
    QTest::keyClick(&Tree(), Qt::Key_Left);
    EXPECT_EQ(Tree().currentIndex(), Node({1, 0}));
    QTest::keyClick(&Tree(), Qt::Key_Return);
    EXPECT_FALSE(IsOpen({1, 0}));
}

TEST_F(AutoStartPage, AScreenReaderReadsTheNodesAndTheirStates) {
    OpenLoaded().ExpandAll();
    QAccessibleInterface* tree = QAccessible::queryAccessibleInterface(&Tree());
    ASSERT_NE(tree, nullptr);
    EXPECT_EQ(tree->role(), QAccessible::Tree);
    QStringList names;
    // The first is the head of the column, which is hidden but read.
    EXPECT_EQ(tree->child(0)->text(QAccessible::Name), ToQString(u8"启动事件"));
    for (int i = 1; i < tree->childCount(); ++i) {
        QAccessibleInterface* node = tree->child(i);
        names.append(node->text(QAccessible::Name));
        EXPECT_EQ(node->state().expandable, true) << i;  // down to the applications
    }
    EXPECT_EQ(names.join(QLatin1Char('|')),
              ToQString(u8"系统启动后|闹钟|进入飞行模式时|天气|公交"));
    EXPECT_TRUE(tree->child(1)->state().expanded);
    EXPECT_FALSE(tree->child(2)->state().expanded);
}

// ---- loading -----------------------------------------------------------------------------------

TEST_F(AutoStartPage, WhileItLoadsTheTreeIsEmptyWithoutRedrawAndSaysSo) {
    CAutoStartPage& page = OpenLoaded();
    page.ExpandAll();
    agent_.Hold(AgentCommand::listAutoStart);
    page.OnCommand(CAutoStartPage::commandRefresh);
    EXPECT_EQ(Children({}), 0);
    EXPECT_FALSE(Tree().Redraw());
    EXPECT_EQ(Tree().Status().Get(), ListState::loading);
    ASSERT_TRUE(WaitFor([&] { return Key() == PageLoadState::kRunning; }));
    page.OnCommand(CAutoStartPage::commandRefresh);  // dropped
    page.OnCommand(CAutoStartPage::commandExpandAll);
    agent_.Release();
    WaitForLoads(2);
    EXPECT_TRUE(Tree().Redraw());
    EXPECT_EQ(Children({}), 2);
    EXPECT_FALSE(IsOpen({0}));  // what was open is closed at each refresh
    Settle();
    EXPECT_EQ(Loads(), 2u);
}

TEST_F(AutoStartPage, AConnectFailureIsToldAndRedrawGoesOn) {
    OpenAt(UnusedPort()).Load();
    ASSERT_TRUE(WaitFor([&] { return Key() == PageLoadState::kEnded; }));
    EXPECT_EQ(host_.statuses, QStringList{kConnectError});
    EXPECT_EQ(Children({}), 0);
    EXPECT_TRUE(Tree().Redraw());
    EXPECT_EQ(Tree().Status().Get(), ListState::failed);
}

TEST_F(AutoStartPage, ALoadThatWorksTakesAnOldConnectFailureBack) {
    FailBefore();
    OpenLoaded();
    EXPECT_EQ(host_.status, kReady);
}

TEST_F(AutoStartPage, APhoneThatStartsNothingShowsAnEmptyTree) {
    OpenLoaded();
    agent_.AnswerNoData(AgentCommand::listAutoStart);
    FailBefore();
    LoadAgain();
    EXPECT_EQ(Children({}), 0);
    EXPECT_TRUE(Tree().Redraw());
    EXPECT_EQ(Tree().Status().Get(), ListState::idle);
    EXPECT_EQ(host_.status, kReady);
}

// Replies that end the worker early.
class AutoStartPageEarlyEnd : public AutoStartPage,
                              public testing::WithParamInterface<ScriptedAgent::Reply> {};

TEST_P(AutoStartPageEarlyEnd, LeavesRedrawOffUntilALaterLoadGetsFurther) {
    OpenLoaded();
    agent_.Answer(AgentCommand::listAutoStart, GetParam());
    LoadAgain();
    EXPECT_FALSE(Tree().Redraw());
    EXPECT_EQ(Children({}), 0);
    EXPECT_EQ(Key(), PageLoadState::kEnded);
    EXPECT_TRUE(host_.statuses.isEmpty());
    Tell(kThree);
    LoadAgain();
    EXPECT_TRUE(Tree().Redraw());
    EXPECT_EQ(Children({}), 2);
}

INSTANTIATE_TEST_SUITE_P(Closed_Broken, AutoStartPageEarlyEnd,
                         testing::Values(ScriptedAgent::Reply{Bytes{}},
                                         ScriptedAgent::Reply{Join({Word(100), Word(0)}),
                                                              ScriptedAgent::End::reset}));

TEST_F(AutoStartPage, AnAbsentNameBuildsNoTreeAndLeavesRedrawOff) {
    WireBytes bytes = AutoStartPayload({{.event = 1}});
    bytes.U32(2).Absent();  // a record whose name is absent
    agent_.AnswerPayload(AgentCommand::listAutoStart, bytes.Get());
    OpenLoaded();
    EXPECT_EQ(Children({}), 0);
    EXPECT_FALSE(Tree().Redraw());
    EXPECT_EQ(Tree().Status().Get(), ListState::idle);
    EXPECT_TRUE(host_.statuses.isEmpty());
}

TEST_F(AutoStartPage, AnUnknownEventEndsTheReadingWithWhatCameBeforeItAndIsTold) {
    OpenWith({{.event = 1}, {.event = 145}, {.event = 2}});
    EXPECT_EQ(Children({}), 1);
    EXPECT_TRUE(Tree().Redraw());
    EXPECT_EQ(host_.status,
              ToQString(u8"【X】未知的启动事件 145，其后的启动项没有读取，请升级本软件"));
}

TEST_F(AutoStartPage, ALoadThatWorksTakesWhatWasToldOfAnUnknownEventBack) {
    OpenWith({{.event = 0xFFFFFFFF}});
    EXPECT_EQ(Children({}), 0);
    EXPECT_TRUE(host_.status.contains(QStringLiteral("4294967295")));
    Tell(kThree);
    LoadAgain();
    EXPECT_EQ(host_.status, kReady);
}

TEST_F(AutoStartPage, HostileTextsAreShownAsTextAndTheTreeStandsUp) {
    std::vector<ListedStart> starts;
    for (std::uint32_t event = 0; const std::string& harm : phone::HostileTexts()) {
        starts.push_back({event, harm, "com.example.harm"});
        starts.push_back({event++, "harm", harm});
    }
    OpenWith(starts).ExpandAll();
    const int branches = Children({});
    ASSERT_EQ(branches, static_cast<int>(phone::HostileTexts().size()));
    for (int branch = 0; branch < branches; ++branch) {
        Tree().setExpanded(Node({branch, 1}), true);
        for (const QString& text : {Text({branch, 0}), Text({branch, 1, 0})}) {
            EXPECT_FALSE(text.contains(QLatin1Char('\n'))) << branch;
            EXPECT_LT(text.size(), 100'000) << branch;  // no megabyte is laid out
        }
    }
    EXPECT_TRUE(Text({0, 0}).startsWith(QStringLiteral("<script>")));
    Tree().viewport()->repaint();
    page_->resize(120, 462);  // so that the text does not fit
    Tree().scrollToTop();
    const QPoint at = Tree().visualRect(Node({0, 0})).center();
    QHelpEvent help(QEvent::ToolTip, at, Tree().viewport()->mapToGlobal(at));
    QApplication::sendEvent(Tree().viewport(), &help);
    EXPECT_TRUE(QToolTip::text().contains(QStringLiteral("&lt;script&gt;")));
    QToolTip::hideText();
}

TEST_F(AutoStartPage, MayGoWhileItsPhoneStalls) {
    GoWhileThePhoneStalls();
}

// ---- finding -----------------------------------------------------------------------------------

TEST_F(AutoStartPage, CtrlFFindsEventsAndApplicationsByNameAndPackage) {
    OpenLoaded();
    auto* field = page_->findChild<QLineEdit*>(QStringLiteral("find"));
    Tree().setFocus();
    QTest::keySequence(QGuiApplication::focusWindow(), QKeySequence::Find);
    ASSERT_TRUE(field->hasFocus());
    const auto shown = [&](std::initializer_list<int> rows) {
        const QModelIndex node = Node(rows);
        return !Tree().isRowHidden(node.row(), node.parent());
    };
    QTest::keyClicks(field, QStringLiteral("tianqi"));
    EXPECT_FALSE(shown({0}));
    EXPECT_TRUE(shown({1}));
    EXPECT_TRUE(IsOpen({1}));
    EXPECT_TRUE(shown({1, 0}));
    EXPECT_FALSE(shown({1, 1}));
    field->setText(QStringLiteral("example.bus"));
    EXPECT_FALSE(shown({1, 0}));
    EXPECT_TRUE(shown({1, 1}));
    field->setText(ToQString(u8"启动后"));
    EXPECT_TRUE(shown({0}));
    EXPECT_TRUE(shown({0, 0}));
    EXPECT_FALSE(shown({1}));
    QTest::keyClick(field, Qt::Key_Escape);
    EXPECT_TRUE(shown({1}));
    EXPECT_FALSE(IsOpen({1}));
    EXPECT_TRUE(Tree().hasFocus());
}

TEST_F(AutoStartPage, ARefreshIsNarrowedToWhatIsLookedFor) {
    OpenLoaded();
    auto* field = page_->findChild<QLineEdit*>(QStringLiteral("find"));
    QTest::keySequence(QGuiApplication::focusWindow(), QKeySequence::Find);
    QTest::keyClicks(field, QStringLiteral("tianqi"));
    Tell({{.event = 1, .name = "天气"}, {.event = 3, .name = "公交"}});
    LoadAgain();
    EXPECT_TRUE(WaitFor([&] {
        return Children({}) == 2 && !Tree().isRowHidden(0, {}) && Tree().isRowHidden(1, {});
    }));
}

}  // namespace
}  // namespace quorvi
