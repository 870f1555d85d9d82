#include "online/DeviceIdentity.h"

#include <utility>

#include "agent/Reply.h"
#include "agent/Request.h"

namespace quorvi {

void ParseDeviceIdentity(const ReplyBuffer& reply, DeviceIdentity& identity) {
    ReplyCursor cursor(reply);
    identity.client = cursor.TakeInt32();
    identity.api = cursor.TakeInt32();
    if (auto model = cursor.TakeText()) {
        identity.model = std::move(*model);
    }
}

SessionOutcome ReadDeviceIdentity(const AgentSession& session, DeviceIdentity& identity) {
    const PayloadReply reply = session.RunPayload(BareRequest(AgentCommand::deviceSummary));
    if (!reply.HasPayload()) {
        return reply.outcome;
    }
    ParseDeviceIdentity(reply.buffer, identity);
    return reply.outcome;
}

}  // namespace quorvi
