// The composer: one window to write a new message, and to read and answer a conversation.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "agent/AgentAddress.h"
#include "pages/messages/Conversations.h"
#include "pages/messages/Recipients.h"
#include "ui/html/HtmlCtrl.h"
#include "ui/kit/SkinDialog.h"
#include "ui/page/Page.h"

namespace quorvi {

class CSkinEdit;
class SkinTextEdit;
class CSkinTree;
class HtmlFrame;
class RecipientLine;
class TreeFind;
class ViewFind;

// What was to be sent, as it stood in the two fields.
struct UnsentMessage {
    QString recipients;
    QString text;
};

// Dialog 550. Ends with Accepted once a message is on its way, whether or not the link was there
// and whichever way it is closed; with Rejected otherwise. It may be closed at any time, a worker
// still running or not. The window's thread.
class CSmsComposeDlg : public SkinDialog, private HtmlListener {
    Q_OBJECT
  public:
    // kNoConversation for a new message.
    CSmsComposeDlg(PageHost& host, std::uint32_t conversation, QWidget* parent, AgentAddress agent);

    // Begins with a number as the only recipient; ANSI.
    void WriteTo(const std::string& number);
    // Puts a message back that did not get out of an earlier composer.
    void Resume(const UnsentMessage& message);
    // What the user has told to send and the phone has not acknowledged.
    [[nodiscard]] const std::optional<UnsentMessage>& Unsent() const { return unsent_; }

    // What was read of the conversation.
    [[nodiscard]] const std::vector<ConversationMessage>& Messages() const { return messages_; }

    // How many numbers the message was told to be sent to.
    [[nodiscard]] std::size_t SentTo() const { return sentTo_; }

    // Message::documentLoaded with the first argument 0, which the view posts: reads the
    // conversation, if there is one, and then the tree.
    void OnMessage(Message message, int first);

  private:
    void OnAppCmd(const std::string&) override {}  // a conversation holds no links of ours
    void BuildControls();
    void ReadConversation();
    void ShowConversation(ConversationReply&& reply);
    // Of the tree while it has the focus, of the conversation from anywhere else.
    void Find();
    void ReadTree();
    void ShowTree(GroupTree&& tree);
    void TidyTyped(const QString& text);
    void ResolveRecipient();
    void TakeTicked();
    void ShowRecipients();
    void ShowLength();
    [[nodiscard]] RecipientList ToWhom() const;
    [[nodiscard]] bool WouldLose() const;
    // Asks first where the message would go to what is no number.
    void Send();
    void SendNow();

    PageHost& host_;
    std::uint32_t conversation_;
    AgentAddress agent_;
    GroupMembers members_;
    std::vector<ConversationMessage> messages_;
    CHtmlCtrlFix* view_ = nullptr;
    HtmlFrame* frame_ = nullptr;
    ViewFind* find_ = nullptr;  // none where there is no conversation
    CSkinTree* tree_ = nullptr;
    TreeFind* treeFind_ = nullptr;
    CSkinEdit* recipients_ = nullptr;
    RecipientLine* line_ = nullptr;  // below them
    SkinTextEdit* text_ = nullptr;
    QLabel* length_ = nullptr;
    CSkinButton* send_ = nullptr;
    CSkinButton* cancel_ = nullptr;
    CSkinStateLabel* state_ = nullptr;
    std::optional<UnsentMessage> unsent_;
    std::size_t sentTo_ = 0;
    bool resolving_ = false;
    bool picked_ = false;  // the recipients are the user's, and not the party of the conversation
};

}  // namespace quorvi
