#include <QAbstractButton>
#include <QComboBox>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>

#include "base/Text.h"
#include "pages/contacts/ContactEditDlg.h"
#include "tests/pages/contacts/ContactReplies.h"
#include "tests/support/AgentDialogTest.h"
#include "tests/support/DialogDriver.h"
#include "tests/support/LoopbackAgent.h"
#include "ui/kit/ControlNumber.h"
#include "ui/kit/QtText.h"

namespace quorvi {
namespace {

using namespace std::string_literals;

class ContactEditor : public AgentDialogTest<CContactEditDlg> {
  protected:
    void SetUp() override {
        agent_.AnswerAcknowledged(AgentCommand::addContact);
        agent_.AnswerAcknowledged(AgentCommand::updateContact);
    }

    void OpenToAdd() { Show(new CContactEditDlg(host_, nullptr, agent_.Port())); }
    void OpenToUpdate(std::uint16_t port) { Show(new CContactEditDlg(host_, 7, nullptr, port)); }
    // With the contact loaded.
    void OpenLoaded(const WireBytes& contact) {
        agent_.AnswerPayload(AgentCommand::readContact, contact.Get());
        OpenToUpdate(agent_.Port());
        ASSERT_TRUE(WaitFor([&] { return Button(1020)->isEnabled(); }));
    }
    QLineEdit* Edit(int number) { return FindControl<QLineEdit>(dialog_, number); }
    QPlainTextEdit* Area(int number) { return FindControl<QPlainTextEdit>(dialog_, number); }
    QComboBox* Combo(int number) { return FindControl<QComboBox>(dialog_, number); }
    QAbstractButton* Button(int number) { return FindControl<QAbstractButton>(dialog_, number); }
    QString State() { return FindControl<QLabel>(dialog_, 1109)->text(); }
    // The number of the control that has the focus.
    QString Focused() { return dialog_->focusWidget()->objectName(); }
};

TEST_F(ContactEditor, OpensToAddWithItsDefaults) {
    OpenToAdd();
    EXPECT_EQ(dialog_->objectName(), QStringLiteral("dialog 540"));
    EXPECT_EQ(dialog_->windowTitle(), ToQString(u8"添加联系人 - Quorvi"));
    EXPECT_EQ(State(), ToQString(u8"就绪"));
    EXPECT_EQ(Combo(1380)->currentText(), ToQString(u8"手机"));
    EXPECT_EQ(Combo(1382)->currentText(), ToQString(u8"公司电话"));
    EXPECT_EQ(Combo(1383)->currentText(), ToQString(u8"个人"));
    EXPECT_EQ(Combo(1235)->currentText(), QStringLiteral("QQ"));
    EXPECT_EQ(Combo(1385)->currentText(), ToQString(u8"个人"));
    EXPECT_EQ(Combo(1380)->count(), 8);
    EXPECT_EQ(Combo(1235)->count(), 10);
    EXPECT_EQ(Combo(1385)->count(), 5);
    for (const int number : {1149, 1152, 1150, 1151, 1240, 1236, 1242, 1243, 1244}) {
        EXPECT_EQ(Edit(number)->text(), QString()) << number;
        EXPECT_FALSE(Edit(number)->accessibleName().isEmpty()) << number;
    }
    EXPECT_FALSE(Button(1224)->isChecked());
}

TEST_F(ContactEditor, EmptyNameIsRefusedAndNothingSent) {
    OpenToAdd();
    Edit(1150)->setText(QStringLiteral("111"));
    Button(1020)->click();
    EXPECT_EQ(State(), ToQString(u8"错误: 联系人姓名不能为空"));
    EXPECT_TRUE(dialog_->isVisible());
    EXPECT_TRUE(agent_.Requests().empty());
    // The next try begins with the state as it was.
    Edit(1149)->setText(QStringLiteral(" "));
    Button(1020)->click();
    EXPECT_EQ(State(), ToQString(u8"就绪"));
    EXPECT_TRUE(Ended(QDialog::Accepted));
}

TEST_F(ContactEditor, AddSendsEveryControlAsTheFormSays) {
    OpenToAdd();
    ContactForm form;
    form.favourite = true;
    form.name = Ansi(u8"林");
    form.nickname = "n1";
    form.note = "n2\nn3";
    form.phones = {{{7, "p1"}, {0, "p2"}, {4, "p3"}}};
    form.im = {-1, "i"};
    form.email = {3, Ansi(u8"邮")};
    form.website = "w";
    form.organisation = "o";
    form.address = "a";
    Button(1224)->click();
    Edit(1149)->setText(ToQString(u8"林"));
    Edit(1152)->setText(QStringLiteral("n1"));
    Area(1381)->setPlainText(QStringLiteral("n2\nn3"));
    Edit(1150)->setText(QStringLiteral("p1"));
    Combo(1380)->setCurrentText(ToQString(u8"其他"));
    Edit(1151)->setText(QStringLiteral("p2"));
    Combo(1382)->setCurrentText(ToQString(u8"自定义"));
    Edit(1240)->setText(QStringLiteral("p3"));
    Combo(1383)->setCurrentText(ToQString(u8"公司传真"));
    Edit(1236)->setText(QStringLiteral("i"));
    Combo(1235)->setCurrentText(ToQString(u8"自定义"));
    Edit(1242)->setText(ToQString(u8"邮"));
    Combo(1385)->setCurrentText(ToQString(u8"其他"));
    Area(1245)->setPlainText(QStringLiteral("w"));
    Edit(1244)->setText(QStringLiteral("o"));
    Edit(1243)->setText(QStringLiteral("a"));
    Button(1020)->click();
    EXPECT_TRUE(Ended(QDialog::Accepted));
    EXPECT_EQ(agent_.Requests(),
              (std::vector<Bytes>{AddContactRequest(RecordToAdd(form).value())}));
}

TEST_F(ContactEditor, CancelSendsNothing) {
    OpenToAdd();
    Edit(1149)->setText(QStringLiteral("A"));
    Button(1021)->click();
    EXPECT_TRUE(Ended(QDialog::Rejected));
    EXPECT_TRUE(agent_.Requests().empty());
}

TEST_F(ContactEditor, EveryControlHasAName) {
    OpenToAdd();
    for (const int number : {1149, 1152, 1150, 1151, 1240, 1236, 1242, 1243, 1244, 1245, 1381, 1380,
                             1382, 1383, 1235, 1385, 1224, 1020, 1021}) {
        EXPECT_FALSE(FindControl(dialog_, number)->accessibleName().isEmpty()) << number;
    }
    EXPECT_EQ(Button(1224)->text(), ToQString(u8"设为收藏"));
    EXPECT_EQ(Button(1020)->text(), ToQString(u8"保存"));
    EXPECT_EQ(Button(1021)->text(), ToQString(u8"取消"));
    QStringList captions;
    for (const auto* label : dialog_->Body()->findChildren<FormCaption*>()) {
        captions.append(label->text());
    }
    captions.removeAll(QString());  // the picture of a telephone
    EXPECT_EQ(captions,
              (QStringList{ToQString(u8"姓名"), ToQString(u8"昵称"), ToQString(u8"IM通讯"),
                           ToQString(u8"电子邮件"), ToQString(u8"联系地址"),
                           ToQString(u8"公司组织"), ToQString(u8"网站微博"), ToQString(u8"备注")}));
}

TEST_F(ContactEditor, TabGoesThroughTheFormTopToBottomAndThenTheFooter) {
    OpenToAdd();
    ASSERT_TRUE(QTest::qWaitForWindowActive(dialog_));
    QStringList order{Focused()};
    for (int i = 0; i < 18; ++i) {
        QTest::keyClick(dialog_->focusWidget(), Qt::Key_Tab);
        order.append(Focused());
    }
    EXPECT_EQ(order.join(QLatin1Char(' ')),
              QStringLiteral("1149 1152 1380 1150 1382 1151 1383 1240 1235 1236 1385 1242 1243 "
                             "1244 1245 1381 1224 1020 1021"));
}

TEST_F(ContactEditor, EnterSavesFromALineAndBreaksOneInTheNote) {
    OpenToAdd();
    EXPECT_TRUE(qobject_cast<QPushButton*>(Button(1020))->isDefault());
    ASSERT_TRUE(QTest::qWaitForWindowActive(dialog_));
    Area(1381)->setFocus();
    QTest::keyClick(Area(1381), Qt::Key_Return);
    EXPECT_EQ(Area(1381)->toPlainText(), QStringLiteral("\n"));
    EXPECT_TRUE(results_.empty());
    Edit(1149)->setText(QStringLiteral("A"));
    QTest::keyClick(Edit(1149), Qt::Key_Return);
    EXPECT_TRUE(Ended(QDialog::Accepted));
    EXPECT_EQ(agent_.Requests(AgentCommand::addContact).size(), 1u);
}

TEST_F(ContactEditor, EscapeIsCancel) {
    OpenToAdd();
    QTest::keyClick(Edit(1149), Qt::Key_Escape);
    EXPECT_TRUE(Ended(QDialog::Rejected));
    EXPECT_TRUE(agent_.Requests().empty());
}

TEST_F(ContactEditor, LoadShowsEveryField) {
    OpenLoaded(WholeContactPayload());
    EXPECT_TRUE(Button(1224)->isChecked());
    EXPECT_EQ(Edit(1149)->text(), ToQString(u8"林远舟"));
    EXPECT_EQ(Edit(1152)->text(), ToQString(u8"阿舟"));
    EXPECT_EQ(Edit(1150)->text(), QStringLiteral("13861234567"));
    EXPECT_EQ(Combo(1380)->currentText(), ToQString(u8"手机"));
    EXPECT_EQ(Edit(1151)->text(), QStringLiteral("0519-88123456"));
    EXPECT_EQ(Combo(1382)->currentText(), ToQString(u8"公司电话"));
    EXPECT_EQ(Edit(1240)->text(), QString());
    EXPECT_EQ(Combo(1383)->currentText(), ToQString(u8"个人"));  // as it opens
    EXPECT_EQ(Edit(1236)->text(), QStringLiteral("10240768"));
    EXPECT_EQ(Combo(1235)->currentText(), ToQString(u8"自定义"));
    EXPECT_EQ(Edit(1242)->text(), QStringLiteral("yz@example.com"));
    EXPECT_EQ(Combo(1385)->currentText(), ToQString(u8"个人"));
    EXPECT_EQ(Area(1245)->toPlainText(), QStringLiteral("http://yz.example.com"));
    EXPECT_EQ(Edit(1243)->text(), ToQString(u8"常州市"));
    EXPECT_EQ(Edit(1244)->text(), ToQString(u8"测绘研究院"));
    EXPECT_EQ(Area(1381)->toPlainText(), ToQString(u8"十月生日"));
    EXPECT_EQ(State(), ToQString(u8"就绪"));
    for (const int number : {1152, 1150, 1236, 1242, 1243, 1244}) {
        EXPECT_EQ(Edit(number)->cursorPosition(), 0) << number;  // a long text shows its start
    }
    EXPECT_EQ(Focused(), QStringLiteral("1149"));
    EXPECT_EQ(Edit(1149)->cursorPosition(), 3);  // the name is to be gone on with
}

TEST_F(ContactEditor, TextsOfAMegabyteAreShownAndSavedWhole) {
    const std::string name(1 << 20, 'n');
    OpenLoaded(ContactPayload(7, name));
    EXPECT_EQ(Edit(1149)->text().size(), 1 << 20);
    Area(1381)->setPlainText(QStringLiteral("note"));
    Button(1020)->click();
    EXPECT_TRUE(Ended(QDialog::Accepted));
    ContactRecord loaded = ParseContact(ContactPayload(7, name).Buffer()).value();
    ContactForm form = FormOf(loaded);
    form.note = "note";
    EXPECT_TRUE(agent_.Requests(AgentCommand::updateContact).at(0) ==
                UpdateContactRequest(RecordToUpdate(loaded, form)));
}

TEST_F(ContactEditor, LoadShowsTheContactAndASaveSendsTheDifference) {
    const WireBytes contact = ContactPayload(7, "林远舟",
                                             {{.id = 80, .type = 2, .text = "111"},
                                              {.id = 81, .type = 19, .text = "222"},
                                              {.id = 82, .type = 1, .text = "333"},
                                              {.id = 83, .type = 7, .text = "444"}});
    OpenLoaded(contact);
    EXPECT_EQ(dialog_->windowTitle(), ToQString(u8"修改联系人 - Quorvi"));
    EXPECT_EQ(Edit(1149)->text(), ToQString(u8"林远舟"));
    EXPECT_EQ(Edit(1150)->text(), QStringLiteral("111"));
    EXPECT_EQ(Edit(1151)->text(), QStringLiteral("222"));
    EXPECT_EQ(Combo(1382)->currentText(), ToQString(u8"自定义"));  // a type that it lacks
    EXPECT_EQ(Edit(1240)->text(), QStringLiteral("333"));
    Edit(1150)->clear();
    Edit(1243)->setText(QStringLiteral("a"));
    Button(1020)->click();
    EXPECT_TRUE(Ended(QDialog::Accepted));
    ContactRecord loaded = ParseContact(contact.Buffer()).value();
    ContactForm form = FormOf(loaded);
    form.phones[0].text.clear();
    form.address = "a";
    EXPECT_EQ(agent_.Requests(AgentCommand::readContact).at(0), ReadContactRequest(7));
    EXPECT_EQ(agent_.Requests(AgentCommand::updateContact),
              (std::vector<Bytes>{UpdateContactRequest(RecordToUpdate(loaded, form))}));
}

// A contact with texts that no field shows just as they are.
WireBytes OddContact(const std::string& text) {
    WireBytes bytes = ContactStart(7)
                          .U32(0)   // structured flag
                          .U32(1)   // name flag
                          .U64(70)  // name row id
                          .U32(0)   // reserved
                          .Text(text)
                          .U32(1)   // nickname flag
                          .U64(71)  // nickname row id
                          .U32(0)   // reserved
                          .Text(text)
                          .U32(1)   // note flag
                          .U64(72)  // note row id
                          .U32(0)   // reserved
                          .Text(text);
    std::uint64_t id = 80;
    for (std::size_t list = 0; list < std::size(kContactLists); ++list) {
        AddItems(bytes, {{id++, 1, text}});
    }
    return bytes;
}

// What the one update that was sent is, of a contact.
ContactRecord SentTo(const WireBytes& contact, const std::function<void(ContactRecord&)>& sent) {
    ContactRecord record = ParseContact(contact.Buffer()).value();
    record = RecordToUpdate(record, FormOf(record));
    sent(record);
    return record;
}

TEST_F(ContactEditor, TextThatIsLeftAloneGoesBackInTheVeryBytesThatCame) {
    const std::string text =
        "a\r\nb\rc\nd\0e\tf\xE2\x80\xA8g\xE2\x80\xA9h\xC2\xA0i\xFF\xF0\x9F\x8E\x88"s;
    OpenLoaded(OddContact(text));
    Edit(1150)->setText(QStringLiteral("222"));
    Button(1020)->click();
    EXPECT_TRUE(Ended(QDialog::Accepted));
    const ContactRecord sent =
        SentTo(OddContact(text), [](ContactRecord& record) { record.phones[0].text = "222"; });
    for (const ContactField* field : {&sent.name, &sent.nickname, &sent.note}) {
        ASSERT_EQ(field->text, text);
    }
    for (const auto* items :
         {&sent.emails, &sent.ims, &sent.websites, &sent.addresses, &sent.organisations}) {
        ASSERT_EQ(items->at(0).text, text);
    }
    EXPECT_EQ(agent_.Requests(AgentCommand::updateContact),
              (std::vector<Bytes>{UpdateContactRequest(sent)}));
}

TEST_F(ContactEditor, LinesOfANoteThatAreLeftAloneKeepTheirEnds) {
    const WireBytes contact = OddContact("a\r\nb\r\nc");
    OpenLoaded(contact);
    ASSERT_EQ(Area(1381)->toPlainText(), QStringLiteral("a\nb\nc"));
    Area(1381)->moveCursor(QTextCursor::Down);
    Area(1381)->insertPlainText(QStringLiteral("x\n"));
    Button(1020)->click();
    EXPECT_TRUE(Ended(QDialog::Accepted));
    EXPECT_EQ(agent_.Requests(AgentCommand::updateContact),
              (std::vector<Bytes>{UpdateContactRequest(SentTo(
                  contact, [](ContactRecord& record) { record.note.text = "a\r\nx\nb\r\nc"; }))}));
}

TEST_F(ContactEditor, EmptyNameIsSavedWhenAContactIsChanged) {
    OpenLoaded(ContactPayload(7, "A"));
    Edit(1149)->clear();
    Button(1020)->click();
    EXPECT_TRUE(Ended(QDialog::Accepted));
    EXPECT_EQ(agent_.Requests(AgentCommand::updateContact).size(), 1u);
}

TEST_F(ContactEditor, NoDataLeavesTheFieldsEmptyWithoutAMessage) {
    agent_.AnswerNoData(AgentCommand::readContact);
    OpenToUpdate(agent_.Port());
    ASSERT_TRUE(WaitFor([&] { return Button(1020)->isEnabled(); }));
    EXPECT_EQ(Edit(1149)->text(), QString());
    EXPECT_TRUE(host_.statuses.isEmpty());
    EXPECT_EQ(State(), ToQString(u8"就绪"));
    // A save then sends new rows to the contact.
    Edit(1149)->setText(QStringLiteral("A"));
    Button(1020)->click();
    EXPECT_TRUE(Ended(QDialog::Accepted));
    ContactRecord empty;
    empty.id = 7;
    ContactForm form;
    form.name = "A";
    EXPECT_EQ(agent_.Requests(AgentCommand::updateContact).at(0),
              UpdateContactRequest(RecordToUpdate(empty, form)));
}

TEST_F(ContactEditor, ConnectFailureAtTheLoadIsToldAndLeavesTheFieldsEmpty) {
    OpenToUpdate(UnusedPort());
    ASSERT_TRUE(WaitFor([&] { return !host_.statuses.isEmpty(); }));
    EXPECT_EQ(host_.statuses, QStringList{kConnectError});
    EXPECT_EQ(Edit(1149)->text(), QString());
    EXPECT_TRUE(dialog_->isVisible());
    // Whoever saves now is told what that may do.
    EXPECT_EQ(State(), ToQString(u8"没有读全原有的资料，保存可能会覆盖它们"));
}

TEST_F(ContactEditor, ALoadThatWorksTakesAnOldConnectFailureBack) {
    FailBefore();
    OpenLoaded(WholeContactPayload());
    EXPECT_EQ(host_.status, kReady);
}

TEST_F(ContactEditor, ContactThatIsCutIsShownAsFarAsItCameWithAWarning) {
    WireBytes cut;
    cut.U32(1'000'000).Add(ContactPayload(7, "A").Get());
    agent_.Answer(AgentCommand::readContact, {cut.Get(), ScriptedAgent::End::close});
    OpenToUpdate(agent_.Port());
    ASSERT_TRUE(WaitFor([&] { return Button(1020)->isEnabled(); }));
    EXPECT_EQ(Edit(1149)->text(), QStringLiteral("A"));
    EXPECT_EQ(State(), ToQString(u8"没有读全原有的资料，保存可能会覆盖它们"));
    EXPECT_TRUE(host_.statuses.isEmpty());
}

TEST_F(ContactEditor, CharactersThatTheCodePageLacksAreWarnedOf) {
    OpenLoaded(ContactPayload(7, "A\xF0\x9F\x8E\x88"));
    EXPECT_EQ(Edit(1149)->text(), QStringLiteral("A?"));
    EXPECT_EQ(State(), ToQString(u8"有些字符显示成“?”，改动那一栏后手机上也是“?”"));
}

TEST_F(ContactEditor, ConnectFailureAtTheSaveIsToldAndEndsWithOk) {
    OpenToUpdate(UnusedPort());
    ASSERT_TRUE(WaitFor([&] { return Button(1020)->isEnabled(); }));
    Button(1020)->click();
    EXPECT_TRUE(Ended(QDialog::Accepted));
    EXPECT_EQ(host_.statuses, (QStringList{kConnectError, kConnectError}));
}

TEST_F(ContactEditor, StalledPhoneLeavesTheWayOut) {
    agent_.Hold(AgentCommand::readContact);
    OpenToUpdate(agent_.Port());
    ASSERT_TRUE(WaitFor([&] { return agent_.Requests().size() == 1; }));
    EXPECT_FALSE(Edit(1149)->isEnabled());
    EXPECT_FALSE(Button(1224)->isEnabled());
    EXPECT_FALSE(Button(1020)->isEnabled());
    EXPECT_TRUE(Button(1021)->isEnabled());
    Button(1021)->click();
    EXPECT_TRUE(Ended(QDialog::Rejected));
    agent_.Release();
}

TEST_F(ContactEditor, SaveThatIsOnItsWayEndsWithOkHoweverItIsClosed) {
    // It may have reached the phone: the list has to be read again.
    agent_.Hold(AgentCommand::addContact);
    const auto closeBy = [&](const std::function<void()>& close) {
        results_.clear();
        OpenToAdd();
        Edit(1149)->setText(QStringLiteral("A"));
        const std::size_t before = agent_.Requests().size();
        Button(1020)->click();
        ASSERT_TRUE(WaitFor([&] { return agent_.Requests().size() == before + 1; }));
        close();
        EXPECT_TRUE(Ended(QDialog::Accepted));
        ASSERT_TRUE(Gone());
    };
    closeBy([&] { Button(1021)->click(); });
    closeBy([&] { QTest::keyClick(dialog_, Qt::Key_Escape); });
    closeBy([&] { dialog_->close(); });
    agent_.Release();
}

TEST_F(ContactEditor, SaveThatIsNotAcknowledgedIsKept) {
    const auto saveAt = [&](std::uint16_t port) {
        results_.clear();
        Show(new CContactEditDlg(host_, nullptr, port));
        Edit(1149)->setText(QStringLiteral("A"));
        std::optional<ContactForm> unsaved;
        QObject::connect(dialog_, &QDialog::finished, dialog_,
                         [&] { unsaved = dialog_->Unsaved(); });
        Button(1020)->click();
        EXPECT_TRUE(Ended(QDialog::Accepted));
        return unsaved;
    };
    EXPECT_FALSE(saveAt(agent_.Port()));
    ASSERT_TRUE(saveAt(UnusedPort()));
    EXPECT_EQ(saveAt(UnusedPort())->name, "A");
}

TEST_F(ContactEditor, SaveThatThePhoneDoesNotAnswerIsToldUntilOneIsAcknowledged) {
    const auto save = [&](CContactEditDlg* dialog) {
        results_.clear();
        Show(dialog);
        ASSERT_TRUE(WaitFor([&] { return Button(1020)->isEnabled(); }));
        Edit(1149)->setText(QStringLiteral("A"));
        Button(1020)->click();
        EXPECT_TRUE(Ended(QDialog::Accepted));
    };
    agent_.Answer(AgentCommand::addContact, {});  // closed without a word
    agent_.Answer(AgentCommand::updateContact, {});
    save(new CContactEditDlg(host_, nullptr, agent_.Port()));
    EXPECT_EQ(host_.status, kUnacknowledged);
    host_.SetStatus(kReady);
    save(new CContactEditDlg(host_, 7, nullptr, agent_.Port()));
    EXPECT_EQ(host_.status, kUnacknowledged);
    agent_.AnswerAcknowledged(AgentCommand::addContact);
    save(new CContactEditDlg(host_, nullptr, agent_.Port()));
    EXPECT_EQ(host_.status, ToQString(u8"已添加联系人 A"));
}

TEST_F(ContactEditor, ChangeThatIsResumedStandsOverWhatIsLoaded) {
    const WireBytes contact = OddContact("a\r\nb");
    ContactForm changed = FormOf(ParseContact(contact.Buffer()).value());
    changed.name = "A";
    host_.SetStatus(kUnacknowledged);
    agent_.AnswerPayload(AgentCommand::readContact, contact.Get());
    OpenToUpdate(agent_.Port());
    dialog_->Resume(changed);
    EXPECT_EQ(host_.status, kReady);  // it stands before the user
    ASSERT_TRUE(WaitFor([&] { return Button(1020)->isEnabled(); }));
    EXPECT_EQ(Edit(1149)->text(), QStringLiteral("A"));
    EXPECT_EQ(State(), ToQString(u8"上次填写的联系人没有得到手机的确认"));
    Button(1020)->click();
    EXPECT_TRUE(Ended(QDialog::Accepted));
    EXPECT_EQ(agent_.Requests(AgentCommand::updateContact),
              (std::vector<Bytes>{UpdateContactRequest(
                  SentTo(contact, [](ContactRecord& record) { record.name.text = "A"; }))}));
}

TEST_F(ContactEditor, ChangeThatThePhoneHasByNowIsNotResumed) {
    agent_.AnswerPayload(AgentCommand::readContact, ContactPayload(7, "A").Get());
    OpenToUpdate(agent_.Port());
    dialog_->Resume(FormOf(ParseContact(ContactPayload(7, "A").Buffer()).value()));
    ASSERT_TRUE(WaitFor([&] { return Button(1020)->isEnabled(); }));
    EXPECT_EQ(Edit(1149)->text(), QStringLiteral("A"));
    EXPECT_EQ(State(), ToQString(u8"就绪"));
}

TEST_F(ContactEditor, ChangeThatIsResumedStandsWhereTheContactCannotBeLoaded) {
    ContactForm changed;
    changed.name = "A";
    OpenToUpdate(UnusedPort());
    dialog_->Resume(changed);
    ASSERT_TRUE(WaitFor([&] { return Button(1020)->isEnabled(); }));
    EXPECT_EQ(Edit(1149)->text(), QStringLiteral("A"));
    EXPECT_EQ(State(), ToQString(u8"没有读全原有的资料，保存可能会覆盖它们"));
}

TEST_F(ContactEditor, ChangeThatIsResumedOutlivesAnEndDuringTheLoad) {
    const auto unsavedWhenCancelled = [&](bool duringTheLoad) {
        agent_.AnswerPayload(AgentCommand::readContact, ContactPayload(7, "B").Get());
        agent_.Hold(AgentCommand::readContact);
        ContactForm changed;
        changed.name = "A";
        OpenToUpdate(agent_.Port());
        dialog_->Resume(changed);
        bool unsaved = false;
        QObject::connect(dialog_, &QDialog::finished, dialog_,
                         [&] { unsaved = dialog_->Unsaved().has_value(); });
        if (!duringTheLoad) {
            agent_.Release();
            EXPECT_TRUE(WaitFor([&] { return Button(1020)->isEnabled(); }));
        }
        Button(1021)->click();
        agent_.Release();
        return unsaved;
    };
    EXPECT_TRUE(unsavedWhenCancelled(true));
    EXPECT_FALSE(unsavedWhenCancelled(false));
}

TEST_F(ContactEditor, CharactersThatCannotBeSavedAreWarnedOfWhileTheyStand) {
    OpenLoaded(ContactPayload(7, "A\xFF"));
    const QString loaded = State();
    const QString typed = ToQString(u8"有些字符无法保存，会变成“?”");
    const QString balloon = QStringLiteral("\U0001F388");
    Edit(1243)->setText(balloon);
    EXPECT_EQ(State(), typed);
    Area(1381)->setPlainText(balloon);
    Edit(1243)->setText(QStringLiteral("a"));
    EXPECT_EQ(State(), typed);
    Area(1381)->clear();
    EXPECT_EQ(State(), loaded);
}

TEST_F(ContactEditor, FormThatIsResumedIsShownWithAWord) {
    OpenToAdd();
    ContactForm form;
    form.name = "A";
    form.im = {-1, "i"};
    dialog_->Resume(form);
    EXPECT_EQ(Edit(1149)->text(), QStringLiteral("A"));
    EXPECT_EQ(Combo(1235)->currentIndex(), 9);
    EXPECT_EQ(State(), ToQString(u8"上次填写的联系人没有得到手机的确认"));
}

TEST_F(ContactEditor, WhateverItsStateSaysStandsInOnePlaceAndMovesNothing) {
    OpenToAdd();
    const auto* const footer = Button(1020)->parentWidget();
    const auto places = [&] {
        QList<QRect> all;
        for (const auto* widget : footer->findChildren<QWidget*>()) {
            all.append(widget->geometry());
        }
        return all;
    };
    DrainWindow();
    EXPECT_EQ(footer->findChildren<QLabel*>().size(), 1);
    const QList<QRect> before = places();
    Edit(1243)->setText(QStringLiteral("\U0001F388"));
    DrainWindow();
    EXPECT_EQ(State(), ToQString(u8"有些字符无法保存，会变成“?”"));
    EXPECT_EQ(places(), before);
    Button(1020)->click();
    EXPECT_EQ(State(), ToQString(u8"错误: 联系人姓名不能为空"));
    EXPECT_EQ(places(), before);
    // The longest of all has room.
    const QString longest = ToQString(u8"没有读全原有的资料，保存可能会覆盖它们");
    auto* state = FindControl<QLabel>(dialog_, 1109);
    state->setText(longest);
    EXPECT_GE(state->width(), state->sizeHint().width());
}

TEST_F(ContactEditor, EscapeAsksBeforeWhatWasTypedIsLost) {
    OpenToAdd();
    QTest::keyClicks(Edit(1152), QStringLiteral("n"));
    QTest::keyClick(Edit(1152), Qt::Key_Escape);
    ASSERT_NE(OpenDialog(0), nullptr);
    PressIn(0, 2);
    EXPECT_EQ(Edit(1152)->text(), QStringLiteral("n"));
    EXPECT_TRUE(dialog_->isVisible());
    QTest::keyClick(Edit(1152), Qt::Key_Escape);
    PressIn(0, 1);
    EXPECT_TRUE(Ended(QDialog::Rejected));
}

TEST_F(ContactEditor, EscapeAsksNothingWhileTheContactStandsAsItWasLoaded) {
    OpenLoaded(WholeContactPayload());
    Edit(1152)->setText(QStringLiteral("n"));
    Edit(1152)->setText(ToQString(u8"阿舟"));  // as it was
    QTest::keyClick(Edit(1152), Qt::Key_Escape);
    EXPECT_TRUE(Ended(QDialog::Rejected));
}

TEST_F(ContactEditor, EscapeAsksBeforeAFormThatWasResumedIsLost) {
    OpenToAdd();
    ContactForm form;
    form.name = "A";
    dialog_->Resume(form);
    QTest::keyClick(Edit(1152), Qt::Key_Escape);
    EXPECT_NE(OpenDialog(0), nullptr);
    PressIn(0, 1);
    EXPECT_TRUE(Ended(QDialog::Rejected));
}

TEST_F(ContactEditor, SaveOnceStartedCannotBePressedAgain) {
    agent_.Hold(AgentCommand::addContact);
    OpenToAdd();
    Edit(1149)->setText(QStringLiteral("A"));
    Button(1020)->click();
    EXPECT_FALSE(Button(1020)->isEnabled());
    Button(1020)->click();
    agent_.Release();
    EXPECT_TRUE(Ended(QDialog::Accepted));
    EXPECT_EQ(agent_.Requests().size(), 1u);
}

}  // namespace
}  // namespace quorvi
