// One exchange with the agent on the phone: connect to 127.0.0.1, send one command, read one reply,
// close. Start here to see how anything is read from or changed on a phone.
//
//   const PayloadReply reply =
//       AgentSession(agent).RunPayload(BareRequest(AgentCommand::listContacts));
//   if (reply.HasPayload()) records = ParseContacts(reply.buffer);
//
// A session blocks without a time limit of its own and runs on a worker, never on the window's
// thread. Sessions share nothing: any number may run at once. There is no retry.
#pragma once

#include <cstdint>
#include <functional>
#include <span>

#include "agent/AgentAddress.h"
#include "agent/Reply.h"
#include "agent/Request.h"
#include "agent/Wire.h"
#include "base/os/TcpSocket.h"

namespace quorvi {

// How a session ended. Whether the request could be sent is not looked at: on a broken connection
// the read that follows fails, and its outcome is the session's.
enum class SessionOutcome {
    complete,  // the whole reply is there
    cut,       // closed before the whole payload had come: parsed all the same, see ReplyBuffer
    noData,    // NoDataMark, or a payload of no bytes: an empty result and no error
    noReply,   // closed, or broken, in place of the first word: the forward stands and the
               // agent is gone; the window shows nothing for it, but for what was to be saved
    connectFailed,  // no forward or no adb server; the one failure that the user sees in words
    receiveFailed,  // the connection broke inside the payload: what had come is dropped
};

// True when there is something to parse.
[[nodiscard]] constexpr bool HasPayload(SessionOutcome outcome) {
    return outcome == SessionOutcome::complete || outcome == SessionOutcome::cut;
}

// What NoDataMark is in the place of a payload's length.
enum class NoDataWord {
    endsTheReply,
    isALength,  // like any other: the list of applications is read so
};

struct PayloadReply {
    SessionOutcome outcome = SessionOutcome::connectFailed;
    // Holds bytes for `complete` and `cut`, none for the others.
    ReplyBuffer buffer;
    // The connection ended inside the length word. What did not come of it counts as zero, so that
    // `noData` may be the outcome of what was no answer at all.
    bool lengthIsCut = false;

    [[nodiscard]] bool HasPayload() const { return quorvi::HasPayload(outcome); }
};

struct AcknowledgedReply {
    // `complete`, `noReply` (also when but a part of the word came) or `connectFailed`.
    SessionOutcome outcome = SessionOutcome::connectFailed;
    // What did not come of it is zero.
    AcknowledgeWord word = 0;

    [[nodiscard]] bool Connected() const { return outcome != SessionOutcome::connectFailed; }
};

class AgentSession {
  public:
    // Told on the session's thread after each piece of a payload; `received` grows to `length`.
    using Progress = std::function<void(std::uint32_t received, std::uint32_t length)>;

    explicit AgentSession(AgentAddress agent) : agent_(agent) {}

    // A whole exchange. `request` is a bare or a framed request, or a command's own form.
    [[nodiscard]] PayloadReply RunPayload(std::span<const std::byte> request,
                                          const Progress& progress = {},
                                          NoDataWord noData = NoDataWord::endsTheReply) const;
    [[nodiscard]] AcknowledgedReply RunAcknowledged(std::span<const std::byte> request) const;

    // The steps of an exchange, each once and in this order: Open, a Send, a Read, which closes.
    // False when the connection was refused.
    [[nodiscard]] bool Open();
    void SendBare(AgentCommand command) const;
    void SendFramed(std::span<const std::byte> frame) const;
    [[nodiscard]] AcknowledgedReply ReadAcknowledgement();
    [[nodiscard]] PayloadReply ReadPayload(const Progress& progress = {},
                                           NoDataWord noData = NoDataWord::endsTheReply);
    [[nodiscard]] bool IsOpen() const { return socket_.IsOpen(); }
    void Close() { socket_.Close(); }

  private:
    AgentAddress agent_;
    TcpSocket socket_;
};

}  // namespace quorvi
