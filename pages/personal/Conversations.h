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

struct ConversationList {
    std::vector<Conversation> conversations;
    // A name of AbsentMark ended the reading: what was read before it is dropped, and the view
    // stays as it was.
    bool endedByAbsentName = false;
};

// Reads the reply of command 870201. A record with a length that points outside the reply, or in
// whose id the reply was cut, ends the run and is dropped. Any thread; `attribution` is called on
// it, once a conversation.
[[nodiscard]] ConversationList ParseConversations(const ReplyBuffer& reply,
                                                  const AttributionOf& attribution);

struct ConversationListReply {
    SessionOutcome outcome = SessionOutcome::connectFailed;
    ConversationList list;
};

// One session that reads the conversations. Any thread.
[[nodiscard]] ConversationListReply FetchConversations(const AgentSession& session,
                                                       const AttributionOf& attribution,
                                                       const AgentSession::Progress& progress = {});

// Whether it was read to its end: that is what the view comes to show.
[[nodiscard]] bool IsWhole(const ConversationListReply& reply);

// Inner HTML of the element "sms_ul": one block a conversation. ANSI, with the phone's texts
// unescaped. Ids stand in the links as signed decimal numbers.
[[nodiscard]] std::string ConversationsFragment(std::span<const Conversation> conversations);

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

struct ConversationMessages {
    std::vector<ConversationMessage> messages;
    // An address of AbsentMark ended the reading: what was read before it is dropped.
    bool endedByAbsentAddress = false;
};

// The request of command 870202: the code and the id, with neither a total nor a count.
[[nodiscard]] Bytes ReadConversationRequest(std::uint32_t id);

// Reads the reply of command 870202, as ParseConversations does; a message must be there to the end
// of its address, to which an answer would go.
[[nodiscard]] ConversationMessages ParseConversationMessages(const ReplyBuffer& reply);

struct ConversationReply {
    SessionOutcome outcome = SessionOutcome::connectFailed;
    ConversationMessages conversation;
};

// One session that reads a conversation. Any thread.
[[nodiscard]] ConversationReply FetchConversation(const AgentSession& session, std::uint32_t id);

[[nodiscard]] bool IsWhole(const ConversationReply& reply);

// Inner HTML of the element "conversation_list". ANSI, with the phone's texts unescaped.
[[nodiscard]] std::string ConversationFragment(std::span<const ConversationMessage> messages);

// Who the conversation is held with: the address of its first message, even if that went out.
[[nodiscard]] std::string ConversationParty(std::span<const ConversationMessage> messages);

}  // namespace quorvi
