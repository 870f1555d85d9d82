// Finding among the phone's conversations, and in one of them.
#pragma once

#include <cstdint>
#include <map>
#include <span>
#include <string>
#include <vector>

#include "find/FindIndex.h"
#include "pages/messages/Conversations.h"

namespace quorvi {

// The texts of messages that were read, by the id of their conversation; ANSI.
using ReadTexts = std::map<std::uint32_t, std::vector<std::string>>;

// A row a conversation, in their order: its name as a name, its number by the digits, and the texts
// of its last message and of those that were read letter by letter. Any thread.
[[nodiscard]] FindIndex IndexOfConversations(std::span<const Conversation> conversations,
                                             const ReadTexts& read);

// A row a message, in their order: its text letter by letter. Any thread.
[[nodiscard]] FindIndex IndexOfMessages(std::span<const ConversationMessage> messages);

}  // namespace quorvi
