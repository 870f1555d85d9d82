// The composer before a scripted agent that has one conversation, three groups and four members.
#pragma once

#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <vector>

#include "base/Text.h"
#include "pages/messages/RecipientLine.h"
#include "pages/messages/SmsComposeDlg.h"
#include "tests/pages/messages/MessageReplies.h"
#include "tests/support/AgentDialogTest.h"
#include "tests/support/DialogDriver.h"
#include "tests/support/HtmlDriver.h"
#include "tests/support/LoopbackAgent.h"
#include "ui/html/HtmlFrame.h"
#include "ui/kit/QtText.h"
#include "ui/kit/SkinLabels.h"
#include "ui/kit/SkinTree.h"

namespace quorvi {

inline constexpr int kComposer = 550;

class Composer : public AgentDialogTest<CSmsComposeDlg> {
  protected:
    void SetUp() override {
        agent_.AnswerPayload(AgentCommand::readConversation,
                             MessagesPayload({{}, {.incoming = 0, .text = "收到"}}).Get());
        agent_.AnswerPayload(AgentCommand::listGroupNames,
                             WireBytes().U32(0).U64(5).Text("朋友").Get());
        agent_.AnswerPayload(AgentCommand::listGroupMembers,
                             MembersPayload({{5, "林远舟", "13861234567"},
                                             {5, "叶知秋", "15951230456"},
                                             {-1, "顾晓棠", "10010"},
                                             {9, "林远舟", "13861234567"}})
                                 .Get());
        agent_.AnswerAcknowledged(AgentCommand::sendMessage);
    }

    void OpenAt(std::uint16_t port, std::uint32_t conversation = kNoConversation) {
        Show(new CSmsComposeDlg(host_, conversation, nullptr, port));
    }
    // With all that it reads read.
    void OpenLoaded(std::uint32_t conversation = kNoConversation) {
        OpenAt(agent_.Port(), conversation);
        ASSERT_TRUE(WaitForTree());
    }
    [[nodiscard]] bool WaitForTree() {
        return WaitFor([&] { return Tree().Status().Get() != ListState::loading; });
    }

    CSkinTree& Tree() { return *FindControl<CSkinTree>(dialog_, 1338); }
    CHtmlCtrlBase& View() { return *FindControl<CHtmlCtrlBase>(dialog_, 1359); }
    HtmlFrame& Conversation() { return *dialog_->findChild<HtmlFrame*>(); }
    QLineEdit& Recipients() { return *FindControl<QLineEdit>(dialog_, 1337); }
    QPlainTextEdit& Text() { return *FindControl<QPlainTextEdit>(dialog_, 1271); }
    QString State() { return dialog_->findChild<CSkinStateLabel*>()->text(); }
    QString Length() {
        return dialog_->findChild<QLabel*>(QStringLiteral("messageLength"))->text();
    }
    // Whether the view shows the end of a document that is longer than itself.
    bool AtTheEnd() {
        return AskHtml(View(), QStringLiteral("scrollY > 0 && scrollY + innerHeight >= "
                                              "document.documentElement.scrollHeight - 1"))
            .toBool();
    }
    RecipientLine& Line() { return *dialog_->findChild<RecipientLine*>(); }
    // What the line below the recipients says: its sentence, and its chips.
    QStringList Said() {
        QStringList said;
        for (const auto* label : Line().findChildren<QLabel*>()) {
            if (label->isVisible() && !label->text().isEmpty()) {
                said.append(label->text());
            }
        }
        return said;
    }
    // Flips a node's tick with the mouse.
    void Tick(QTreeWidgetItem* node) {
        Tree().scrollToItem(node);
        QTest::mouseClick(Tree().viewport(), Qt::LeftButton, {}, Tree().TickRect(node).center());
    }
    QTreeWidgetItem* Group(int index) { return Tree().topLevelItem(index); }
    void Fill(QStringView recipients, QStringView text) {
        Recipients().setText(recipients.toString());
        Text().setPlainText(text.toString());
    }
    std::vector<Bytes> Sent() { return agent_.Requests(AgentCommand::sendMessage); }
};

}  // namespace quorvi
