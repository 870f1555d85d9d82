// What the command of a list brought, and how far its reading came: the same for all lists.
#pragma once

#include <optional>
#include <utility>
#include <vector>

#include "agent/AgentSession.h"

namespace quorvi {

// The records of a reply, in their order.
template <typename Row>
struct ReadList {
    std::vector<Row> rows;
    // The record in which AbsentMark ended the reading, with what stood in front of the mark. A
    // list on the screen then has one more row, which shows nothing, and stays without redraw.
    std::optional<Row> marked{};
    // A record that is not all there ended the reading: it is not among the rows.
    bool cut = false;

    [[nodiscard]] bool EndedByMark() const { return marked.has_value(); }
};

// `List` is a ReadList, with what a page worked out of it.
template <typename Row, typename List = ReadList<Row>>
struct ListReply {
    SessionOutcome outcome = SessionOutcome::connectFailed;
    List list;

    [[nodiscard]] bool Connected() const { return outcome != SessionOutcome::connectFailed; }
    // Read to its end, as far as it came.
    [[nodiscard]] bool IsWhole() const { return HasPayload(outcome) && !list.EndedByMark(); }
};

// What the reading of one record of a run came to.
enum class RecordEnd {
    whole,
    mark,  // AbsentMark stood in the field that ends the reading
    cut,   // it is not all there: it is dropped, and ends the run
};

// Reads a run of records: `take(cursor, row)` reads the next one and gives its RecordEnd.
template <typename Row, typename Take>
[[nodiscard]] ReadList<Row> ReadRun(const ReplyBuffer& reply, Take take) {
    ReadList<Row> list;
    ReplyCursor cursor(reply);
    do {
        Row row;
        const RecordEnd end = take(cursor, row);
        if (end == RecordEnd::whole) {
            list.rows.push_back(std::move(row));
            continue;
        }
        if (end == RecordEnd::mark) {
            list.marked = std::move(row);
        }
        list.cut = end == RecordEnd::cut;
        return list;
    } while (!cursor.AtEnd());
    return list;
}

// One session that reads a list. `parse` takes the reply's ReplyBuffer and gives a ReadList;
// `noData` is for the one list that takes NoDataMark for a length.
template <typename Row, typename Parse>
[[nodiscard]] ListReply<Row> FetchList(const AgentSession& session,
                                       std::span<const std::byte> request,
                                       const AgentSession::Progress& progress, Parse parse,
                                       NoDataWord noData = NoDataWord::endsTheReply) {
    PayloadReply reply = session.RunPayload(request, progress, noData);
    ListReply<Row> read{reply.outcome, {}};
    if (reply.HasPayload()) {
        read.list = parse(std::move(reply.buffer));
    }
    return read;
}

}  // namespace quorvi
