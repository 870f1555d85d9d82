// Finding among the conversations: the bar over their view, and what it leaves of them.
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

#include "tests/pages/messages/SmsPageFixture.h"
#include "tests/support/AtWork.h"

namespace quorvi {
namespace {

class SmsFind : public SmsPage {
  protected:
    void OpenList() {
        agent_.AnswerPayload(
            AgentCommand::listConversations,
            ConversationsPayload(
                {{.id = 1, .name = "林远舟", .number = "13861234567", .text = "七点见"},
                 {.id = 2, .name = "10086", .number = "10086", .text = "余额"},
                 {.id = 3, .name = "罗忆中", .number = "95588", .text = "好的"}})
                .Get());
        OpenLoaded();
        page_->activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(page_.get()));
    }
    QLineEdit& Field() { return *page_->findChild<QLineEdit*>(QStringLiteral("find")); }
    QString Count() { return page_->findChild<QLabel*>(QStringLiteral("findCount"))->text(); }
    void PressCtrlF() {
        QTest::keySequence(QGuiApplication::focusWindow(), QKeySequence::Find);
        ASSERT_TRUE(WaitFor([&] { return Field().hasFocus(); }));
    }
    QString Senders() {
        return AskHtml(View(), QStringLiteral("[...document.querySelectorAll('#sms_ul .sender')]"
                                              ".map(e => e.innerText).join('|')"))
            .toString();
    }
    bool Shows(std::u8string_view senders) {
        return WaitFor([&] { return Senders() == ToQString(senders); });
    }
};

TEST_F(SmsFind, CtrlFInTheViewOpensTheBarAndEscapeClosesIt) {
    OpenList();
    View().setFocus();
    const int top = View().mapTo(page_.get(), QPoint()).y();
    EXPECT_FALSE(Field().isVisible());
    PressCtrlF();
    EXPECT_EQ(Field().accessibleName(), ToQString(u8"在会话中查找"));
    EXPECT_TRUE(WaitFor(
        [&] { return View().mapTo(page_.get(), QPoint()).y() == top + look::Metric::findBar; }));
    QTest::keyClick(&Field(), Qt::Key_Escape);
    EXPECT_FALSE(Field().isVisible());
    EXPECT_TRUE(WaitFor([&] { return View().mapTo(page_.get(), QPoint()).y() == top; }));
    EXPECT_TRUE(View().Browser()->focusProxy()->hasFocus());
}

TEST_F(SmsFind, ConversationsNarrowWhileOneTypes) {
    OpenList();
    PressCtrlF();
    QTest::keyClicks(&Field(), QStringLiteral("l"));
    EXPECT_TRUE(Shows(u8"林远舟|罗忆中"));
    EXPECT_EQ(Count(), ToQString(u8"找到 2 项"));
    QTest::keyClicks(&Field(), QStringLiteral("in"));
    EXPECT_TRUE(Shows(u8"林远舟"));
    Field().setText(QStringLiteral("9558"));
    EXPECT_TRUE(Shows(u8"罗忆中"));
    Field().setText(ToQString(u8"余额"));
    EXPECT_TRUE(Shows(u8"10086"));
    QTest::keyClick(&Field(), Qt::Key_Escape);
    EXPECT_TRUE(Shows(u8"林远舟|10086|罗忆中"));
    EXPECT_EQ(Loads(), 1u);  // the phone was asked for nothing
}

TEST_F(SmsFind, WhatIsFoundStandsOutInNamesAndTexts) {
    OpenList();
    PressCtrlF();
    const auto marks = [&](std::u8string_view words) {
        const QString script = QStringLiteral(
            "[...document.querySelectorAll('found-text')].map(e => e.textContent).join('|')");
        return WaitFor([&] { return AskHtml(View(), script).toString() == ToQString(words); });
    };
    QTest::keyClicks(&Field(), QStringLiteral("l"));
    EXPECT_TRUE(marks(u8"林|罗"));
    QTest::keyClicks(&Field(), QStringLiteral("yz"));
    EXPECT_TRUE(marks(u8"林远舟|罗忆中"));
    Field().setText(ToQString(u8"好"));
    EXPECT_TRUE(marks(u8"好"));
    Field().setText(QStringLiteral("0-08"));
    EXPECT_TRUE(marks(u8"008"));
    QTest::keyClick(&Field(), Qt::Key_Escape);
    EXPECT_TRUE(marks(u8""));
    EXPECT_TRUE(Shows(u8"林远舟|10086|罗忆中"));
}

TEST_F(SmsFind, WhereNothingIsFoundThePageSaysSoInPlaceOfTheView) {
    OpenList();
    PressCtrlF();
    Field().setText(QStringLiteral("xyz"));
    EXPECT_EQ(Count(), ToQString(u8"找到 0 项"));
    ASSERT_TRUE(Shows(u8""));
    const QImage nothing = Frame().grab().toImage();
    Field().setText(QStringLiteral("xyzw"));
    EXPECT_NE(Frame().grab().toImage(), nothing);  // it names what was typed
    Field().setText(QStringLiteral("lin"));
    EXPECT_TRUE(Shows(u8"林远舟"));
}

TEST_F(SmsFind, EscapeInTheViewClosesTheBarAsWell) {
    OpenList();
    PressCtrlF();
    Field().setText(QStringLiteral("lin"));
    ASSERT_TRUE(Shows(u8"林远舟"));
    QTest::keyClick(&Field(), Qt::Key_Down);
    QWidget* keys = View().Browser()->focusProxy();
    ASSERT_TRUE(WaitFor([&] { return keys->hasFocus(); }));
    QTest::keyClick(keys, Qt::Key_Escape);
    EXPECT_TRUE(WaitFor([&] { return !Field().isVisible(); }));
    EXPECT_TRUE(Shows(u8"林远舟|10086|罗忆中"));
}

TEST_F(SmsFind, ALinkOfWhatWasFoundDoesWhatItSays) {
    OpenList();
    PressCtrlF();
    Field().setText(QStringLiteral("luo"));
    ASSERT_TRUE(Shows(u8"罗忆中"));
    Follow("did=3");
    EXPECT_TRUE(WaitFor([&] { return Deletes().size() == 1; }));
}

TEST_F(SmsFind, ConversationsThatAreFetchedAnewAreNarrowedToo) {
    OpenList();
    PressCtrlF();
    Field().setText(QStringLiteral("l"));
    ASSERT_TRUE(Shows(u8"林远舟|罗忆中"));
    agent_.AnswerPayload(
        AgentCommand::listConversations,
        ConversationsPayload({{.id = 4, .name = "王朝"}, {.id = 5, .name = "刘易之"}}).Get());
    page_->Load();
    EXPECT_TRUE(Shows(u8"刘易之"));
    QTest::keyClick(&Field(), Qt::Key_Escape);
    EXPECT_TRUE(Shows(u8"王朝|刘易之"));
}

TEST_F(SmsFind, AConversationIsFoundByWhatWasReadOfItToo) {
    agent_.AnswerPayload(AgentCommand::readConversation,
                         MessagesPayload({{.text = "查流量"}, {.text = "余额"}}).Get());
    services_.device.SetSerial("one");
    OpenList();
    PressCtrlF();
    Field().setText(ToQString(u8"流量"));
    ASSERT_TRUE(Shows(u8""));
    page_->Compose(2);
    ASSERT_TRUE(WaitFor([&] { return !AtWork(*OpenDialog(kComposer)); }));
    PressIn(kComposer, 1021);
    EXPECT_TRUE(Shows(u8"10086"));
    services_.device.SetSerial("another");  // of which nothing was read
    page_->Load();
    EXPECT_TRUE(Shows(u8""));
}

TEST_F(SmsFind, TheTabKeyLeadsThroughTheBarToTheView) {
    OpenList();
    PressCtrlF();
    QTest::keyClick(&Field(), Qt::Key_Tab);
    EXPECT_EQ(QApplication::focusWidget()->objectName(), QStringLiteral("findClose"));
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    EXPECT_TRUE(View().Browser()->focusProxy()->hasFocus());
}

}  // namespace
}  // namespace quorvi
