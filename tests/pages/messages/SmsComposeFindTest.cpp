#include <QGuiApplication>

#include "tests/pages/messages/SmsComposeFixture.h"

namespace quorvi {
namespace {

TEST_F(Composer, CtrlFNarrowsTheTreeAndARecipientThatIsHiddenStaysOne) {
    OpenLoaded();
    Tick(Group(0)->child(0));  // 顾晓棠
    QTest::keySequence(QGuiApplication::focusWindow(), QKeySequence::Find);
    auto* field = dialog_->findChild<QLineEdit*>(QStringLiteral("find"));
    ASSERT_TRUE(field->hasFocus());
    QTest::keyClicks(field, QStringLiteral("yezq"));
    EXPECT_TRUE(Group(0)->isHidden());
    EXPECT_TRUE(Group(1)->isExpanded());
    EXPECT_TRUE(Group(1)->child(0)->isHidden());  // 林远舟
    Tick(Group(1));
    EXPECT_EQ(Recipients().text(), ToQString(u8"\"顾晓棠 \" <10010>;\"叶知秋 \" <15951230456>;"));
    QTest::keyClick(field, Qt::Key_Escape);
    EXPECT_TRUE(dialog_->isVisible());  // the bar alone is closed
    EXPECT_FALSE(field->isVisible());
    EXPECT_FALSE(Group(0)->isHidden());
    EXPECT_FALSE(Group(1)->isExpanded());
    EXPECT_TRUE(Tree().IsTicked(Group(0)->child(0)));
}

TEST_F(Composer, AGroupIsFoundByItsTitleAndNotByItsCount) {
    agent_.AnswerPayload(
        AgentCommand::listGroupMembers,
        MembersPayload({{5, "林远舟", "10086"}, {5, "叶知秋", "10010"}, {-1, "顾", "1"}}).Get());
    OpenLoaded();
    QTest::keySequence(QGuiApplication::focusWindow(), QKeySequence::Find);
    auto* field = dialog_->findChild<QLineEdit*>(QStringLiteral("find"));
    field->setText(QStringLiteral("2"));
    EXPECT_TRUE(Group(1)->isHidden());
    field->setText(QStringLiteral("py"));
    EXPECT_FALSE(Group(1)->isHidden());
    EXPECT_FALSE(Group(1)->child(1)->isHidden());
    EXPECT_TRUE(Group(0)->isHidden());
}

// With a conversation of three messages before it, the text to write in focus.
class ComposerFind : public Composer {
  protected:
    void OpenConversation() {
        agent_.AnswerPayload(
            AgentCommand::readConversation,
            MessagesPayload(
                {{.text = "到家了吗"}, {.incoming = 0, .text = "到了"}, {.text = "早点休息"}})
                .Get());
        OpenLoaded(7);
        ASSERT_TRUE(Shows(u8"到家了吗|到了|早点休息"));
        dialog_->activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(dialog_));
    }
    // The field of the bar over the conversation.
    QLineEdit& Field() { return *Conversation().findChild<QLineEdit*>(QStringLiteral("find")); }
    QLineEdit& FieldOfTree() { return *Tree().findChild<QLineEdit*>(QStringLiteral("find")); }
    QString Count() {
        return Conversation().findChild<QLabel*>(QStringLiteral("findCount"))->text();
    }
    static void PressCtrlF() {
        QTest::keySequence(QGuiApplication::focusWindow(), QKeySequence::Find);
    }
    // What stands out among the messages.
    bool Marks(std::u8string_view words) {
        const QString script = QStringLiteral(
            "[...document.querySelectorAll('found-text')].map(e => e.textContent).join('|')");
        return WaitFor([&] { return AskHtml(View(), script).toString() == ToQString(words); });
    }
    bool Shows(std::u8string_view texts) {
        const QString script = QStringLiteral(
            "[...document.querySelectorAll('#conversation_list dd')]"
            ".map(e => [...e.childNodes].slice(1, -1).map(n => n.textContent).join('')).join('|')");
        return WaitFor([&] { return AskHtml(View(), script).toString() == ToQString(texts); });
    }
};

TEST_F(ComposerFind, CtrlFNarrowsTheConversationAndEscapeShowsItAsItWas) {
    OpenConversation();
    ASSERT_TRUE(Text().hasFocus());
    PressCtrlF();
    ASSERT_TRUE(Field().hasFocus());
    EXPECT_FALSE(FieldOfTree().isVisible());
    EXPECT_EQ(Field().accessibleName(), ToQString(u8"在短信对话中查找"));
    Field().setText(ToQString(u8"到"));
    EXPECT_TRUE(Shows(u8"到家了吗|到了"));
    EXPECT_EQ(Count(), ToQString(u8"找到 2 项"));
    Field().setText(ToQString(u8"休息"));
    EXPECT_TRUE(Shows(u8"早点休息"));
    QTest::keyClick(&Field(), Qt::Key_Escape);
    EXPECT_TRUE(dialog_->isVisible());  // the bar alone is closed
    EXPECT_FALSE(Field().isVisible());
    EXPECT_TRUE(Shows(u8"到家了吗|到了|早点休息"));
    EXPECT_EQ(agent_.Requests(AgentCommand::readConversation).size(), 1u);
}

TEST_F(ComposerFind, WhatIsFoundStandsOutInItsBubble) {
    OpenConversation();
    PressCtrlF();
    Field().setText(ToQString(u8"到"));
    EXPECT_TRUE(Marks(u8"到|到"));
    EXPECT_TRUE(Shows(u8"到家了吗|到了"));
    Field().setText(ToQString(u8"到了"));
    EXPECT_TRUE(Marks(u8"到了"));
    QTest::keyClick(&Field(), Qt::Key_Escape);
    EXPECT_TRUE(Marks(u8""));
    EXPECT_TRUE(Shows(u8"到家了吗|到了|早点休息"));
}

TEST_F(ComposerFind, WhatIsFoundStandsOutHoweverItIsSpeltAndNothingElseDoes) {
    agent_.AnswerPayload(AgentCommand::readConversation,
                         MessagesPayload({{.text = "wifi 密码，ＷｉＦｉ"},
                                          {.incoming = 0, .text = "您说的 WIFI：a.b*c|"}})
                             .Get());
    OpenLoaded(7);
    ASSERT_TRUE(Shows(u8"wifi 密码，ＷｉＦｉ|您说的 WIFI：a.b*c|"));
    PressCtrlF();
    Field().setText(QStringLiteral("wifi"));
    EXPECT_TRUE(Marks(u8"wifi|ＷｉＦｉ|WIFI"));
    Field().setText(ToQString(u8"说"));  // 对您说 and 我说 are the program's words
    EXPECT_TRUE(Marks(u8"说"));
    Field().setText(QStringLiteral(".b*c|"));
    EXPECT_TRUE(Marks(u8".b*c|"));
}

TEST_F(ComposerFind, AMessageWithMarkupIsNoMoreThanItsWordsWhenTheyStandOut) {
    agent_.AnswerPayload(
        AgentCommand::readConversation,
        MessagesPayload({{.text = "<b onclick='x()'>find</b> me <a href='qvh:did=1'>find</a> "
                                  "<found-text id='f'>x</found-text> A&B"}})
            .Get());
    OpenLoaded(7);
    ASSERT_TRUE(Shows(u8"find me find x A&B"));
    PressCtrlF();
    Field().setText(QStringLiteral("find"));
    EXPECT_TRUE(Marks(u8"find|find"));
    Field().setText(QStringLiteral("&"));
    EXPECT_TRUE(Marks(u8"&"));
    EXPECT_EQ(AskHtml(View(), QStringLiteral("document.querySelector('dd foreign-text').innerHTML"))
                  .toString(),
              QStringLiteral("<b>find</b> me find x A<found-text>&amp;</found-text>B"));
}

TEST_F(ComposerFind, CtrlFInTheViewIsOfTheConversationAndEscapeThereClosesTheBar) {
    OpenConversation();
    QWidget* keys = View().Browser()->focusProxy();
    View().setFocus();
    ASSERT_TRUE(WaitFor([&] { return keys->hasFocus(); }));
    PressCtrlF();
    ASSERT_TRUE(WaitFor([&] { return Field().hasFocus(); }));
    Field().setText(ToQString(u8"休息"));
    ASSERT_TRUE(Shows(u8"早点休息"));
    QTest::keyClick(&Field(), Qt::Key_Down);
    ASSERT_TRUE(WaitFor([&] { return keys->hasFocus(); }));
    QTest::keyClick(keys, Qt::Key_Escape);
    EXPECT_TRUE(WaitFor([&] { return !Field().isVisible(); }));
    EXPECT_TRUE(dialog_->isVisible());
    EXPECT_TRUE(Shows(u8"到家了吗|到了|早点休息"));
}

TEST_F(ComposerFind, CtrlFInTheTreeIsOfTheTreeAndOneBarIsOpenAtATime) {
    OpenConversation();
    PressCtrlF();
    Field().setText(ToQString(u8"休息"));
    ASSERT_TRUE(Shows(u8"早点休息"));
    Tree().setFocus();
    PressCtrlF();
    EXPECT_TRUE(FieldOfTree().hasFocus());
    EXPECT_FALSE(Field().isVisible());
    EXPECT_TRUE(Shows(u8"到家了吗|到了|早点休息"));
    FieldOfTree().setText(QStringLiteral("yezq"));
    EXPECT_TRUE(Group(0)->isHidden());
    PressCtrlF();  // again, from the field: still the tree
    EXPECT_TRUE(FieldOfTree().hasFocus());
    Text().setFocus();
    PressCtrlF();
    EXPECT_TRUE(Field().hasFocus());
    EXPECT_FALSE(FieldOfTree().isVisible());
    EXPECT_FALSE(Group(0)->isHidden());
}

TEST_F(ComposerFind, WhereNoMessageHasItTheFrameSaysSo) {
    OpenConversation();
    PressCtrlF();
    Field().setText(QStringLiteral("xyz"));
    EXPECT_EQ(Count(), ToQString(u8"找到 0 项"));
    EXPECT_TRUE(Shows(u8""));
    const QImage nothing = Conversation().grab().toImage();
    Field().setText(QStringLiteral("xyzw"));
    EXPECT_NE(Conversation().grab().toImage(), nothing);  // it names what was typed
    QTest::keyClick(&Field(), Qt::Key_Escape);
    EXPECT_TRUE(Shows(u8"到家了吗|到了|早点休息"));
}

TEST_F(ComposerFind, TheNewestOfWhatWasFoundIsSeenAndAfterwardsTheEndAgain) {
    std::vector<ListedMessage> messages(60);
    for (std::size_t i = 0; i < messages.size(); ++i) {
        messages[i].text = i % 2 == 0 ? "even" : "odd";
    }
    agent_.AnswerPayload(AgentCommand::readConversation, MessagesPayload(messages).Get());
    OpenLoaded(7);
    dialog_->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(dialog_));
    // The document has the height that the view has now.
    const auto stands = [&] {
        return AskHtml(View(), QStringLiteral("innerHeight")).toInt() == View().height() &&
               AtTheEnd();
    };
    ASSERT_TRUE(WaitFor(stands));
    PressCtrlF();
    ASSERT_TRUE(WaitFor(stands));
    Field().setText(QStringLiteral("odd"));
    EXPECT_EQ(Count(), ToQString(u8"找到 30 项"));
    const auto shown = [&] {
        return AskHtml(View(), QStringLiteral("document.getElementById('conversation_list')"
                                              ".children.length"))
            .toInt();
    };
    ASSERT_TRUE(WaitFor([&] { return shown() == 30; }));
    EXPECT_TRUE(AtTheEnd());
    QTest::keyClick(&Field(), Qt::Key_Escape);
    ASSERT_TRUE(WaitFor([&] { return shown() == 60; }));
    EXPECT_TRUE(WaitFor(stands));
}

TEST_F(ComposerFind, TheTabKeyLeadsThroughTheBarToTheConversation) {
    OpenConversation();
    PressCtrlF();
    QTest::keyClick(&Field(), Qt::Key_Tab);
    EXPECT_EQ(QApplication::focusWidget()->objectName(), QStringLiteral("findClose"));
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    EXPECT_TRUE(View().Browser()->focusProxy()->hasFocus());
}

}  // namespace
}  // namespace quorvi
