#include <QAbstractButton>
#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>

#include "pages/personal/ContactEditDlg.h"
#include "pages/personal/ContactPage.h"
#include "tests/agent/LoopbackAgent.h"
#include "tests/pages/PageTest.h"
#include "tests/pages/ScriptedAgent.h"
#include "tests/pages/personal/ContactReplies.h"
#include "tests/ui/HtmlDriver.h"
#include "ui/ControlNumber.h"
#include "ui/QtText.h"
#include "ui/QuestionDlg.h"

namespace quorvi {
namespace {

constexpr int kNameColumn = 1;

const QString kConnectError = ToQString(u8"【X】连接错误");

const std::vector<ListedContact> kThree{
    {.id = 11, .name = "林远舟", .number = "10086", .favourite = 1},
    {.id = 12, .name = "顾晓棠", .number = "10010"},
    {.id = 13, .name = "何思远", .number = ""},
};

class ContactPage : public PageTest {
  protected:
    void SetUp() override {
        agent_.AnswerPayload(AgentCommand::listContacts, ListPayload(kThree).Get());
        agent_.AnswerPayload(AgentCommand::readContact, ContactPayload(11, "林远舟").Get());
        agent_.AnswerAcknowledged(AgentCommand::deleteContacts);
        agent_.AnswerAcknowledged(AgentCommand::addContact);
        agent_.AnswerAcknowledged(AgentCommand::updateContact);
    }

    CContactPage& Open() { return OpenAt(agent_.Port()); }
    CContactPage& OpenAt(std::uint16_t port) {
        page_ = std::make_unique<CContactPage>(host_, nullptr, port);
        page_->resize(760, 462);
        page_->show();
        return *page_;
    }
    // The page, with its list and the first detail loaded.
    CContactPage& OpenLoaded() {
        CContactPage& page = Open();
        page.Load();
        EXPECT_TRUE(WaitFor([&] { return Details() == 1 && Key() == PageLoadState::kEnded; }));
        Settle();
        return page;
    }

    CContactListCtrl& List() { return *FindControl<CContactListCtrl>(page_.get(), 1067); }
    CHtmlCtrlBase& View() { return *FindControl<CHtmlCtrlBase>(page_.get(), 1370); }
    std::optional<int> Key() { return host_.loadState.Value(1); }
    std::size_t Loads() { return agent_.Requests(AgentCommand::listContacts).size(); }
    std::size_t Details() { return agent_.Requests(AgentCommand::readContact).size(); }
    std::optional<std::uint32_t> Selected() { return host_.selection.Id(PageSelection::kContact); }
    void WaitForLoads(std::size_t count) {
        ASSERT_TRUE(WaitFor([&] { return Loads() == count && Key() == PageLoadState::kEnded; }));
    }
    // Time in which what must not happen would.
    static void Settle() { QTest::qWait(60); }

    void Click(int row) {
        QTest::mouseClick(List().viewport(), Qt::LeftButton, {},
                          List().CellRect(row, kNameColumn).center());
    }
    // The open dialog of a number, or null.
    static SkinDialog* Dialog(int number) {
        for (QWidget* widget : QApplication::topLevelWidgets()) {
            auto* dialog = qobject_cast<SkinDialog*>(widget);
            if (dialog != nullptr && dialog->isVisible() &&
                dialog->objectName() == QStringLiteral("dialog %1").arg(number)) {
                return dialog;
            }
        }
        return nullptr;
    }
    static void Press(QWidget* dialog, int control) {
        ASSERT_NE(dialog, nullptr);
        FindControl<QAbstractButton>(dialog, control)->click();
    }
    // Opens the row's menu and takes an item of it.
    void ChooseInMenu(int item) {
        Q_EMIT List().menuAsked(List().CurrentRow(), QPoint(0, 0));
        auto* menu = page_->findChild<QMenu*>();
        ASSERT_NE(menu, nullptr);
        menu->actions().at(item)->trigger();
        delete menu;
    }

    ScriptedAgent agent_;
    std::unique_ptr<CContactPage> page_;
};

TEST_F(ContactPage, NumbersAreTheControls) {
    CContactPage& page = Open();
    EXPECT_EQ(page.objectName(), QStringLiteral("dialog 132"));
    EXPECT_NE(FindControl(&page, 1067), nullptr);
    EXPECT_NE(FindControl(&page, 1370), nullptr);
    Settle();
    EXPECT_EQ(Loads(), 0u);  // the navigator loads it, not the page itself
}

TEST_F(ContactPage, LoadShowsEachContactInItsRow) {
    OpenLoaded();
    ASSERT_EQ(List().RowCount(), 3);
    EXPECT_EQ(List().CellAt(0, 1).text, ToQString(u8"林远舟"));
    EXPECT_EQ(List().CellAt(0, 1).second, QStringLiteral("10086"));
    EXPECT_EQ(List().CellAt(0, 2).value, 1);
    EXPECT_EQ(List().CellAt(1, 2).value, 0);
    EXPECT_EQ(List().CellAt(0, 3).text, QStringLiteral("N/A"));
    EXPECT_EQ(List().CellAt(0, 3).second, ToQString(u8"中国移动"));
    EXPECT_EQ(List().CellAt(2, 3).second, ToQString(u8"未知"));
    EXPECT_TRUE(List().Redraw());
    EXPECT_EQ(List().State(), ListState::idle);
    EXPECT_TRUE(host_.statuses.isEmpty());
}

TEST_F(ContactPage, FillSelectsTheFirstRowAndFetchesItsDetail) {
    OpenLoaded();
    EXPECT_EQ(List().CurrentRow(), 0);
    EXPECT_EQ(Selected(), 11u);
    EXPECT_EQ(agent_.Requests(AgentCommand::readContact).at(0), ReadContactRequest(11));
    ASSERT_TRUE(WaitFor([&] {
        return InnerHtml(View(), QStringLiteral("block")).contains(ToQString(u8"<b>林远舟</b>"));
    }));
    Settle();
    EXPECT_EQ(Details(), 1u);
}

TEST_F(ContactPage, WhileItLoadsTheListIsClearedWithoutRedrawAndSaysSo) {
    CContactPage& page = OpenLoaded();
    agent_.Hold(AgentCommand::listContacts);
    page.Load();
    EXPECT_EQ(List().RowCount(), 0);
    EXPECT_FALSE(List().Redraw());
    EXPECT_EQ(List().State(), ListState::loading);
    ASSERT_TRUE(WaitFor([&] { return Key() == PageLoadState::kRunning; }));
    agent_.Release();
    WaitForLoads(2);
    EXPECT_TRUE(List().Redraw());
    EXPECT_EQ(List().RowCount(), 3);
}

TEST_F(ContactPage, RefreshDuringARunningLoadIsDroppedNotQueued) {
    CContactPage& page = Open();
    agent_.Hold(AgentCommand::listContacts);
    page.OnCommand(0);
    page.OnCommand(0);
    ASSERT_TRUE(WaitFor([&] { return Loads() == 1; }));
    page.OnCommand(0);
    agent_.Release();
    WaitForLoads(1);
    Settle();
    EXPECT_EQ(Loads(), 1u);
}

TEST_F(ContactPage, ConnectFailureIsToldAndTheListEmptyWithRedrawOn) {
    CContactPage& page = OpenAt(UnusedPort());
    page.Load();
    ASSERT_TRUE(WaitFor([&] { return Key() == PageLoadState::kEnded; }));
    EXPECT_EQ(host_.statuses.value(0), kConnectError);
    EXPECT_EQ(List().RowCount(), 0);
    EXPECT_TRUE(List().Redraw());
    EXPECT_EQ(List().State(), ListState::failed);
    EXPECT_FALSE(Selected());
}

TEST_F(ContactPage, PhoneWithoutContactsLeavesTheListEmptyAndTheDetailAsItWas) {
    CContactPage& page = OpenLoaded();
    agent_.AnswerNoData(AgentCommand::listContacts);
    page.Load();
    WaitForLoads(2);
    Settle();
    EXPECT_EQ(List().RowCount(), 0);
    EXPECT_FALSE(List().Redraw());  // meant: until a later load gets further
    EXPECT_EQ(Details(), 1u);       // no timer was started
    EXPECT_TRUE(host_.statuses.isEmpty());
}

TEST_F(ContactPage, AgentThatIsGoneLeavesRedrawOff) {
    agent_.Answer(AgentCommand::listContacts, {});
    CContactPage& page = Open();
    page.Load();
    WaitForLoads(1);
    Settle();
    EXPECT_FALSE(List().Redraw());
    EXPECT_EQ(Details(), 0u);
    EXPECT_TRUE(host_.statuses.isEmpty());
}

TEST_F(ContactPage, ConnectionThatBreaksInsideThePayloadLeavesRedrawOff) {
    WireBytes broken;
    broken.U32(1'000'000).Add(ListPayload(kThree).Get());
    agent_.Answer(AgentCommand::listContacts, {broken.Get(), ScriptedAgent::End::reset});
    CContactPage& page = Open();
    page.Load();
    WaitForLoads(1);
    Settle();
    EXPECT_EQ(List().RowCount(), 0);
    EXPECT_FALSE(List().Redraw());
    EXPECT_EQ(Details(), 0u);
}

TEST_F(ContactPage, AbsentNameLeavesAnEmptyLastRowWithoutRedrawOrSelection) {
    WireBytes payload = ListPayload({{.id = 11}});
    payload.U64(12).U64(12).Absent();
    agent_.AnswerPayload(AgentCommand::listContacts, payload.Get());
    CContactPage& page = Open();
    page.Load();
    WaitForLoads(1);
    Settle();
    EXPECT_EQ(List().RowCount(), 2);
    EXPECT_EQ(List().CellAt(1, 1).text, QString());
    EXPECT_FALSE(List().Redraw());
    EXPECT_EQ(List().CurrentRow(), -1);
    EXPECT_FALSE(Selected());
    EXPECT_EQ(Details(), 0u);
    Click(1);  // beyond the contacts: ignored
    Q_EMIT List().rowOpened(1);
    Settle();
    EXPECT_FALSE(Selected());
    EXPECT_EQ(Dialog(540), nullptr);
}

TEST_F(ContactPage, RefreshAfterAnEarlyEndShowsTheListAgain) {
    agent_.AnswerNoData(AgentCommand::listContacts);
    CContactPage& page = Open();
    page.Load();
    WaitForLoads(1);
    EXPECT_FALSE(List().Redraw());
    agent_.AnswerPayload(AgentCommand::listContacts, ListPayload(kThree).Get());
    page.OnCommand(0);
    WaitForLoads(2);
    EXPECT_TRUE(List().Redraw());
    EXPECT_EQ(List().RowCount(), 3);
}

TEST_F(ContactPage, CutReplyShowsTheRowsThatCame) {
    WireBytes cut;
    cut.U32(1'000'000).Add(ListPayload(kThree).Get());
    agent_.Answer(AgentCommand::listContacts, {cut.Get(), ScriptedAgent::End::close});
    CContactPage& page = Open();
    page.Load();
    WaitForLoads(1);
    EXPECT_EQ(List().RowCount(), 3);
    EXPECT_TRUE(List().Redraw());
    EXPECT_EQ(List().CurrentRow(), 0);
}

TEST_F(ContactPage, TicksAreLostAtEachRefresh) {
    CContactPage& page = OpenLoaded();
    List().SetTicked(1, true);
    page.Load();
    WaitForLoads(2);
    EXPECT_TRUE(List().TickedRows().empty());
}

TEST_F(ContactPage, ClickFetchesTheDetailOfItsRow) {
    OpenLoaded();
    Click(2);
    ASSERT_TRUE(WaitFor([&] { return Details() == 2; }));
    EXPECT_EQ(Selected(), 13u);
    EXPECT_EQ(agent_.Requests(AgentCommand::readContact).at(1), ReadContactRequest(13));
}

TEST_F(ContactPage, ClickDuringARunningDetailIsDropped) {
    OpenLoaded();
    agent_.Hold(AgentCommand::readContact);
    Click(1);
    ASSERT_TRUE(WaitFor([&] { return Details() == 2; }));
    Click(2);
    agent_.Release();
    Settle();
    EXPECT_EQ(Details(), 2u);  // the view shows another contact than the selected one
    EXPECT_EQ(Selected(), 13u);
}

TEST_F(ContactPage, SelectionByKeyFetchesTheDetailToo) {
    OpenLoaded();
    QTest::keyClick(&List(), Qt::Key_Down);
    ASSERT_TRUE(WaitFor([&] { return Details() == 2; }));
    EXPECT_EQ(Selected(), 12u);
}

TEST_F(ContactPage, DetailThatCannotBeFetchedLeavesTheViewAndIsTold) {
    CContactPage& page = OpenAt(UnusedPort());
    page.RefreshDetail();
    ASSERT_TRUE(WaitFor([&] { return !host_.statuses.isEmpty(); }));
    EXPECT_EQ(host_.statuses, QStringList{kConnectError});
}

TEST_F(ContactPage, DetailOfNoDataLeavesTheViewWithoutAMessage) {
    OpenLoaded();
    ASSERT_TRUE(
        WaitFor([&] { return !InnerHtml(View(), QStringLiteral("block")).trimmed().isEmpty(); }));
    const QString before = InnerHtml(View(), QStringLiteral("block"));
    agent_.AnswerNoData(AgentCommand::readContact);
    Click(1);
    ASSERT_TRUE(WaitFor([&] { return Details() == 2; }));
    Settle();
    EXPECT_EQ(InnerHtml(View(), QStringLiteral("block")), before);
    EXPECT_TRUE(host_.statuses.isEmpty());
}

TEST_F(ContactPage, MarkupInANameRunsNothing) {
    agent_.AnswerPayload(AgentCommand::readContact,
                         ContactPayload(11,
                                        "<script>document.title='run'</script>"
                                        "<img src=x onerror=\"document.title='run'\"><i>name</i>")
                             .Get());
    OpenLoaded();
    ASSERT_TRUE(WaitFor([&] {
        return InnerHtml(View(), QStringLiteral("block")).contains(QStringLiteral("<i>name</i>"));
    }));
    Settle();
    EXPECT_NE(AskHtml(View(), QStringLiteral("document.title")).toString(), QStringLiteral("run"));
}

TEST_F(ContactPage, DoubleClickOpensTheEditorOfItsContact) {
    OpenLoaded();
    QTest::mouseDClick(List().viewport(), Qt::LeftButton, {},
                       List().CellRect(0, kNameColumn).center());
    SkinDialog* editor = Dialog(540);
    ASSERT_NE(editor, nullptr);
    EXPECT_EQ(editor->windowTitle(), ToQString(u8"修改联系人 - Quorvi"));
    ASSERT_TRUE(WaitFor([&] { return Details() >= 2; }));
    Press(editor, 1021);
    Settle();
    EXPECT_EQ(Loads(), 1u);  // cancelled: nothing is fetched again
}

TEST_F(ContactPage, EditorThatEndsWithOkFetchesTheListAgain) {
    CContactPage& page = OpenLoaded();
    page.OnCommand(1);
    SkinDialog* editor = Dialog(540);
    ASSERT_NE(editor, nullptr);
    EXPECT_EQ(editor->windowTitle(), ToQString(u8"添加联系人 - Quorvi"));
    FindControl<QLineEdit>(editor, 1149)->setText(QStringLiteral("A"));
    Press(editor, 1020);
    WaitForLoads(2);
    EXPECT_EQ(agent_.Requests(AgentCommand::addContact).size(), 1u);
}

TEST_F(ContactPage, MenuAddsAndEdits) {
    OpenLoaded();
    ChooseInMenu(0);
    ASSERT_NE(Dialog(540), nullptr);
    EXPECT_EQ(Dialog(540)->windowTitle(), ToQString(u8"添加联系人 - Quorvi"));
    Press(Dialog(540), 1021);
    ChooseInMenu(1);
    ASSERT_NE(Dialog(540), nullptr);
    EXPECT_EQ(Dialog(540)->windowTitle(), ToQString(u8"修改联系人 - Quorvi"));
}

TEST_F(ContactPage, MenuHasNoEffectOnNoSelection) {
    OpenLoaded();
    List().SelectRow(-1);
    ChooseInMenu(1);
    ChooseInMenu(2);
    Settle();
    EXPECT_EQ(Dialog(540), nullptr);
    EXPECT_EQ(Dialog(548), nullptr);
    EXPECT_EQ(Dialog(682), nullptr);
}

TEST_F(ContactPage, DeleteWithoutATickAsksForOne) {
    CContactPage& page = OpenLoaded();
    page.OnCommand(3);
    ASSERT_NE(Dialog(682), nullptr);
    Press(Dialog(682), 1215);
    Settle();
    EXPECT_TRUE(agent_.Requests(AgentCommand::deleteContacts).empty());
    EXPECT_EQ(Loads(), 1u);
}

TEST_F(ContactPage, DeleteNamesTheTickedContactsInRowOrderAndFetchesAgain) {
    CContactPage& page = OpenLoaded();
    List().SetTicked(2, true);
    List().SetTicked(0, true);
    page.OnCommand(3);
    SkinDialog* question = Dialog(548);
    ASSERT_NE(question, nullptr);
    EXPECT_EQ(FindControl<QLabel>(question, 1378)->text(),
              ToQString(u8"您真的要删除选择的【 2 】条联系人吗？"));
    Press(question, 1215);
    WaitForLoads(2);
    EXPECT_EQ(agent_.Requests(AgentCommand::deleteContacts),
              (std::vector<Bytes>{WireBytes()
                                      .U32(870106)  // code
                                      .U32(20)      // total
                                      .U32(2)       // item count
                                      .U32(11)      // contact ids
                                      .U32(13)
                                      .Get()}));
}

TEST_F(ContactPage, DeleteThatIsNotConfirmedSendsNothing) {
    CContactPage& page = OpenLoaded();
    List().SetTicked(0, true);
    page.OnCommand(3);
    Press(Dialog(548), 1021);
    Settle();
    EXPECT_TRUE(agent_.Requests(AgentCommand::deleteContacts).empty());
    EXPECT_EQ(Loads(), 1u);
    EXPECT_TRUE(List().IsTicked(0));
}

TEST_F(ContactPage, DeleteFromTheMenuNeedsNoTick) {
    OpenLoaded();
    Click(1);
    ChooseInMenu(2);
    Press(Dialog(548), 1215);
    WaitForLoads(2);
    const std::uint32_t id = 12;
    EXPECT_EQ(agent_.Requests(AgentCommand::deleteContacts),
              (std::vector<Bytes>{DeleteContactsRequest({&id, 1})}));
}

TEST_F(ContactPage, WhileADeleteRunsThePageIsDisabledAndTheWindowLives) {
    CContactPage& page = OpenLoaded();
    agent_.Hold(AgentCommand::deleteContacts);
    List().SetTicked(0, true);
    page.OnCommand(3);
    Press(Dialog(548), 1215);
    ASSERT_TRUE(WaitFor([&] { return agent_.Requests(AgentCommand::deleteContacts).size() == 1; }));
    EXPECT_FALSE(page.isEnabled());
    EXPECT_EQ(Loads(), 1u);  // the list follows the deletion's end
    agent_.Release();
    WaitForLoads(2);
    EXPECT_TRUE(page.isEnabled());
}

TEST_F(ContactPage, DeleteThatCannotConnectIsToldAndTheListFetchedAgain) {
    auto gone = std::make_unique<ScriptedAgent>();
    gone->AnswerPayload(AgentCommand::listContacts, ListPayload(kThree).Get());
    CContactPage& page = OpenAt(gone->Port());
    page.Load();
    ASSERT_TRUE(WaitFor([&] { return List().RowCount() == 3 && Key() == 1; }));
    Settle();
    gone.reset();
    List().SetTicked(0, true);
    page.OnCommand(3);
    Press(Dialog(548), 1215);
    ASSERT_TRUE(WaitFor([&] { return List().State() == ListState::failed; }));
    EXPECT_EQ(host_.statuses.value(0), kConnectError);
    EXPECT_EQ(host_.statuses.value(1), kConnectError);
}

TEST_F(ContactPage, BrokenPhotosShowTheDefaultHead) {
    // A PNG header that claims 60,000 by 60,000 pixels.
    std::string huge(
        "\x89PNG\r\n\x1a\n\0\0\0\x0dIHDR\0\0\xea\x60\0\0\xea\x60\x08\x06\0\0\0\x80\xd2\x75\x42",
        33);
    huge.append(64, '\0');
    agent_.AnswerPayload(AgentCommand::listContacts,
                         ListPayload({{.id = 1},
                                      {.id = 2, .photo = "x"},
                                      {.id = 3, .photo = "no picture at all"},
                                      {.id = 4, .photo = huge},
                                      {.id = 5, .photo = std::string(262'245, 'x')}})
                             .Get());
    OpenLoaded();
    List().SelectRow(-1);
    const auto photo = [&](int row) {
        const QRect cell = List().CellRect(row, 0).adjusted(6, 6, -6, -6);
        return List().viewport()->grab(cell).toImage();
    };
    for (int row = 2; row < 5; row += 2) {  // rows of one ground
        EXPECT_EQ(photo(row), photo(0)) << row;
    }
    EXPECT_EQ(photo(3), photo(1));
}

TEST_F(ContactPage, NameOfAMegabyteIsShownAndCostsLittle) {
    const std::string name(1 << 20, 'n');
    agent_.AnswerPayload(AgentCommand::listContacts, ListPayload({{.id = 1, .name = name}}).Get());
    OpenLoaded();
    EXPECT_TRUE(List().CellAt(0, 1).text.startsWith(QStringLiteral("nnn")));
    EXPECT_LT(List().CellAt(0, 1).text.size(), 2000);
}

TEST_F(ContactPage, PageThatGoesDuringALoadLeavesNothingBehind) {
    CContactPage& page = Open();
    agent_.Hold(AgentCommand::listContacts);
    page.Load();
    ASSERT_TRUE(WaitFor([&] { return Loads() == 1; }));
    page_.reset();
    agent_.Release();
    Settle();
    EXPECT_EQ(Details(), 0u);
}

}  // namespace
}  // namespace quorvi
