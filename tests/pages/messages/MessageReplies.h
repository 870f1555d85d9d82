// Replies of a phone with conversations, groups and members.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "tests/support/WireBytes.h"

namespace quorvi {

struct ListedConversation {
    std::uint64_t id = 7;
    std::string name = "林远舟";
    std::string number = "10086";
    std::string text = "你好";
};

inline WireBytes ConversationsPayload(const std::vector<ListedConversation>& conversations) {
    WireBytes bytes;
    bytes.U32(0);  // leading word
    for (const ListedConversation& conversation : conversations) {
        bytes
            .U64(conversation.id)       // conversation id
            .Text(conversation.name)    // name
            .Text(conversation.number)  // number
            .U64(1308361330000)         // date
            .U32(0)                     // reserved
            .U32(0)                     // reserved
            .Text(conversation.text);   // text
    }
    return bytes;
}

struct ListedMessage {
    std::uint32_t incoming = 1;
    std::string address = "13861234567";
    std::string text = "你好";
};

inline WireBytes MessagesPayload(const std::vector<ListedMessage>& messages) {
    WireBytes bytes;
    bytes.U32(0);  // leading word
    for (const ListedMessage& message : messages) {
        bytes
            .U64(1)                 // message id
            .U32(message.incoming)  // incoming
            .Text(message.address)  // address
            .U64(1308361330000)     // date
            .U32(0)                 // reserved
            .Text(message.text)     // text
            .U32(0);                // reserved
    }
    return bytes;
}

struct ListedMember {
    std::int64_t group = -1;
    std::string name;
    std::string number;
};

inline WireBytes MembersPayload(const std::vector<ListedMember>& members) {
    WireBytes bytes;
    bytes.U32(0);  // leading word
    for (const ListedMember& member : members) {
        bytes
            .U64(static_cast<std::uint64_t>(member.group))  // group id
            .Text(member.name)                              // name
            .Text(member.number);                           // number
    }
    return bytes;
}

}  // namespace quorvi
