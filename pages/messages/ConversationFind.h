// The bar over the view of the conversations: they narrow while one types.
#pragma once

#include <QObject>
#include <span>

#include "find/FindIndex.h"
#include "pages/messages/Conversations.h"

namespace quorvi {

class CHtmlCtrlBase;
class FindBar;
class HtmlFrame;

// From anywhere in the view's window Ctrl+F opens the bar and Escape closes it, and the view is as
// it was. See IndexOfConversations for what is found. The window's thread.
class ConversationFind : public QObject {
    Q_OBJECT
  public:
    // The view has ConversationsFragment in its element "sms_ul", and stands in the frame, which
    // owns what is made here.
    ConversationFind(HtmlFrame& frame, CHtmlCtrlBase& view);

    [[nodiscard]] bool IsOpen() const;
    void Open();
    void Close();

    // The view shows these from now on; they outlive the next call.
    void SetConversations(std::span<const Conversation> conversations);

  private:
    void ReadConversations();
    void Narrow();
    void GoToView();

    HtmlFrame& frame_;
    CHtmlCtrlBase& view_;
    FindBar* bar_;
    std::span<const Conversation> conversations_;
    FindIndex index_;
};

}  // namespace quorvi
