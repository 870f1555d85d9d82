// What a phone in long use answers: many conversations, a long one, a big address book, many calls.
// Texts are Chinese and of varied length; the same at every call.
#pragma once

#include "agent/Wire.h"

namespace quorvi {

// Payloads of commands 870201 and 870202.
[[nodiscard]] Bytes ConversationsPayloadOf(int count);
[[nodiscard]] Bytes MessagesPayloadOf(int count);

// Payloads of commands 870120 and 870150: one group has `inLargest` members, and the others share
// the rest. Groups are numbered from 1; the largest is the first.
[[nodiscard]] Bytes GroupNamesPayloadOf(int groups);
[[nodiscard]] Bytes GroupMembersPayloadOf(int members, int groups, int inLargest);

// Payload of command 870301.
[[nodiscard]] Bytes CallsPayloadOf(int count);

}  // namespace quorvi
