// What the command of a list brought, and how far its reading came: the same for all lists.
#pragma once

#include <cstdint>
#include <utility>
#include <vector>

#include "agent/AgentSession.h"

namespace quorvi {

// The records of a reply, in their order.
template <typename Row>
struct ReadList {
    std::vector<Row> rows;
    // AbsentMark ended the reading, in a record of this id. A list on the screen then has one more
    // row, which holds nothing else, and stays without redraw.
    bool endedByMark = false;
    std::uint32_t markedId = 0;

    void EndByMark(std::uint32_t id) {
        endedByMark = true;
        markedId = id;
    }
};

template <typename Row>
struct ListReply {
    SessionOutcome outcome = SessionOutcome::connectFailed;
    ReadList<Row> list;

    [[nodiscard]] bool Connected() const { return outcome != SessionOutcome::connectFailed; }
    // Read to its end, as far as it came.
    [[nodiscard]] bool IsWhole() const { return HasPayload(outcome) && !list.endedByMark; }
};

// One session that reads a list. `parse` takes the reply's ReplyBuffer and gives a ReadList.
template <typename Row, typename Parse>
[[nodiscard]] ListReply<Row> FetchList(const AgentSession& session,
                                       std::span<const std::byte> request,
                                       const AgentSession::Progress& progress, Parse parse) {
    PayloadReply reply = session.RunPayload(request, progress);
    ListReply<Row> read{reply.outcome, {}};
    if (reply.HasPayload()) {
        read.list = parse(std::move(reply.buffer));
    }
    return read;
}

}  // namespace quorvi
