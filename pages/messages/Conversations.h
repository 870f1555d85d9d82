// The phone's conversations and their messages, as commands 870201 and 870202 read them, and what
// the two HTML views show of them.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "agent/AgentSession.h"
#include "agent/Reply.h"
#include "agent/Request.h"
#include "base/HtmlFragment.h"
#include "refdata/NumberAttribution.h"

namespace quorvi {

// One conversation; texts are ANSI.
struct Conversation {
    std::uint32_t id = 0;
    std::string name;  // shown as the sender
    std::string number;
    std::string attribution;
    std::string date;  // of the last message, local time; 0 shows 1970
    std::string text;  // of the last message
};

// Reads the reply of command 870201. A record with a length that points outside the reply, or in
// whose id the reply was cut, ends the run and is dropped; a name of AbsentMark ends the reading,
// and all that was read before it is dropped. Any thread; `attribution` is called on it, once a
// conversation.
[[nodiscard]] std::vector<Conversation> ParseConversations(const ReplyBuffer& reply,
                                                           const AttributionOf& attribution);

struct ConversationListReply {
    SessionOutcome outcome = SessionOutcome::connectFailed;
    // Read to the end of the payload: neither a mark nor a record that is not all there ended it.
    bool whole = false;
    // Nothing unless the reply brought something to show: the view stays as it was then.
    std::vector<Conversation> conversations;
};

// One session that reads the conversations. Any thread.
[[nodiscard]] ConversationListReply FetchConversations(const AgentSession& session,
                                                       const AttributionOf& attribution,
                                                       const AgentSession::Progress& progress = {});

// Inner HTML of the element "sms_ul": one block a conversation, with the phone's texts unescaped.
// Ids stand in the links as signed decimal numbers.
[[nodiscard]] HtmlFragment ConversationsFragment(std::span<const Conversation> conversations);

// What a link of that fragment asks for, from the text behind the private scheme.
struct ConversationLink {
    enum class Action { view, remove };
    Action action = Action::view;
    std::uint32_t id = 0;
};
// Nothing for a text that starts with neither "vid=" nor "did=".
[[nodiscard]] std::optional<ConversationLink> ReadConversationLink(std::string_view text);

// The id that stands for no conversation: it is not asked for, nor deleted.
inline constexpr std::uint32_t kNoConversation = 0xFFFFFFFF;

// The request of command 870206.
[[nodiscard]] Bytes DeleteConversationRequest(std::uint32_t id);

// One message; texts are ANSI.
struct ConversationMessage {
    bool incoming = false;
    std::string address;  // of the other party, whichever the direction
    std::string date;     // local time
    std::string text;
};

// The request of command 870202: the code and the id, with neither a total nor a count.
[[nodiscard]] Bytes ReadConversationRequest(std::uint32_t id);

// Reads the reply of command 870202, as ParseConversations does; an address of AbsentMark drops
// all. A message must be there to the end of its address, to which an answer would go.
[[nodiscard]] std::vector<ConversationMessage> ParseConversationMessages(const ReplyBuffer& reply);

struct ConversationReply {
    SessionOutcome outcome = SessionOutcome::connectFailed;
    bool whole = false;                         // as in ConversationListReply
    std::vector<ConversationMessage> messages;  // nothing unless there is something to show
};

// One session that reads a conversation. Any thread.
[[nodiscard]] ConversationReply FetchConversation(const AgentSession& session, std::uint32_t id);

// Inner HTML of the element "conversation_list", with the phone's texts unescaped.
[[nodiscard]] HtmlFragment ConversationFragment(std::span<const ConversationMessage> messages);

// Who the conversation is held with: the address of its first message, even if that went out.
[[nodiscard]] std::string ConversationParty(std::span<const ConversationMessage> messages);

}  // namespace quorvi
