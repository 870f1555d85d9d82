// One command to an agent's data, without a connection.
#pragma once

#include <gtest/gtest.h>

#include "agent/Reply.h"
#include "agent/Request.h"
#include "agent/Wire.h"
#include "phone/agent/AgentData.h"
#include "phone/agent/Commands.h"

namespace quorvi::phone {

inline Outcome Ask(AgentData& data, const Bytes& request) {
    const AgentCommandRow* row = FindCommand(ReadUInt32(request.data()));
    return RunCommand(*row, data, request);
}

// The payload of a reply, as a session would hold it; not valid for NoDataMark.
inline ReplyBuffer PayloadOf(const Outcome& outcome) {
    if (!outcome.reply.hasPayload) {
        return {};
    }
    return ReplyBuffer::Holding(std::span(outcome.reply.bytes).subspan(sizeof(std::uint32_t)));
}

inline bool IsNoData(const Outcome& outcome) {
    return outcome.reply.bytes.size() == sizeof(std::uint32_t) &&
           ReadUInt32(outcome.reply.bytes.data()) == NoDataMark;
}

}  // namespace quorvi::phone
