#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>

#include "base/Text.h"
#include "tests/pages/messages/SmsPageFixture.h"

namespace quorvi {
namespace {

TEST_F(SmsPage, NumbersAreTheControls) {
    CSmsPage& page = Open();
    EXPECT_EQ(page.objectName(), QStringLiteral("dialog 397"));
    EXPECT_EQ(CSmsPage::kNumbers.loadKey, 2);
    EXPECT_NE(FindControl(&page, 1361), nullptr);
    EXPECT_EQ(Loads(), 0u);  // the navigator loads it, not the page itself
}

TEST_F(SmsPage, LoadShowsABlockAConversation) {
    OpenLoaded();
    EXPECT_EQ(AskHtml(View(), QStringLiteral("[...document.querySelectorAll('#sms_ul .sender')]"
                                             ".map(e => e.innerText).join('|')"))
                  .toString(),
              ToQString(u8"林远舟|10086"));
    EXPECT_TRUE(List().contains(ToQString(u8"[中国移动]")));
    EXPECT_EQ(Frame().State(), ListState::idle);
    EXPECT_TRUE(host_.statuses.isEmpty());
}

TEST_F(SmsPage, TheCountLineTellsHowManyConversationsAreShown) {
    CSmsPage& page = Open();
    EXPECT_EQ(page.CountLine(), QString());
    page.Load();
    WaitForLoads(1);
    EXPECT_TRUE(WaitFor([&] { return page.CountLine() == ToQString(u8"共 2 项"); }));
    // No data leaves what is shown, and what is said of it.
    agent_.AnswerNoData(AgentCommand::listConversations);
    page.OnCommand(CSmsPage::commandRefresh);
    WaitForLoads(2);
    EXPECT_EQ(page.CountLine(), ToQString(u8"共 2 项"));
}

TEST_F(SmsPage, ALoadThatWorksTakesAnOldConnectFailureBack) {
    FailBefore();
    OpenLoaded();
    EXPECT_TRUE(WaitFor([&] { return host_.status == kReady; }));
}

TEST_F(SmsPage, TheAttributionIsTheOneThatItWasHanded) {
    services_.attribution = [](std::string_view) { return std::string("elsewhere"); };
    OpenLoaded();
    EXPECT_TRUE(WaitFor([&] {
        return InnerHtml(View(), QStringLiteral("sms_ul")).contains(QStringLiteral("[elsewhere]"));
    }));
}

TEST_F(SmsPage, AnAttributionInAngleBracketsIsNoMarkup) {
    services_.attribution = [](std::string_view) { return Ansi(u8"<SP号码>"); };
    OpenLoaded();
    EXPECT_EQ(
        AskHtml(View(), QStringLiteral("document.querySelector('#sms_ul .location').innerText"))
            .toString(),
        ToQString(u8"[<SP号码>]"));
}

TEST_F(SmsPage, AMessageKeepsItsLinesAndANameStandsInOne) {
    using namespace std::string_literals;
    agent_.AnswerPayload(
        AgentCommand::listConversations,
        ConversationsPayload({{.name = "Lin\nYuan\0zhou"s, .text = "one\ntwo\0\r\nthree"s}}).Get());
    OpenLoaded();
    const auto shown = [&](const char* part) {
        return AskHtml(View(), QStringLiteral("document.querySelector('#sms_ul %1').innerText")
                                   .arg(QLatin1String(part)))
            .toString();
    };
    EXPECT_EQ(shown(".text > a"), QStringLiteral("one\ntwo\nthree"));
    EXPECT_EQ(shown(".sender"), QStringLiteral("Lin Yuanzhou"));
}

TEST_F(SmsPage, SaysThatItIsAtWorkWhileItLoadsAndDropsASecondRefresh) {
    agent_.Hold(AgentCommand::listConversations);
    CSmsPage& page = Open();
    page.OnCommand(CSmsPage::commandRefresh);
    page.OnCommand(CSmsPage::commandRefresh);
    EXPECT_EQ(Frame().State(), ListState::loading);
    ASSERT_TRUE(WaitFor([&] { return Key() == PageLoadState::kRunning; }));
    agent_.Release();
    WaitForLoads(1);
    EXPECT_EQ(Frame().State(), ListState::idle);
    Settle();
    EXPECT_EQ(Loads(), 1u);
}

TEST_F(SmsPage, ConnectFailureIsToldAndCoversAViewThatNeverShowedAnything) {
    OpenAt(UnusedPort()).Load();
    ASSERT_TRUE(WaitFor([&] { return Key() == PageLoadState::kEnded; }));
    EXPECT_EQ(host_.statuses, QStringList{kConnectError});
    EXPECT_EQ(Frame().State(), ListState::failed);
    EXPECT_FALSE(Frame().IsFilled());
    EXPECT_EQ(List(), QString());
}

// Replies that bring nothing to show.
class SmsPageUnchanged : public SmsPage,
                         public testing::WithParamInterface<ScriptedAgent::Reply> {};

TEST_P(SmsPageUnchanged, TheOldFragmentStaysWithoutAMessage) {
    CSmsPage& page = OpenLoaded();
    const QString before = List();
    agent_.Answer(AgentCommand::listConversations, GetParam());
    page.Load();
    ASSERT_TRUE(WaitFor([&] { return Frame().State() != ListState::loading; }));
    EXPECT_EQ(List(), before);
    EXPECT_EQ(Key(), PageLoadState::kEnded);
    EXPECT_TRUE(host_.statuses.isEmpty());
}

INSTANTIATE_TEST_SUITE_P(
    NoData_AbsentName_LeadingWord_Closed_Broken_Cut, SmsPageUnchanged,
    testing::Values(ScriptedAgent::Reply{Word(NoDataMark)},
                    ScriptedAgent::Reply{
                        Framed(ConversationsPayload({{.name = "new"}}).U64(9).Absent().Get())},
                    ScriptedAgent::Reply{Framed(Word(0))}, ScriptedAgent::Reply{Bytes{}},
                    ScriptedAgent::Reply{Join({Word(100), Word(0)}), ScriptedAgent::End::reset},
                    ScriptedAgent::Reply{Join({Word(100), Word(0)})}));

TEST_F(SmsPage, TheOldFragmentStaysWhenThePhoneIsGone) {
    auto phone = std::make_unique<ScriptedAgent>();
    phone->AnswerPayload(AgentCommand::listConversations, ConversationsPayload({{}}).Get());
    CSmsPage& page = OpenAt(phone->Port());
    page.Load();
    ASSERT_TRUE(WaitFor([&] { return Frame().IsFilled(); }));
    phone.reset();
    page.Load();
    ASSERT_TRUE(WaitFor([&] { return !host_.statuses.isEmpty(); }));
    EXPECT_TRUE(List().contains(ToQString(u8"林远舟")));
}

TEST_F(SmsPage, AViewLinkOpensTheComposerWithTheConversation) {
    OpenLoaded();
    Follow("vid=7");
    ASSERT_TRUE(WaitFor([] { return OpenDialog(kComposer) != nullptr; }));
    EXPECT_EQ(OpenDialog(kComposer)->windowTitle(), ToQString(u8"编写短信 - Quorvi"));
    ASSERT_TRUE(WaitFor([&] { return !agent_.Requests(AgentCommand::readConversation).empty(); }));
    EXPECT_EQ(agent_.Requests(AgentCommand::readConversation)[0], Join({Word(870202), Word(7)}));
    PressIn(kComposer, 1021);
    Settle();
    EXPECT_EQ(Loads(), 1u);  // cancelled: nothing is fetched anew
}

TEST_F(SmsPage, ALinkFarDownAListThatWasNeverInSightOpensItsConversation) {
    std::vector<ListedConversation> conversations;
    for (std::uint64_t id = 1; id <= 400; ++id) {
        conversations.push_back({.id = id});
    }
    agent_.AnswerPayload(AgentCommand::listConversations,
                         ConversationsPayload(conversations).Get());
    OpenLoaded();
    static_cast<void>(
        AskHtml(View(), QStringLiteral("document.querySelector(\"a[href='qvh:vid=390']\")"
                                       ".scrollIntoView({block: 'center'})")));
    ASSERT_TRUE(LiesStill(QStringLiteral("a[href='qvh:vid=390']")));
    Follow("vid=390");
    ASSERT_TRUE(WaitFor([&] { return !agent_.Requests(AgentCommand::readConversation).empty(); }));
    EXPECT_EQ(agent_.Requests(AgentCommand::readConversation)[0], Join({Word(870202), Word(390)}));
    PressIn(kComposer, 1021);
}

TEST_F(SmsPage, ANegativeIdComesBackAsTheSame32Bits) {
    OpenLoaded();
    Follow("vid=-2");
    ASSERT_TRUE(WaitFor([&] { return !agent_.Requests(AgentCommand::readConversation).empty(); }));
    EXPECT_EQ(agent_.Requests(AgentCommand::readConversation)[0],
              Join({Word(870202), Word(0xFFFFFFFE)}));
    PressIn(kComposer, 1021);
}

TEST_F(SmsPage, ADeleteLinkDeletesWithoutAQuestionAndLoadsAgain) {
    OpenLoaded();
    Follow("did=7");
    WaitForLoads(2);
    ASSERT_EQ(Deletes().size(), 1u);
    EXPECT_EQ(Deletes()[0], Join({Word(870206), Word(16), Word(1), Word(7)}));
    EXPECT_EQ(OpenDialog(kConfirm), nullptr);
}

// Where the Tab key stops in the list.
class SmsPageKeys : public SmsPage {
  protected:
    void OpenFocused() {
        CSmsPage& page = OpenLoaded();
        page.activateWindow();
        View().setFocus();
        ASSERT_TRUE(WaitFor(
            [&] { return AskHtml(View(), QStringLiteral("document.hasFocus()")).toBool(); }));
    }
    void Press(Qt::Key key) { QTest::keyClick(View().Browser()->focusProxy(), key); }
    // What has the focus: its words.
    QString Focused() {
        return AskHtml(View(), QStringLiteral("document.activeElement?.href ? "
                                              "document.activeElement.innerText : ''"))
            .toString();
    }
    void TabTo(std::u8string_view sender) {
        Press(Qt::Key_Tab);
        ASSERT_TRUE(WaitFor([&] { return Focused() == ToQString(sender); }));
    }
};

TEST_F(SmsPageKeys, EachConversationIsOneStopThatBearsItsSendersName) {
    OpenFocused();
    TabTo(u8"林远舟");
    TabTo(u8"10086");
}

TEST_F(SmsPageKeys, DeleteOnABlockDoesWhatItsDeleteLinkDoes) {
    OpenFocused();
    TabTo(u8"林远舟");
    Press(Qt::Key_Delete);
    WaitForLoads(2);
    ASSERT_EQ(Deletes().size(), 1u);
    EXPECT_EQ(Deletes()[0], Join({Word(870206), Word(16), Word(1), Word(7)}));
}

TEST_F(SmsPageKeys, SpaceOnABlockOpensAndDeletesNothing) {
    OpenFocused();
    TabTo(u8"林远舟");
    Press(Qt::Key_Space);
    Press(Qt::Key_Return);  // what comes of this is the first that comes
    ASSERT_TRUE(WaitFor([&] { return !agent_.Requests(AgentCommand::readConversation).empty(); }));
    EXPECT_TRUE(Deletes().empty());
    EXPECT_EQ(agent_.Requests(AgentCommand::readConversation).size(), 1u);
    PressIn(kComposer, 1021);
}

TEST_F(SmsPage, AllOfABlockIsTheLinkToItsConversation) {
    OpenLoaded();
    // Right of the text, where nothing stands.
    const QVariantList at = AskHtml(View(), QStringLiteral("(r => [r.right - 20, r.bottom - 6])("
                                                           "document.querySelector('#sms_ul > li')"
                                                           ".getBoundingClientRect())"))
                                .toList();
    ClickHtmlAt(View(), QPoint(at[0].toInt(), at[1].toInt()));
    ASSERT_TRUE(WaitFor([&] { return !agent_.Requests(AgentCommand::readConversation).empty(); }));
    EXPECT_EQ(agent_.Requests(AgentCommand::readConversation)[0], Join({Word(870202), Word(7)}));
    PressIn(kComposer, 1021);
}

TEST_F(SmsPage, AnIdOfMinusOneIsNotSent) {
    CSmsPage& page = OpenLoaded();
    page.OnMessage(Message::conversation, 1, -1);
    WaitForLoads(2);
    EXPECT_TRUE(Deletes().empty());
}

TEST_F(SmsPage, ADeleteThatFindsNoPhoneIsToldAndTheListIsTriedAllTheSame) {
    OpenAt(UnusedPort()).OnMessage(Message::conversation, 1, 7);
    ASSERT_TRUE(WaitFor([&] { return Key() == PageLoadState::kEnded; }));
    EXPECT_EQ(host_.statuses, (QStringList{kConnectError, kConnectError}));
}

TEST_F(SmsPage, IsDisabledWhileADeleteIsOnItsWay) {
    CSmsPage& page = OpenLoaded();
    agent_.Hold(AgentCommand::deleteConversation);
    page.OnMessage(Message::conversation, 1, 7);
    ASSERT_TRUE(WaitFor([&] { return Deletes().size() == 1; }));
    EXPECT_FALSE(page.isEnabled());
    page.OnCommand(CSmsPage::commandRefresh);
    page.OnMessage(Message::conversation, 1, 7);
    agent_.Release();
    WaitForLoads(2);
    EXPECT_EQ(Deletes().size(), 1u);
}

TEST_F(SmsPage, OtherLinksAndMessagesDoNothing) {
    CSmsPage& page = OpenLoaded();
    ClickHtml(View(), QStringLiteral("#sms_ul .text img"));  // its link is no command
    page.OnMessage(Message::conversation, 2, 7);
    page.OnMessage(Message::dashboardLink, 1, 7);
    EXPECT_EQ(OpenDialog(kComposer), nullptr);
    // A link that acts: it is seen to after all that came before it.
    Follow("vid=7");
    ASSERT_TRUE(WaitFor([&] { return !agent_.Requests(AgentCommand::readConversation).empty(); }));
    EXPECT_EQ(agent_.Requests(AgentCommand::readConversation).size(), 1u);
    EXPECT_TRUE(Deletes().empty());
    PressIn(kComposer, 1021);
    EXPECT_EQ(Loads(), 1u);
}

TEST_F(SmsPage, TheThirdCommandDoesNothing) {
    Open().OnCommand(2);
    Settle();
    EXPECT_EQ(Loads(), 0u);
    EXPECT_EQ(OpenDialog(kComposer), nullptr);
}

TEST_F(SmsPage, ComposingOpensTheComposerWithoutAConversationAndLoadsAgainOnOk) {
    CSmsPage& page = OpenLoaded();
    page.OnCommand(CSmsPage::commandCompose);
    ASSERT_NE(OpenDialog(kComposer), nullptr);
    ASSERT_TRUE(WaitFor([&] { return !agent_.Requests(AgentCommand::listGroupMembers).empty(); }));
    EXPECT_TRUE(agent_.Requests(AgentCommand::readConversation).empty());
    OpenDialog(kComposer)->accept();
    WaitForLoads(2);
}

// ---- a number that another page wants written to -----------------------------------------------

class SmsPageNumbers : public SmsPage {
  protected:
    void SetUp() override {
        SmsPage::SetUp();
        page_ = std::make_unique<CSmsPage>(host_, all_);
    }
    void Write(const char* number) {
        all_.numbersToWriteTo.Add(number);
        page_->OnMessage(Message::takeNumber, 0, 0);
        ASSERT_NE(OpenDialog(kComposer), nullptr);
    }
    static QLineEdit& Recipients() { return *FindControl<QLineEdit>(OpenDialog(kComposer), 1337); }
    static QPlainTextEdit& Text() {
        return *FindControl<QPlainTextEdit>(OpenDialog(kComposer), 1271);
    }
    void Send() {
        PressIn(kComposer, 1030);
        ASSERT_TRUE(WaitFor([] { return OpenDialog(kComposer) == nullptr; }));
    }

    Services all_ = services_.At(agent_.Port());
};

TEST_F(SmsPageNumbers, ANumberThatWaitsIsTheRecipientOfANewMessage) {
    Write("13800000000");
    EXPECT_EQ(Recipients().text(), QStringLiteral("13800000000"));
    Text().setPlainText(QStringLiteral("text"));
    Send();
    EXPECT_EQ(agent_.Requests(AgentCommand::sendMessage).size(), 1u);
    EXPECT_EQ(host_.status, ToQString(u8"已发送给 1 人"));
    Settle();
    EXPECT_EQ(Loads(), 0u);  // a page that was never shown loads when it is
}

TEST_F(SmsPageNumbers, OneThatDidNotGetOutStandsInTheNextComposerForItsNumber) {
    agent_.Answer(AgentCommand::sendMessage, {});  // closed upon, without a word
    Write("111");
    Text().setPlainText(QStringLiteral("text"));
    Send();
    EXPECT_EQ(host_.status, kUnacknowledged);
    Write("222");
    EXPECT_EQ(Text().toPlainText(), QString());
    OpenDialog(kComposer)->reject();
    Write("111");
    EXPECT_EQ(Text().toPlainText(), QStringLiteral("text"));
    OpenDialog(kComposer)->reject();
}

TEST_F(SmsPage, TheStatusSaysToHowManyAMessageWentAndThatAConversationIsGone) {
    CSmsPage& page = OpenLoaded();
    page.Compose(kNoConversation);
    FindControl<QLineEdit>(OpenDialog(kComposer), 1337)->setText(QStringLiteral("111;222"));
    FindControl<QPlainTextEdit>(OpenDialog(kComposer), 1271)->setPlainText(QStringLiteral("text"));
    PressIn(kComposer, 1030);
    WaitForLoads(2);
    EXPECT_EQ(host_.status, ToQString(u8"已发送给 2 人"));
    Follow("did=7");
    WaitForLoads(3);
    EXPECT_EQ(host_.status, ToQString(u8"已删除 1 个会话"));
}

// A composer of a message, or of an answer in conversation 7.
class SmsPageUnsent : public SmsPage, public testing::WithParamInterface<std::uint32_t> {
  protected:
    static QLineEdit& Recipients() { return *FindControl<QLineEdit>(OpenDialog(kComposer), 1337); }
    static QPlainTextEdit& Text() {
        return *FindControl<QPlainTextEdit>(OpenDialog(kComposer), 1271);
    }
    void Send() {
        PressIn(kComposer, 1030);
        ASSERT_TRUE(WaitFor([] { return OpenDialog(kComposer) == nullptr; }));
    }
};

TEST_P(SmsPageUnsent, AMessageThatDidNotGetOutStandsInTheNextComposerOfItsConversation) {
    agent_.Answer(AgentCommand::sendMessage, {});  // closed upon, without a word
    Open().Compose(GetParam());
    Recipients().setText(QStringLiteral("111"));
    Text().setPlainText(QStringLiteral("text"));
    Send();
    EXPECT_EQ(host_.status, kUnacknowledged);
    page_->Compose(9);  // another conversation
    EXPECT_EQ(Text().toPlainText(), QString());
    OpenDialog(kComposer)->reject();

    agent_.AnswerAcknowledged(AgentCommand::sendMessage);
    page_->Compose(GetParam());
    EXPECT_EQ(host_.status, kReady);  // it stands before the user
    EXPECT_EQ(Recipients().text(), QStringLiteral("111"));
    EXPECT_EQ(Text().toPlainText(), QStringLiteral("text"));
    Send();
    page_->Compose(GetParam());  // sent: it is gone
    EXPECT_EQ(Text().toPlainText(), QString());
    OpenDialog(kComposer)->reject();
    EXPECT_EQ(agent_.Requests(AgentCommand::sendMessage).size(), 2u);
}

INSTANTIATE_TEST_SUITE_P(New_Answer, SmsPageUnsent, testing::Values(kNoConversation, 7u));

TEST_F(SmsPage, MayGoWhileItsPhoneStalls) {
    GoWhileThePhoneStalls();
}

// ---- what is kept of a delete ------------------------------------------------------------------

TEST_F(SmsPage, AConversationIsReadAndKeptBeforeTheRequestIsSent) {
    CSmsPage& page = OpenLoaded();
    agent_.Hold(AgentCommand::deleteConversation);
    page.OnMessage(Message::conversation, 1, 7);
    ASSERT_TRUE(WaitFor([&] { return Deletes().size() == 1; }));
    EXPECT_TRUE(kept_.IsOne(BackupKind::messages, 1));
    agent_.Release();
    WaitForLoads(2);
}

TEST_F(SmsPage, AConversationThatCannotBeKeptIsAskedAboutAndStaysWhenTheAnswerIsNo) {
    CSmsPage& page = OpenLoaded();
    agent_.AnswerNoData(AgentCommand::readConversation);
    page.OnMessage(Message::conversation, 1, 7);
    Settle();
    ASSERT_NE(OpenDialog(kConfirm), nullptr);
    EXPECT_EQ(FindControl<QLabel>(OpenDialog(kConfirm), 1378)->text(),
              ToQString(u8"要删除的内容没能先保存到电脑：林远舟: 手机没有给出这个会话的短信。"
                        u8"这样删除以后就找不回来了，还要删除吗？"));
    PressIn(kConfirm, 1021);
    Settle();
    EXPECT_TRUE(Deletes().empty());
    EXPECT_TRUE(kept_.List().empty());
    EXPECT_EQ(Loads(), 1u);
}

TEST_F(SmsPage, AConversationThatCannotBeKeptIsDeletedWhenTheUserWantsItAllTheSame) {
    kept_.Refuse();
    CSmsPage& page = OpenLoaded();
    page.OnMessage(Message::conversation, 1, 7);
    Settle();
    PressIn(kConfirm, 1215);
    WaitForLoads(2);
    EXPECT_EQ(Deletes().size(), 1u);
}

}  // namespace
}  // namespace quorvi
