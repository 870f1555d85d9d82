// The composer: one window to write a new message, and to read and answer a conversation.
#pragma once

#include <cstdint>
#include <string>

#include "agent/Wire.h"
#include "pages/personal/Conversations.h"
#include "pages/personal/Recipients.h"
#include "ui/HtmlCtrl.h"
#include "ui/Page.h"
#include "ui/SkinDialog.h"

namespace quorvi {

class CSkinEdit;
class CSkinTextEdit;
class CSkinTree;
class HtmlFrame;

// Dialog 550. Ends with Accepted once a message has been sent, or could not be because there is no
// link; with Rejected otherwise. It may be closed at any time, a worker still running or not. The
// window's thread.
class CSmsComposeDlg : public SkinDialog, private HtmlListener {
    Q_OBJECT
  public:
    // kNoConversation for a new message.
    CSmsComposeDlg(PageHost& host, std::uint32_t conversation, QWidget* parent = nullptr,
                   std::uint16_t agentPort = AgentPort);

    // Message::documentLoaded with the first argument 0, which the view posts: reads the
    // conversation, if there is one, and then the tree.
    void OnMessage(Message message, int first);

  private:
    void OnAppCmd(const std::string&) override {}  // a conversation holds no links of ours
    void BuildControls();
    void ReadConversation();
    void ShowConversation(SessionOutcome outcome, bool shown, const std::string& party);
    void ReadTree();
    void ShowTree(GroupTree&& tree);
    void TidyTyped(const QString& text);
    void ResolveRecipient();
    void TakeTicked();
    void ShowLength();
    void Send();

    PageHost& host_;
    std::uint32_t conversation_;
    std::uint16_t agentPort_;
    GroupMembers members_;
    CHtmlCtrlFix* view_ = nullptr;
    HtmlFrame* frame_ = nullptr;
    CSkinTree* tree_ = nullptr;
    CSkinEdit* recipients_ = nullptr;
    CSkinTextEdit* text_ = nullptr;
    QLabel* length_ = nullptr;
    CSkinButton* send_ = nullptr;
    bool resolving_ = false;
};

}  // namespace quorvi
