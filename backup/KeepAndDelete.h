// A delete before which what goes from the phone is written to the PC.
#pragma once

#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <utility>

#include "agent/AgentSession.h"
#include "backup/DeletedItems.h"
#include "pages/kit/ListReply.h"

namespace quorvi {

// What a delete takes from the phone.
struct Going {
    GoingRows rows;
    std::string why{};  // why that is not all of it; ANSI, empty when it is
    SessionOutcome outcome = SessionOutcome::complete;  // of the phone, where it was asked for it
};

// Finds that out, by asking the phone where need be. On a worker.
using FindGoing = std::function<Going(AgentAddress agent)>;

// Of a list that goes as a whole. What is not read to its end is not all of it.
[[nodiscard]] std::string WhyNotAll(SessionOutcome outcome, bool whole);
template <typename Row>
[[nodiscard]] Going GoingOf(ListReply<Row> reply) {
    const bool whole = reply.IsWhole() && !reply.list.cut;
    return {std::move(reply.list.rows), WhyNotAll(reply.outcome, whole), reply.outcome};
}

// How far a delete has come.
struct DeleteStep {
    std::string whyNotKept;                           // ANSI; empty when all is kept
    bool diskFailed = false;                          // that is the PC's fault, not the phone's
    std::optional<std::filesystem::path> backup;      // what is kept
    SessionOutcome asked = SessionOutcome::complete;  // as Going's
    // Nothing where not all is kept: the request is not sent, and the user to be asked first.
    std::optional<AcknowledgedReply> reply;
};

// Both block, and run on a worker. What was kept is forgotten when the phone is not reached.

// Keeps what `find` gives, and sends the request if all of it is kept.
[[nodiscard]] DeleteStep KeepAndDelete(const DeletedItems& items, AgentAddress agent,
                                       const FindGoing& find, const Bytes& request);
// Sends the request of a step that was not sent, as its user wants it all the same.
[[nodiscard]] AcknowledgedReply DeleteAllTheSame(const DeletedItems& items, AgentAddress agent,
                                                 const DeleteStep& step, const Bytes& request);

}  // namespace quorvi
