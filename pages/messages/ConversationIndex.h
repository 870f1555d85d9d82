// Finding among the phone's conversations.
#pragma once

#include <span>

#include "find/FindIndex.h"
#include "pages/messages/Conversations.h"

namespace quorvi {

// A row a conversation, in their order: its name as a name, its number by the digits, and the text
// of its last message letter by letter. Any thread.
[[nodiscard]] FindIndex IndexOfConversations(std::span<const Conversation> conversations);

}  // namespace quorvi
