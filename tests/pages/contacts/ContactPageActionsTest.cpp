// What the contacts page opens and does: its menu, the editor, the deletion.
#include <QLabel>
#include <QLineEdit>

#include "tests/pages/contacts/ContactPageFixture.h"
#include "tests/support/KeptDeletePageTest.h"

namespace quorvi {
namespace {

TEST_F(ContactPage, DoubleClickOpensTheEditorOfItsContact) {
    OpenLoaded();
    QTest::mouseDClick(List().viewport(), Qt::LeftButton, {},
                       List().CellRect(0, kNameColumn).center());
    SkinDialog* editor = OpenDialog(kEditor);
    ASSERT_NE(editor, nullptr);
    EXPECT_EQ(editor->windowTitle(), ToQString(u8"修改联系人 - Quorvi"));
    ASSERT_TRUE(WaitFor([&] { return Details() >= 2; }));
    PressIn(kEditor, 1021);
    Settle();
    EXPECT_EQ(Loads(), 1u);  // cancelled: nothing is fetched again
}

TEST_F(ContactPage, EditorThatEndsWithOkFetchesTheListAgain) {
    CContactPage& page = OpenLoaded();
    page.OnCommand(1);
    SkinDialog* editor = OpenDialog(kEditor);
    ASSERT_NE(editor, nullptr);
    EXPECT_EQ(editor->windowTitle(), ToQString(u8"添加联系人 - Quorvi"));
    FindControl<QLineEdit>(editor, 1149)->setText(QStringLiteral("A"));
    PressIn(kEditor, 1020);
    WaitForLoads(2);
    EXPECT_EQ(agent_.Requests(AgentCommand::addContact).size(), 1u);
}

TEST_F(ContactPage, ChangeThatDidNotGetToThePhoneStandsInTheNextEditorOfItsContactOnce) {
    CContactPage& page = OpenLoaded();
    agent_.Answer(AgentCommand::updateContact, {});  // closed without a word
    // Opens the editor of a row, with its contact loaded.
    const auto edit = [&](int row) {
        List().SelectRow(row);
        Settle();
        page.EditSelected();
        EXPECT_TRUE(WaitFor(
            [] { return FindControl<QAbstractButton>(OpenDialog(kEditor), 1020)->isEnabled(); }));
        return FindControl<QLineEdit>(OpenDialog(kEditor), 1149);
    };
    const auto nameIn = [&](int row) {
        const QString name = edit(row)->text();
        PressIn(kEditor, 1021);
        return name;
    };
    edit(1)->setText(QStringLiteral("A"));
    PressIn(kEditor, 1020);
    WaitForLoads(2);
    EXPECT_EQ(host_.status, kUnacknowledged);
    services_.device.SetSerial("first");  // the link had stood from an earlier start
    EXPECT_EQ(nameIn(0), ToQString(u8"林远舟"));
    services_.device.SetSerial("second");
    EXPECT_EQ(nameIn(1), ToQString(u8"林远舟"));  // another phone's contact of the same id
    services_.device.SetSerial("first");
    EXPECT_EQ(nameIn(1), QStringLiteral("A"));
    EXPECT_EQ(nameIn(1), ToQString(u8"林远舟"));
}

TEST_F(ContactPage, GroupThatDidNotGetToThePhoneStandsInTheNextEditorOfALaterDialog) {
    CContactPage& page = OpenLoaded();
    agent_.AnswerNoData(AgentCommand::listGroups);
    const auto openEditor = [&] {
        page.OnCommand(CContactPage::commandGroups);
        PressIn(kGroups, 1154);
        return FindControl<QLineEdit>(OpenDialog(681), 1257);
    };
    agent_.Answer(AgentCommand::addGroup, {});  // closed without a word
    openEditor()->setText(QStringLiteral("A"));
    PressIn(681, 1215);
    ASSERT_TRUE(WaitFor([] { return OpenDialog(681) == nullptr; }));
    PressIn(kGroups, 1215);
    EXPECT_EQ(openEditor()->text(), QStringLiteral("A"));
    PressIn(681, 1021);
    PressIn(kGroups, 1215);
}

TEST_F(ContactPage, NewContactThatDidNotGetToThePhoneStandsInTheNextEditorOnce) {
    CContactPage& page = OpenLoaded();
    const auto nameInEditor = [] {
        return FindControl<QLineEdit>(OpenDialog(kEditor), 1149)->text();
    };
    agent_.Answer(AgentCommand::addContact, {});  // closed without a word
    page.AddContact();
    FindControl<QLineEdit>(OpenDialog(kEditor), 1149)->setText(QStringLiteral("A"));
    PressIn(kEditor, 1020);
    WaitForLoads(2);
    page.AddContact();
    EXPECT_EQ(nameInEditor(), QStringLiteral("A"));
    PressIn(kEditor, 1021);
    page.AddContact();
    EXPECT_EQ(nameInEditor(), QString());
    PressIn(kEditor, 1021);

    agent_.AnswerAcknowledged(AgentCommand::addContact);
    page.AddContact();
    FindControl<QLineEdit>(OpenDialog(kEditor), 1149)->setText(QStringLiteral("B"));
    PressIn(kEditor, 1020);
    WaitForLoads(3);
    page.AddContact();
    EXPECT_EQ(nameInEditor(), QString());
}

TEST_F(ContactPage, MenuHasItsItems) {
    OpenLoaded();
    QMenu* menu = OpenMenu();
    ASSERT_NE(menu, nullptr);
    QStringList texts;
    for (const QAction* action : menu->actions()) {
        texts.append(action->isSeparator() ? QStringLiteral("-") : action->text());
    }
    EXPECT_EQ(texts, (QStringList{ToQString(u8"添加联系人"), ToQString(u8"修改选择的"),
                                  ToQString(u8"删除选择的"), QStringLiteral("-"),
                                  ToQString(u8"导出联系人…"), ToQString(u8"导入联系人…"),
                                  QStringLiteral("-"), ToQString(u8"排序")}));
    delete menu;
}

// ---- what the status says of a deed ------------------------------------------------------------

TEST_F(ContactPage, ASavedContactIsNamedInTheStatus) {
    CContactPage& page = OpenLoaded();
    page.AddContact();
    FindControl<QLineEdit>(OpenDialog(kEditor), 1149)->setText(ToQString(u8"林远舟"));
    PressIn(kEditor, 1020);
    WaitForLoads(2);
    EXPECT_EQ(host_.status, ToQString(u8"已添加联系人 林远舟"));
    page.EditSelected();
    Settle();
    PressIn(kEditor, 1020);
    WaitForLoads(3);
    EXPECT_EQ(host_.status, ToQString(u8"已保存联系人 林远舟"));
}

TEST_F(ContactPage, AContactThatWasNotSavedIsNotSaidToBe) {
    agent_.Answer(AgentCommand::addContact, {});  // closed without a word
    CContactPage& page = OpenLoaded();
    page.AddContact();
    PressIn(kEditor, 1021);
    EXPECT_EQ(host_.status, kReady);
    page.AddContact();
    FindControl<QLineEdit>(OpenDialog(kEditor), 1149)->setText(QStringLiteral("A"));
    PressIn(kEditor, 1020);
    WaitForLoads(2);
    EXPECT_EQ(host_.status, kUnacknowledged);
}

// ---- a number that another page wants added ----------------------------------------------------

class ContactPageNumbers : public ContactPage {
  protected:
    void SetUp() override {
        ContactPage::SetUp();
        page_ = std::make_unique<CContactPage>(host_, all_);
    }
    void Add(const char* number) {
        all_.numbersToAdd.Add(number);
        page_->OnMessage(Message::takeNumber, 0, 0);
    }
    static QLineEdit& Field(int control) {
        return *FindControl<QLineEdit>(OpenDialog(kEditor), control);
    }

    Services all_ = services_.At(agent_.Port());
};

TEST_F(ContactPageNumbers, ANumberThatWaitsBeginsANewContact) {
    Add("+86 138-0000-0000");
    ASSERT_NE(OpenDialog(kEditor), nullptr);
    EXPECT_EQ(OpenDialog(kEditor)->windowTitle(), ToQString(u8"添加联系人 - Quorvi"));
    EXPECT_EQ(Field(1150).text(), QStringLiteral("+86 138-0000-0000"));
    Field(1149).setText(QStringLiteral("A"));
    PressIn(kEditor, 1020);
    Settle();
    EXPECT_EQ(agent_.Requests(AgentCommand::addContact).size(), 1u);
    EXPECT_EQ(host_.status, ToQString(u8"已添加联系人 A"));
    EXPECT_EQ(Loads(), 0u);  // a page that was never shown loads when it is
}

TEST_F(ContactPageNumbers, WithoutANumberThatWaitsNothingOpens) {
    page_->OnMessage(Message::takeNumber, 0, 0);
    EXPECT_EQ(OpenDialog(kEditor), nullptr);
}

TEST_F(ContactPageNumbers, OneThatDidNotGetToThePhoneStandsInTheNextEditorOfItsNumber) {
    agent_.Answer(AgentCommand::addContact, {});  // closed without a word
    Add("111");
    Field(1149).setText(QStringLiteral("A"));
    PressIn(kEditor, 1020);
    Settle();
    Add("222");
    EXPECT_EQ(Field(1149).text(), QString());
    PressIn(kEditor, 1021);
    Add("111");
    EXPECT_EQ(Field(1149).text(), QStringLiteral("A"));
    EXPECT_EQ(Field(1150).text(), QStringLiteral("111"));
    PressIn(kEditor, 1021);
}

TEST_F(ContactPage, ThirdCommandOpensTheGroups) {
    OpenLoaded().OnCommand(2);
    ASSERT_NE(OpenDialog(kGroups), nullptr);
    EXPECT_EQ(OpenDialog(kGroups)->windowTitle(), ToQString(u8"联系人分组 - Quorvi"));
}

TEST_F(ContactPage, MenuAddsAndEdits) {
    OpenLoaded();
    ChooseInMenu(0);
    ASSERT_NE(OpenDialog(kEditor), nullptr);
    EXPECT_EQ(OpenDialog(kEditor)->windowTitle(), ToQString(u8"添加联系人 - Quorvi"));
    PressIn(kEditor, 1021);
    ChooseInMenu(1);
    ASSERT_NE(OpenDialog(kEditor), nullptr);
    EXPECT_EQ(OpenDialog(kEditor)->windowTitle(), ToQString(u8"修改联系人 - Quorvi"));
}

TEST_F(ContactPage, MenuHasNoEffectOnNoSelection) {
    OpenLoaded();
    List().SelectRow(-1);
    ChooseInMenu(1);
    ChooseInMenu(2);
    Settle();
    EXPECT_EQ(OpenDialog(kEditor), nullptr);
    EXPECT_EQ(OpenDialog(kConfirm), nullptr);
    EXPECT_EQ(OpenDialog(kNothingChecked), nullptr);
}

TEST_F(ContactPage, DeleteWithoutATickAsksForOne) {
    CContactPage& page = OpenLoaded();
    page.OnCommand(3);
    ASSERT_NE(OpenDialog(kNothingChecked), nullptr);
    PressIn(kNothingChecked, 1215);
    Settle();
    EXPECT_TRUE(agent_.Requests(AgentCommand::deleteContacts).empty());
    EXPECT_EQ(Loads(), 1u);
}

TEST_F(ContactPage, DeleteNamesTheTickedContactsInRowOrderAndFetchesAgain) {
    CContactPage& page = OpenLoaded();
    List().SetTicked(2, true);
    List().SetTicked(0, true);
    page.OnCommand(3);
    SkinDialog* question = OpenDialog(kConfirm);
    ASSERT_NE(question, nullptr);
    EXPECT_EQ(FindControl<QLabel>(question, 1378)->text(),
              ToQString(u8"您真的要删除选择的【 2 】条联系人吗？"));
    PressIn(kConfirm, 1215);
    Settle();
    PressIn(kConfirm, 1215);  // the phone gives the same contact for both, so that one is not kept
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
    PressIn(kConfirm, 1021);
    Settle();
    EXPECT_TRUE(agent_.Requests(AgentCommand::deleteContacts).empty());
    EXPECT_EQ(Loads(), 1u);
    EXPECT_TRUE(List().IsTicked(0));
}

TEST_F(ContactPage, DeleteFromTheMenuNeedsNoTick) {
    OpenLoaded();
    Click(1);
    agent_.AnswerPayload(AgentCommand::readContact, ContactPayload(12, "顾晓棠").Get());
    ChooseInMenu(2);
    PressIn(kConfirm, 1215);
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
    PressIn(kConfirm, 1215);
    ASSERT_TRUE(WaitFor([&] { return agent_.Requests(AgentCommand::deleteContacts).size() == 1; }));
    EXPECT_FALSE(page.isEnabled());
    EXPECT_EQ(Loads(), 1u);  // the list follows the deletion's end
    for (const int command : {0, 1, 2, 3}) {
        page.OnCommand(command);
    }
    for (const int dialog : {kEditor, kGroups, kConfirm}) {
        EXPECT_EQ(OpenDialog(dialog), nullptr) << dialog;
    }
    EXPECT_EQ(Loads(), 1u);
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
    PressIn(kConfirm, 1215);
    ASSERT_TRUE(WaitFor([&] { return List().State() == ListState::failed; }));
    EXPECT_EQ(host_.statuses.value(0), kConnectError);
    EXPECT_EQ(host_.statuses.value(1), kConnectError);
}

// ---- what is kept of a delete ------------------------------------------------------------------

using ContactDelete =
    TickedDelete<ContactPage, CContactPage::commandDelete, AgentCommand::listContacts,
                 AgentCommand::deleteContacts, BackupKind::contacts, 1>;
INSTANTIATE_TYPED_TEST_SUITE_P(Contacts, KeptDeletePage, ContactDelete);

TEST_F(ContactPage, WhatIsDeletedIsReadFromThePhone) {
    CContactPage& page = OpenLoaded();
    List().SetTicked(0, true);
    page.OnCommand(CContactPage::commandDelete);
    PressIn(kConfirm, 1215);
    WaitForLoads(2);
    Settle();
    EXPECT_EQ(Details(), 3u);  // that which is kept beside those of the page
}

TEST_F(ContactPage, AContactThatThePhoneDoesNotGiveIsNamedBeforeItGoes) {
    CContactPage& page = OpenLoaded();
    agent_.AnswerNoData(AgentCommand::readContact);
    List().SetTicked(1, true);
    page.OnCommand(CContactPage::commandDelete);
    PressIn(kConfirm, 1215);
    Settle();
    EXPECT_EQ(FindControl<QLabel>(OpenDialog(kConfirm), 1378)->text(),
              ToQString(u8"要删除的内容没能先保存到电脑：顾晓棠: 手机没有给出这个联系人的资料。"
                        u8"这样删除以后就找不回来了，还要删除吗？"));
    PressIn(kConfirm, 1021);
    Settle();
    EXPECT_TRUE(agent_.Requests(AgentCommand::deleteContacts).empty());
    EXPECT_TRUE(kept_.List().empty());
}

}  // namespace
}  // namespace quorvi
