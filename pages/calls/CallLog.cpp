#include "pages/calls/CallLog.h"

#include <array>
#include <utility>

#include "base/Format.h"
#include "base/Text.h"

namespace quorvi {
namespace {

struct CallType {
    std::uint32_t code;
    std::u8string_view text;
};
constexpr std::array<CallType, 3> kCallTypes{{
    {1, u8"已接来电"},
    {2, u8"拨出电话"},
    {3, u8"未接来电"},
}};
constexpr std::u8string_view kOtherCallType = u8"未知类型";

}  // namespace

CallLog ParseCallLog(const ReplyBuffer& reply, const AttributionOf& attribution) {
    return ReadRun<CallLogRow>(reply, [&](ReplyCursor& cursor, CallLogRow& row) {
        row.id = cursor.TakeId();
        if (cursor.IsCut()) {
            return RecordEnd::cut;  // a change of the row would go to whatever call has this id
        }
        auto number = cursor.TakeText();
        if (!number) {
            return RecordEnd::mark;
        }
        row.number = std::move(*number);
        row.time = FormatUnixTime(WholeSeconds(static_cast<std::int64_t>(cursor.TakeUInt64())));
        row.duration = FormatDuration(static_cast<std::uint32_t>(cursor.TakeUInt64()));
        row.type = cursor.TakeUInt32();
        row.name = cursor.TakeTextOrEmpty();
        if (cursor.Overran()) {
            return RecordEnd::cut;
        }
        row.attribution = attribution(row.number);
        return RecordEnd::whole;
    });
}

CallLogReply FetchCallLog(const AgentSession& session, const AttributionOf& attribution,
                          const AgentSession::Progress& progress) {
    return FetchList<CallLogRow>(
        session, BareRequest(AgentCommand::listCalls), progress,
        [&](const ReplyBuffer& reply) { return ParseCallLog(reply, attribution); });
}

std::string CallTypeText(std::uint32_t type) {
    for (const CallType& known : kCallTypes) {
        if (known.code == type) {
            return Ansi(known.text);
        }
    }
    return Ansi(kOtherCallType);
}

std::string CallIdText(std::uint32_t id) {
    return std::to_string(static_cast<std::int32_t>(id)) + " ";
}

std::uint32_t CallIdOf(std::string_view text) {
    return static_cast<std::uint32_t>(ToInt(text));
}

Bytes DeleteCallsRequest(std::span<const std::uint32_t> ids) {
    return IdsRequest(AgentCommand::deleteCalls, ids);
}

Bytes DeleteAllCallsRequest() {
    return RequestBuilder(AgentCommand::deleteAllCalls).BeginItem().Take();
}

}  // namespace quorvi
