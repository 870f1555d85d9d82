// Finding among the phone's conversations, and in one of them.
#pragma once

#include <span>

#include "find/FindIndex.h"
#include "pages/messages/Conversations.h"

namespace quorvi {

// A row a conversation, in their order: its name as a name, its number by the digits, and the text
// of its last message letter by letter. Any thread.
[[nodiscard]] FindIndex IndexOfConversations(std::span<const Conversation> conversations);

// A row a message, in their order: its text letter by letter. Any thread.
[[nodiscard]] FindIndex IndexOfMessages(std::span<const ConversationMessage> messages);

}  // namespace quorvi
