// The SMS page: the phone's conversations in an HTML view, one block each.
#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <vector>

#include "pages/kit/FileTransfers.h"
#include "pages/kit/NumberMenu.h"
#include "pages/kit/OfEachPhone.h"
#include "pages/kit/PageNumbers.h"
#include "pages/kit/Services.h"
#include "pages/messages/ConversationIndex.h"
#include "pages/messages/SmsComposeDlg.h"
#include "ui/html/HtmlCtrl.h"
#include "ui/page/Page.h"
#include "ui/page/PageLoad.h"

namespace quorvi {

class HtmlFrame;
class ViewFind;

// Page 11, dialog 397, key 2 in PageLoadState. What is done with a conversation is a link in
// the fragment that the view shows, which carries the conversation's id; Delete on a block
// does what its link for that does. One worker at most; a refresh while it runs is dropped. A load
// that brings nothing to show leaves the view as it is.
class CSmsPage : public Page, private HtmlListener {
    Q_OBJECT
  public:
    static constexpr const PageNumbers& kNumbers = kMessagesPage;
    enum Command { commandRefresh, commandCompose };  // the third command has no action

    CSmsPage(PageHost& host, const Services& services, QWidget* parent = nullptr);

    void RefreshSms();

    void Load() override { RefreshSms(); }
    // Message::conversation, which the page sends to itself, and Message::takeNumber.
    void OnMessage(Message message, int first, int second) override;

    // Opens the composer with a conversation, or kNoConversation; fetches the list again if a
    // message was sent. One that did not get out stands in the next composer of that conversation.
    void Compose(std::uint32_t conversation);
    // Opens the composer for a new message to a number, which is ANSI. One that did not get out
    // stands in the next composer for that number.
    void WriteTo(const std::string& number);

  private:
    struct Loaded;

    void RunCommand(int index) override;
    void OnAppCmd(const std::string& text) override;
    void OnDelete(const std::string& text) override;
    void OnMenu(const std::string& text, const QPoint& at) override;
    // Of one conversation, or of kNoConversation.
    void OpenMenu(std::uint32_t conversation, const QPoint& at);
    void TakeFromMenu(int command, std::uint32_t conversation);
    // What the view shows of a conversation; nothing but its id where it shows none.
    [[nodiscard]] Conversation Shown(std::uint32_t conversation) const;
    // Has the messages that a composer has read found among the conversations.
    void Remember(ReadTexts& read, std::uint32_t conversation,
                  const std::vector<ConversationMessage>& messages);
    void ShowFound();
    void ShowLoaded(Loaded loaded);
    // Opens a composer, which begins with what stands in `unsent` under `key`, if anything.
    template <typename Key>
    void OpenComposer(CSmsComposeDlg* composer, std::map<Key, UnsentMessage>& unsent,
                      const Key& key);
    void Delete(std::uint32_t conversation);

    AgentAddress agent_;
    AttributionOf attribution_;
    PageLoad load_;
    CHtmlCtrlFix* view_;
    HtmlFrame* frame_;
    ViewFind* find_;
    FileTransfers transfers_;
    std::vector<Conversation> shown_;  // what the view shows
    OfEachPhone<ReadTexts> read_;
    std::map<std::uint32_t, UnsentMessage> unsent_;  // by conversation
    std::map<std::string, UnsentMessage> unsentTo_;  // by the number that was written to
    NumberMenu numbers_;
    WaitingNumbers toWriteTo_;
};

}  // namespace quorvi
