#include "pages/messages/ConversationIndex.h"

#include "base/Text.h"

namespace quorvi {

FindIndex IndexOfConversations(std::span<const Conversation> conversations, const ReadTexts& read) {
    FindIndex index;
    index.KeepSpellings();
    for (const Conversation& conversation : conversations) {
        index.AddRow();
        index.AddUtf8(ToUtf8(conversation.name), FindKind::name);
        index.AddUtf8(ToUtf8(conversation.number), FindKind::number);
        index.AddUtf8(ToUtf8(conversation.text), FindKind::text);
        if (const auto texts = read.find(conversation.id); texts != read.end()) {
            for (const std::string& text : texts->second) {
                index.AddUtf8(ToUtf8(text), FindKind::text);
            }
        }
    }
    return index;
}

FindIndex IndexOfMessages(std::span<const ConversationMessage> messages) {
    FindIndex index;
    index.KeepSpellings();
    for (const ConversationMessage& message : messages) {
        index.AddRow();
        index.AddUtf8(ToUtf8(message.text), FindKind::text);
    }
    return index;
}

}  // namespace quorvi
