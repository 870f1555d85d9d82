// Messages as other programs and people read them.
#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "pages/messages/Conversations.h"

namespace quorvi {

enum class MessageFormat {
    text,  // one message below the other, for people
    csv,   // one row a message, in UTF-8 with its mark
    html,  // a page that any browser shows, with no more in it than text
    json,  // an array of conversations, each with its messages
};

// The file of a backup that holds its messages as MessageFormat::json.
inline constexpr std::string_view kMessageRecords = "messages.json";

// By the ending of a file's name: .txt, .csv, .html or .htm, .json; nothing for any other.
[[nodiscard]] std::optional<MessageFormat> MessageFormatOf(std::string_view fileName);

// A file is what MessageFileHead gives, then each conversation, then MessageFileFoot; all in UTF-8.
// So no more than one conversation is held in memory. `index` counts the conversations from 0.
[[nodiscard]] std::string MessageFileHead(MessageFormat format);
[[nodiscard]] std::string ConversationInFile(MessageFormat format, std::size_t index,
                                             const Conversation& conversation,
                                             std::span<const ConversationMessage> messages);
[[nodiscard]] std::string MessageFileFoot(MessageFormat format);

}  // namespace quorvi
