// What a backup, a restore, an export and an import ask of a phone's lists beyond what pages ask.
#pragma once

#include <string>
#include <string_view>

#include "agent/AgentCommand.h"
#include "agent/AgentSession.h"
#include "agent/Request.h"

namespace quorvi {

// One session: whether the phone says, in so many words, that it has nothing to list.
[[nodiscard]] inline bool SaysThatItHasNone(AgentAddress agent, AgentCommand list) {
    const PayloadReply reply = AgentSession(agent).RunPayload(BareRequest(list));
    return reply.outcome == SessionOutcome::noData && !reply.lengthIsCut;
}

// The reply of `fetch`, a session of the command `list`. An empty one is believed when the phone
// says so twice; a phone that has just started, and a connection that breaks off in the first word
// of the reply, look the same to a page. The outcome is `noReply` where it is not believed.
template <typename Fetch>
[[nodiscard]] auto FetchSurely(AgentAddress agent, AgentCommand list, Fetch fetch) {
    auto reply = fetch();
    if (reply.outcome == SessionOutcome::noData && !SaysThatItHasNone(agent, list)) {
        reply = fetch();
        if (reply.outcome == SessionOutcome::noData) {
            reply.outcome = SessionOutcome::noReply;
        }
    }
    return reply;
}

// What pages show beside a number, and no file has a use for.
[[nodiscard]] inline std::string NoAttribution(std::string_view) {
    return {};
}

}  // namespace quorvi
