// One exchange with the agent on the phone: connect to 127.0.0.1, send one command, read one reply,
// close. Start here to see how anything is read from or changed on a phone.
//
//   AgentSession session;
//   const PayloadReply reply = session.RunPayload(BareRequest(AgentCommand::listContacts));
//   if (reply.outcome == SessionOutcome::complete) records = ParseContacts(reply.buffer);
//
// A session blocks without a time limit of its own and runs on a worker, never on the window's
// thread. Sessions share nothing: any number may run at once.
#pragma once

#include <cstdint>
#include <functional>
#include <span>

#include "agent/Reply.h"
#include "agent/Request.h"
#include "agent/Wire.h"

namespace quorvi {

enum class SessionOutcome {
    complete,       // the reply is there (a cut payload included: see ReplyBuffer)
    noData,         // NoDataMark, a payload of no bytes, or a close in place of the length word
    connectFailed,  // no forward or no adb server; the one failure that the user sees in words
    receiveFailed,  // the connection broke inside the payload; what had come is dropped
};

struct PayloadReply {
    SessionOutcome outcome = SessionOutcome::connectFailed;
    ReplyBuffer buffer;
};

struct AcknowledgedReply {
    // complete or connectFailed: what the word's reading brought is not checked.
    SessionOutcome outcome = SessionOutcome::connectFailed;
    // Zero when the connection was closed without a reply.
    AcknowledgeWord word = 0;
};

class AgentSession {
  public:
    // Told on the session's thread now and then while a payload comes in.
    using Progress = std::function<void(std::uint32_t received, std::uint32_t length)>;

    // The port differs from AgentPort in tests only.
    explicit AgentSession(std::uint16_t port = AgentPort) : port_(port) {}

    // Whole exchanges.
    [[nodiscard]] PayloadReply RunPayload(std::span<const std::byte> request,
                                          const Progress& progress = {}) const;
    [[nodiscard]] AcknowledgedReply RunAcknowledged(std::span<const std::byte> request) const;

  private:
    std::uint16_t port_;
};

}  // namespace quorvi
