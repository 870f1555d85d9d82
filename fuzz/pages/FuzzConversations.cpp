// Reads conversations and messages out of any bytes, whole or cut, writes their fragments, and
// reads the same bytes as a link.
//
// Input: see FuzzReplyOf.h.
#include <cstdlib>

#include "fuzz/agent/FuzzReplyOf.h"
#include "pages/messages/Conversations.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    const auto link = quorvi::ReadConversationLink(text);
    if (link && !text.starts_with("vid=") && !text.starts_with("did=")) {
        std::abort();
    }
    const auto reply = quorvi::fuzz::ReplyOf({data, size});
    if (!reply) {
        return 0;
    }
    const auto conversations = quorvi::ParseConversations(
        *reply, [](std::string_view number) { return std::string(number); });
    const std::string blocks = quorvi::ConversationsFragment(conversations).Html();
    const auto messages = quorvi::ParseConversationMessages(*reply);
    const std::string entries = quorvi::ConversationFragment(messages).Html();
    if (blocks.empty() != conversations.empty() || entries.empty() != messages.empty()) {
        std::abort();
    }
    return 0;
}
