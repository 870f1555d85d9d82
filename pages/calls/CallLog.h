// The calls kept on the phone, as command 870301 lists them, and their deletion.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "agent/AgentSession.h"
#include "agent/Reply.h"
#include "agent/Request.h"
#include "pages/kit/ListReply.h"
#include "refdata/NumberAttribution.h"

namespace quorvi {

// One row; texts are ANSI.
struct CallLogRow {
    std::uint32_t id = 0;
    std::string name;  // may be empty: the number then stands below an empty line
    std::string number;
    std::string attribution;
    std::string time;      // local time; a date of 0 shows 1970
    std::string duration;  // "01:01:40\n": the line feed stays in the cell, the days are dropped
    std::uint32_t type = 0;
};

// Ended by the mark in a number.
using CallLog = ReadList<CallLogRow>;
using CallLogReply = ListReply<CallLogRow>;

// Reads the run of records. A record with a length that points outside the reply, or in whose id
// the reply was cut, ends the run and is dropped. Any thread; `attribution` is called on it, once a
// row.
[[nodiscard]] CallLog ParseCallLog(const ReplyBuffer& reply, const AttributionOf& attribution);

// One session that reads the log. Any thread.
[[nodiscard]] CallLogReply FetchCallLog(const AgentSession& session,
                                        const AttributionOf& attribution,
                                        const AgentSession::Progress& progress = {});

// What a call's type is called: 1 came in, 2 went out, 3 was missed. ANSI.
[[nodiscard]] std::string CallTypeText(std::uint32_t type);

// The text of the hidden column that holds a row's id: "7 ", with a blank kept on purpose, which is
// no part of the number that it is read back as (test CallId.StandsWithATrailingBlankAndReadsBack).
[[nodiscard]] std::string CallIdText(std::uint32_t id);
[[nodiscard]] std::uint32_t CallIdOf(std::string_view text);

// The requests of commands 870303 and 870304. The second has an item count of 1 and no item: kept
// on purpose, agents have always been sent these bytes.
[[nodiscard]] Bytes DeleteCallsRequest(std::span<const std::uint32_t> ids);
[[nodiscard]] Bytes DeleteAllCallsRequest();

}  // namespace quorvi
