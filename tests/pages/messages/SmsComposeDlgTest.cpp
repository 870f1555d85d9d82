#include <QClipboard>
#include <QGuiApplication>
#include <utility>

#include "tests/pages/messages/SmsComposeFixture.h"
#include "ui/kit/ControlNumber.h"

namespace quorvi {
namespace {

TEST_F(Composer, NumbersAreTheControls) {
    OpenLoaded();
    EXPECT_EQ(dialog_->objectName(), QStringLiteral("dialog 550"));
    for (const int number : {1359, 1338, 1337, 1271, 1030, 1021}) {
        EXPECT_NE(FindControl(dialog_, number), nullptr) << number;
    }
}

TEST_F(Composer, ANewMessageReadsTheTreeAndNoConversation) {
    OpenLoaded();
    EXPECT_TRUE(agent_.Requests(AgentCommand::readConversation).empty());
    EXPECT_EQ(agent_.Requests(),
              (std::vector<Bytes>{Word(870120), Word(870150)}));  // names before members
}

TEST_F(Composer, EachLoadThatWorksTakesAnOldConnectFailureBack) {
    agent_.Hold(AgentCommand::listGroupMembers);
    FailBefore();
    OpenAt(agent_.Port(), 7);
    EXPECT_TRUE(WaitFor([&] { return host_.status == kReady; }));  // the conversation
    FailBefore();
    agent_.Release();
    ASSERT_TRUE(WaitForTree());
    EXPECT_EQ(host_.status, kReady);
}

TEST_F(Composer, TheTreeShowsGroupsBySignedIdWithTheirMembersByName) {
    OpenLoaded();
    ASSERT_EQ(Tree().topLevelItemCount(), 3);
    EXPECT_EQ(Group(0)->text(0), ToQString(u8"【未分组】 [1]"));
    EXPECT_EQ(Group(1)->text(0), ToQString(u8"朋友 [2]"));
    EXPECT_EQ(Group(2)->text(0), QStringLiteral(" [1]"));  // a group without a title
    EXPECT_EQ(Group(0)->child(0)->text(0), ToQString(u8"顾晓棠 [10010]"));
    EXPECT_TRUE(Group(0)->isExpanded());  // the first, only
    EXPECT_FALSE(Group(1)->isExpanded());
}

TEST_F(Composer, AConversationIsReadFirstAndScrolledToItsEnd) {
    std::vector<ListedMessage> messages(50);
    messages.back().text = "last";
    agent_.AnswerPayload(AgentCommand::readConversation, MessagesPayload(messages).Get());
    OpenLoaded(7);
    const auto requests = agent_.Requests();
    ASSERT_EQ(requests.size(), 3u);
    EXPECT_EQ(requests[0], Join({Word(870202), Word(7)}));
    ASSERT_TRUE(WaitFor(
        [&] { return InnerHtml(View(), QStringLiteral("conversation_list")).contains(u"last"); }));
    EXPECT_TRUE(WaitFor([&] { return AtTheEnd(); }));
}

TEST_F(Composer, AConversationAtItsEndStaysThereWhenTheRecipientsTakeMoreRoom) {
    std::vector<ListedMessage> messages(50);
    agent_.AnswerPayload(AgentCommand::readConversation, MessagesPayload(messages).Get());
    OpenLoaded(7);
    ASSERT_TRUE(WaitFor([&] { return AtTheEnd(); }));
    const int before = View().height();
    QString many;
    for (int i = 0; i < 20; ++i) {
        many += QStringLiteral("139000000%1;").arg(i, 2, 10, QLatin1Char('0'));
    }
    Recipients().setText(many);
    ASSERT_TRUE(WaitFor([&] { return View().height() < before; }));
    ASSERT_TRUE(WaitFor(
        [&] { return AskHtml(View(), QStringLiteral("innerHeight")).toInt() == View().height(); }));
    EXPECT_TRUE(WaitFor([&] { return AtTheEnd(); }));
}

TEST_F(Composer, AMessageKeepsItsLines) {
    agent_.AnswerPayload(
        AgentCommand::readConversation,
        MessagesPayload({{.text = "one\r\ntwo"}, {.incoming = 0, .text = "<b>a</b>\nb"}}).Get());
    OpenLoaded(7);
    EXPECT_TRUE(WaitFor([&] {
        return AskHtml(View(), QStringLiteral("[...document.querySelectorAll('dd')].map(d =>"
                                              "d.innerText.trim()).join('|')"))
                   .toString() == ToQString(u8"对您说：\none\ntwo|我说：\na\nb");
    }));
}

TEST_F(Composer, ALongConversationStandsAtItsEndAndIsThereToItsBeginning) {
    std::vector<ListedMessage> messages(400);
    for (std::size_t i = 0; i < messages.size(); ++i) {
        for (std::size_t line = 0; line < i % 7; ++line) {
            messages[i].text += "明天下午三点在老地方见，会议改到下周二上午十点，";
        }
    }
    messages.front().text = "first";
    messages.back().text = "last";
    agent_.AnswerPayload(AgentCommand::readConversation, MessagesPayload(messages).Get());
    OpenLoaded(7);
    const auto inSight = [&](const char* block) {
        return AskHtml(View(), QStringLiteral("(r => r.top >= 0 && r.bottom <= innerHeight)"
                                              "(document.querySelector('.entry:%1')"
                                              ".getBoundingClientRect())")
                                   .arg(QLatin1String(block)))
            .toBool();
    };
    ASSERT_TRUE(WaitFor([&] { return inSight("last-child"); }));
    QTest::qWait(200);  // some frames: what has come near is laid out by now
    EXPECT_TRUE(inSight("last-child"));
    static_cast<void>(AskHtml(View(), QStringLiteral("scrollTo(0, 0)")));
    // What is not rendered has no inner text.
    EXPECT_TRUE(WaitFor([&] {
        return AskHtml(View(), QStringLiteral("document.querySelector('.entry').innerText"))
            .toString()
            .contains(u"first");
    }));
    EXPECT_TRUE(inSight("first-child"));
}

TEST_F(Composer, ThePartyIsResolvedAgainstTheTree) {
    OpenLoaded(7);
    EXPECT_EQ(Recipients().text(), ToQString(u8"\"林远舟\" <13861234567>;"));
}

TEST_F(Composer, ThePartyIsTheFirstMessagesAddressEvenIfItWentOut) {
    agent_.AnswerPayload(
        AgentCommand::readConversation,
        MessagesPayload({{.incoming = 0, .address = "111"}, {.address = "222"}}).Get());
    OpenLoaded(7);
    EXPECT_EQ(Recipients().text(), QStringLiteral("111"));
}

TEST_F(Composer, AConversationOnItsWayIsMarkedWhereItWillStand) {
    agent_.Hold(AgentCommand::readConversation);
    OpenAt(agent_.Port(), 7);
    ASSERT_TRUE(WaitFor([&] { return Conversation().State() == ListState::loading; }));
    EXPECT_FALSE(Conversation().IsFilled());
    agent_.Release();
    ASSERT_TRUE(WaitForTree());
    EXPECT_TRUE(Conversation().IsFilled());
    EXPECT_EQ(Conversation().State(), ListState::idle);
}

TEST_F(Composer, WithoutMessagesTheViewSaysWhatToDo) {
    const QString hint =
        QStringLiteral("getComputedStyle(document.querySelector('.none')).display");
    OpenLoaded();
    EXPECT_TRUE(Conversation().IsFilled());
    EXPECT_EQ(AskHtml(View(), hint).toString(), QStringLiteral("flex"));
    delete dialog_;
    OpenLoaded(7);
    EXPECT_EQ(AskHtml(View(), hint).toString(), QStringLiteral("none"));
}

TEST_F(Composer, AConversationWithoutDataShowsNothing) {
    agent_.AnswerNoData(AgentCommand::readConversation);
    OpenLoaded(7);
    EXPECT_EQ(InnerHtml(View(), QStringLiteral("conversation_list")), QString());
    EXPECT_EQ(Recipients().text(), QString());
    EXPECT_TRUE(Recipients().isEnabled());
    EXPECT_TRUE(host_.statuses.isEmpty());
}

TEST_F(Composer, AnAbsentAddressDropsWhatWasBuilt) {
    agent_.AnswerPayload(AgentCommand::readConversation,
                         MessagesPayload({{}}).U64(2).U32(1).Absent().Get());
    OpenLoaded(7);
    EXPECT_EQ(InnerHtml(View(), QStringLiteral("conversation_list")), QString());
    EXPECT_EQ(Recipients().text(), QString());
}

TEST_F(Composer, WithoutAPhoneItSaysSoAndStaysOpenForTyping) {
    OpenAt(UnusedPort(), 7);
    ASSERT_TRUE(WaitForTree());
    EXPECT_EQ(host_.statuses, (QStringList{kConnectError, kConnectError}));
    EXPECT_EQ(Tree().topLevelItemCount(), 0);
    EXPECT_TRUE(dialog_->isVisible());
    EXPECT_TRUE(Recipients().isEnabled());
}

TEST_F(Composer, WithoutMembersTheTreeStaysEmpty) {
    agent_.AnswerNoData(AgentCommand::listGroupMembers);
    OpenLoaded();
    EXPECT_EQ(Tree().topLevelItemCount(), 0);
    EXPECT_TRUE(host_.statuses.isEmpty());
}

TEST_F(Composer, AnAbsentNameStopsTheTreeFromBeingBuilt) {
    agent_.AnswerPayload(AgentCommand::listGroupMembers,
                         MembersPayload({{5, "林远舟", "13861234567"}}).U64(5).Absent().Get());
    OpenLoaded();
    EXPECT_EQ(Tree().topLevelItemCount(), 0);
}

TEST_F(Composer, OtherArgumentsOfTheLoadedMessageAreIgnored) {
    OpenLoaded();
    dialog_->OnMessage(Message::documentLoaded, 1);
    Settle();
    EXPECT_EQ(agent_.Requests().size(), 2u);
}

TEST_F(Composer, TypingAContactsNumberTurnsItIntoTheNameForm) {
    OpenLoaded();
    QTest::keyClicks(&Recipients(), QStringLiteral("13861234567"));
    EXPECT_EQ(Recipients().text(), ToQString(u8"\"林远舟\" <13861234567>;"));
}

TEST_F(Composer, ACountryPrefixIsNoDifference) {
    OpenLoaded();
    Recipients().setText(QStringLiteral("+8613861234567"));
    EXPECT_EQ(Recipients().text(), ToQString(u8"\"林远舟\" <+8613861234567>;"));
}

TEST_F(Composer, AShorterNumberHasToMatchInWhole) {
    OpenLoaded();
    Recipients().setText(QStringLiteral("0010"));
    EXPECT_EQ(Recipients().text(), QStringLiteral("0010"));
    Recipients().setText(QStringLiteral("10010"));
    EXPECT_EQ(Recipients().text(), ToQString(u8"\"顾晓棠\" <10010>;"));
}

TEST_F(Composer, ASecondNumberTypedBehindAnEntryIsAnEntryOfItsOwn) {
    OpenLoaded();
    QTest::keyClicks(&Recipients(), QStringLiteral("1386123456715951230456"));
    EXPECT_EQ(RecipientNumbers(FromQString(Recipients().text())),
              (std::vector<std::string>{"13861234567", "15951230456"}));
}

TEST_F(Composer, APastedListOfNumbersIsSplitAtSemicolons) {
    OpenLoaded();
    QGuiApplication::clipboard()->setText(ToQString(u8"111\r\n222；333\n"));
    Recipients().setText(QStringLiteral("000;444"));
    Recipients().setCursorPosition(4);
    Recipients().paste();
    EXPECT_EQ(Recipients().text(), QStringLiteral("000;111;222;333;444"));
    EXPECT_EQ(Recipients().cursorPosition(), 16);
}

TEST_F(Composer, TicksRebuildTheRecipientsFromNothing) {
    OpenLoaded();
    Recipients().setText(QStringLiteral("typed"));
    Tick(Group(0)->child(0));
    // The blank before the bracket belongs to the name that is read back.
    EXPECT_EQ(Recipients().text(), ToQString(u8"\"顾晓棠 \" <10010>;"));
    Tick(Group(0)->child(0));
    EXPECT_EQ(Recipients().text(), QString());
}

TEST_F(Composer, AGroupsTickTicksItsMembers) {
    OpenLoaded();
    Tick(Group(1));
    EXPECT_EQ(RecipientNumbers(FromQString(Recipients().text())),
              (std::vector<std::string>{"13861234567", "15951230456"}));
    Tick(Group(1));
    EXPECT_EQ(Recipients().text(), QString());
}

TEST_F(Composer, AContactInTwoGroupsTickedTwiceGivesTwoEntries) {
    OpenLoaded();
    Tick(Group(2));
    Group(1)->setExpanded(true);
    for (int i = 0; i < 2; ++i) {
        if (Group(1)->child(i)->text(0).contains(u"13861234567")) {
            Tick(Group(1)->child(i));
        }
    }
    EXPECT_EQ(RecipientNumbers(FromQString(Recipients().text())),
              (std::vector<std::string>{"13861234567", "13861234567"}));
}

TEST_F(Composer, ABracketInANameCutsTheName) {
    agent_.AnswerPayload(AgentCommand::listGroupMembers,
                         MembersPayload({{-1, "A[b]", "10010"}}).Get());
    OpenLoaded();
    Tick(Group(0));
    EXPECT_EQ(Recipients().text(), QStringLiteral("\"A\" <b] [10010>;"));
}

TEST_F(Composer, SendsTheTextToEachNumberAndEndsWithOk) {
    OpenLoaded();
    Tick(Group(1));
    Text().setPlainText(ToQString(u8"你好"));
    PressIn(kComposer, 1030);
    EXPECT_TRUE(Ended(QDialog::Accepted));
    ASSERT_EQ(Sent().size(), 1u);
    EXPECT_EQ(Sent()[0], Join({Word(870204), Word(52), Word(2),  // code, total, count
                               quorvi::Text("13861234567"), quorvi::Text("15951230456"),
                               quorvi::Text("你好")}));
    EXPECT_TRUE(host_.statuses.isEmpty());
}

TEST_F(Composer, AnEmptyTextOrNobodyToSendToDoesNothing) {
    OpenLoaded();
    PressIn(kComposer, 1030);
    Text().setPlainText(QStringLiteral("text"));
    PressIn(kComposer, 1030);
    Recipients().setText(QStringLiteral(";10010"));  // its first part is empty: nobody
    PressIn(kComposer, 1030);
    Text().clear();
    Recipients().setText(QStringLiteral("10010"));
    PressIn(kComposer, 1030);
    Settle();
    EXPECT_TRUE(Sent().empty());
    EXPECT_TRUE(dialog_->isVisible());
    EXPECT_TRUE(host_.statuses.isEmpty());
}

TEST_F(Composer, ShowsToWhomItGoesNumberByNumber) {
    OpenLoaded();
    EXPECT_FALSE(Line().isVisible());
    Recipients().setText(ToQString(u8"\"老林\" <13861234567>;15951230456;114;"));
    EXPECT_TRUE(Line().isVisible());
    EXPECT_EQ(Said(), (QStringList{ToQString(u8"将发给 3 个号码"),
                                   ToQString(u8"老林 13861234567，叶知秋 15951230456，114")}));
    Recipients().clear();
    EXPECT_FALSE(Line().isVisible());
}

TEST_F(Composer, ShowsWhatIsNoNumberOnItsOwn) {
    OpenLoaded();
    Recipients().setText(ToQString(u8"10086;周末一起去;"));
    EXPECT_EQ(Said(), (QStringList{ToQString(u8"将发给 1 个号码，"), ToQString(u8"1 处不是号码"),
                                   ToQString(u8"10086，周末一起去（不是号码）")}));
    Recipients().setText(QStringLiteral("10086;;10010"));
    EXPECT_EQ(Said(),
              (QStringList{ToQString(u8"将发给 1 个号码，"),
                           ToQString(u8"空着的一处后面的不会发送"), QStringLiteral("10086")}));
}

TEST_F(Composer, CountsThoseForWhomThereIsNoRoomWhatIsNoNumberFirst) {
    OpenLoaded();
    QString field;
    for (int i = 0; i < 99; ++i) {
        field += QStringLiteral("139000000%1;").arg(i, 2, 10, QLatin1Char('0'));
    }
    Recipients().setText(field + QStringLiteral("nobody;"));
    ASSERT_EQ(Said().size(), 3);
    EXPECT_TRUE(Said()[2].startsWith(ToQString(u8"nobody（不是号码），13900000000，")));
    EXPECT_TRUE(Said()[2].endsWith(ToQString(u8"，等 100 个")));
    const auto* chips = dialog_->findChild<RecipientChips*>();
    EXPECT_EQ(chips->height(), 2 * look::Metric::chipHeight + look::Metric::chipLineGap);
}

TEST_F(Composer, ANameWithASemicolonIsSeenToBeCutBeforeItIsSent) {
    agent_.AnswerPayload(AgentCommand::listGroupMembers,
                         MembersPayload({{5, "Lin; work", "13861234567"}}).Get());
    OpenLoaded();
    Tick(Group(0));
    EXPECT_EQ(Said().at(1), ToQString(u8"1 处不是号码"));
}

TEST_F(Composer, ASendToWhatIsNoNumberAsksFirst) {
    OpenLoaded();
    Fill(u"10086;nobody", u"text");
    PressIn(kComposer, 1030);
    ASSERT_NE(OpenDialog(0), nullptr);
    EXPECT_EQ(FindControl<QLabel>(OpenDialog(0), 65535)->text(),
              ToQString(u8"收件人中的“nobody”不是号码，手机发不到那里。仍然要发送吗？"));
    EXPECT_TRUE(FindControl<QPushButton>(OpenDialog(0), 2)->isDefault());
    PressIn(0, 2);
    Settle();
    EXPECT_TRUE(Sent().empty());
    EXPECT_TRUE(dialog_->isVisible());
    PressIn(kComposer, 1030);
    PressIn(0, 1);
    EXPECT_TRUE(Ended(QDialog::Accepted));
    ASSERT_EQ(Sent().size(), 1u);
    EXPECT_EQ(Sent()[0], Join({Word(870204), Word(39), Word(2), quorvi::Text("10086"),
                               quorvi::Text("nobody"), quorvi::Text("text")}));
}

TEST_F(Composer, EscapeAsksBeforeWhatWasTypedIsLost) {
    OpenLoaded(7);
    QTest::keyClicks(&Text(), QStringLiteral("t"));
    QTest::keyClick(&Text(), Qt::Key_Escape);
    ASSERT_NE(OpenDialog(0), nullptr);
    PressIn(0, 2);
    EXPECT_TRUE(dialog_->isVisible());
    QTest::keyClick(&Text(), Qt::Key_Escape);
    PressIn(0, 1);
    EXPECT_TRUE(Ended(QDialog::Rejected));
}

TEST_F(Composer, EscapeAsksBeforeRecipientsThatWerePickedAreLost) {
    OpenLoaded();
    Tick(Group(0)->child(0));
    QTest::keyClick(dialog_, Qt::Key_Escape);
    ASSERT_NE(OpenDialog(0), nullptr);
    PressIn(0, 2);
    Tick(Group(0)->child(0));
    QTest::keyClick(dialog_, Qt::Key_Escape);
    EXPECT_TRUE(Ended(QDialog::Rejected));
}

TEST_F(Composer, EscapeAsksNothingInAConversationThatWasOnlyRead) {
    OpenLoaded(7);
    ASSERT_FALSE(Recipients().text().isEmpty());
    QTest::keyClick(dialog_, Qt::Key_Escape);
    EXPECT_TRUE(Ended(QDialog::Rejected));
}

TEST_F(Composer, ASendThatFindsNoPhoneIsToldAndEndsWithOk) {
    OpenAt(UnusedPort());
    ASSERT_TRUE(WaitForTree());
    host_.statuses.clear();
    Text().setPlainText(QStringLiteral("text"));
    Recipients().setText(QStringLiteral("10010"));
    PressIn(kComposer, 1030);
    EXPECT_TRUE(Ended(QDialog::Accepted));
    EXPECT_EQ(host_.statuses, QStringList{kConnectError});
}

TEST_F(Composer, ItsControlsAreDisabledWhileAMessageIsOnItsWay) {
    OpenLoaded();
    agent_.Hold(AgentCommand::sendMessage);
    Text().setPlainText(QStringLiteral("text"));
    Recipients().setText(QStringLiteral("10010"));
    PressIn(kComposer, 1030);
    ASSERT_TRUE(WaitFor([&] { return Sent().size() == 1; }));
    EXPECT_FALSE(Text().isEnabled());
    EXPECT_FALSE(FindControl(dialog_, 1030)->isEnabled());
    PressIn(kComposer, 1030);  // a second press sends nothing
    agent_.Release();
    EXPECT_TRUE(Ended(QDialog::Accepted));
    EXPECT_EQ(Sent().size(), 1u);
}

TEST_F(Composer, SaysThatItSendsAndCannotBeCancelledButClosed) {
    OpenLoaded();
    agent_.Hold(AgentCommand::sendMessage);
    Fill(u"10010", u"text");
    PressIn(kComposer, 1030);
    EXPECT_EQ(State(), ToQString(u8"正在发送…"));
    EXPECT_FALSE(FindControl(dialog_, 1021)->isEnabled());
    QTest::keyClick(dialog_, Qt::Key_Escape);
    EXPECT_TRUE(Ended(QDialog::Accepted));  // it may have reached the phone
    agent_.Release();
}

TEST_F(Composer, KeepsWhatThePhoneHasNotAcknowledged) {
    OpenAt(UnusedPort());
    ASSERT_TRUE(WaitForTree());
    std::optional<UnsentMessage> unsent;
    QObject::connect(dialog_, &QDialog::finished, [&] { unsent = dialog_->Unsent(); });
    Fill(u"10010", u"text");
    EXPECT_FALSE(dialog_->Unsent());  // not told to send yet
    PressIn(kComposer, 1030);
    EXPECT_TRUE(Ended(QDialog::Accepted));
    ASSERT_TRUE(unsent);
    EXPECT_EQ(unsent->recipients, QStringLiteral("10010"));
    EXPECT_EQ(unsent->text, QStringLiteral("text"));
}

TEST_F(Composer, KeepsNothingOfAMessageThatWasSent) {
    OpenLoaded();
    bool kept = true;
    QObject::connect(dialog_, &QDialog::finished, [&] { kept = dialog_->Unsent().has_value(); });
    Fill(u"111", u"text");
    PressIn(kComposer, 1030);
    EXPECT_TRUE(Ended(QDialog::Accepted));
    EXPECT_FALSE(kept);
}

TEST_F(Composer, SendsSeveralLinesAsTheyStand) {
    OpenLoaded();
    Fill(u"111", u"a\nb");
    PressIn(kComposer, 1030);
    EXPECT_TRUE(Ended(QDialog::Accepted));
    ASSERT_EQ(Sent().size(), 1u);
    EXPECT_EQ(Sent()[0],
              Join({Word(870204), Word(26), Word(1), quorvi::Text("111"), quorvi::Text("a\nb")}));
}

TEST_F(Composer, TenThousandPeopleInTwoGroupsAreAllInTheField) {
    constexpr std::size_t kPeople = 10'000;
    WireBytes members = MembersPayload({});
    for (const std::uint64_t group : {5U, 9U}) {
        for (std::size_t i = 0; i < kPeople; ++i) {
            const std::string number = std::to_string(13'800'000'000 + i);
            members.U64(group).Text("林远舟 " + number).Text(number);
        }
    }
    agent_.AnswerPayload(AgentCommand::listGroupMembers, members.Get());
    OpenLoaded();
    Tick(Group(0));
    Tick(Group(1));
    EXPECT_EQ(RecipientNumbers(FromQString(Recipients().text())).size(), 2 * kPeople);
}

TEST_F(Composer, EnterInTheRecipientsFieldDoesNotSend) {
    OpenLoaded();
    Text().setPlainText(QStringLiteral("text"));
    Recipients().setText(QStringLiteral("10010"));
    QTest::keyClick(&Recipients(), Qt::Key_Return);
    Settle();
    EXPECT_TRUE(Sent().empty());
    EXPECT_TRUE(dialog_->isVisible());
}

TEST_F(Composer, CancelAndTheCloseButtonEndWithCancel) {
    OpenLoaded();
    PressIn(kComposer, 1021);
    EXPECT_TRUE(Ended(QDialog::Rejected));
    OpenAt(agent_.Port());
    OpenDialog(kComposer)->close();
    EXPECT_EQ(results_.back(), QDialog::Rejected);
}

TEST_F(Composer, MayBeClosedBeforeItsViewHasLoaded) {
    OpenAt(agent_.Port(), 7);
    PressIn(kComposer, 1021);
    EXPECT_TRUE(Ended(QDialog::Rejected));
    ASSERT_TRUE(Gone());
    Settle();
    EXPECT_TRUE(agent_.Requests().empty());
}

TEST_F(Composer, TellsHowLongTheMessageWillBe) {
    OpenLoaded();
    EXPECT_EQ(Length(), ToQString(u8"0 字\n0 条短信"));
    Text().setPlainText(ToQString(u8"你好"));
    EXPECT_EQ(Length(), ToQString(u8"2 字\n1 条短信"));
    Text().setPlainText(QString(71, QChar(u'你')));
    EXPECT_EQ(Length(), ToQString(u8"71 字\n2 条短信"));
    Text().setPlainText(QString(160, QLatin1Char('a')));
    EXPECT_EQ(Length(), ToQString(u8"160 字\n1 条短信"));
}

TEST_F(Composer, SaysThatACharacterIsLostOnTheWayOut) {
    OpenLoaded();
    Text().setPlainText(ToQString(u8"生日快乐"));
    EXPECT_EQ(State(), QString());
    Text().setPlainText(ToQString(u8"生日快乐🎂"));
    EXPECT_EQ(State(), ToQString(u8"有些字符无法发送，会变成“?”"));
    Text().setPlainText(ToQString(u8"生日快乐"));
    EXPECT_EQ(State(), QString());
}

// The sessions that the composer runs one after the other.
class ComposerStalled : public Composer, public testing::WithParamInterface<AgentCommand> {};

TEST_P(ComposerStalled, MayBeClosedWhileThePhoneHoldsItsReply) {
    agent_.Hold(GetParam());
    OpenAt(agent_.Port(), 7);
    ASSERT_TRUE(WaitFor([&] { return !agent_.Requests(GetParam()).empty(); }));
    PressIn(kComposer, 1021);
    EXPECT_TRUE(Ended(QDialog::Rejected));
    ASSERT_TRUE(Gone());
    agent_.Release();
    Settle();
}

INSTANTIATE_TEST_SUITE_P(Conversation_Names_Members, ComposerStalled,
                         testing::Values(AgentCommand::readConversation,
                                         AgentCommand::listGroupNames,
                                         AgentCommand::listGroupMembers));

Bytes ReplyTo(AgentCommand command) {
    switch (command) {
        case AgentCommand::readConversation:
            return Framed(MessagesPayload({{.address = "1", .text = "A"}}).Get());
        case AgentCommand::listGroupNames:
            return Framed(WireBytes().U32(0).U64(5).Text("G").Get());
        default:
            return Framed(MembersPayload({{5, "A", "1"}}).Get());
    }
}

// A session of the composer, and how many bytes of its reply come before it stalls.
using StalledReply = std::pair<AgentCommand, std::size_t>;

std::vector<StalledReply> EachStep() {
    std::vector<StalledReply> steps;
    for (const AgentCommand command : {AgentCommand::readConversation, AgentCommand::listGroupNames,
                                       AgentCommand::listGroupMembers}) {
        for (std::size_t came = 0; came < ReplyTo(command).size(); ++came) {
            steps.emplace_back(command, came);
        }
    }
    return steps;
}

class ComposerCut : public Composer, public testing::WithParamInterface<StalledReply> {};

TEST_P(ComposerCut, MayBeClosedAtEveryStepOfAStalledReply) {
    const auto [command, came] = GetParam();
    Bytes reply = ReplyTo(command);
    reply.resize(came);
    agent_.Answer(command, {reply, ScriptedAgent::End::wait});
    OpenAt(agent_.Port(), 7);
    ASSERT_TRUE(WaitFor([&, command = command] { return !agent_.Requests(command).empty(); }));
    QTest::qWait(10);
    PressIn(kComposer, 1021);
    EXPECT_TRUE(Ended(QDialog::Rejected));
    ASSERT_TRUE(Gone());
}

INSTANTIATE_TEST_SUITE_P(EachByte, ComposerCut, testing::ValuesIn(EachStep()));

}  // namespace
}  // namespace quorvi
