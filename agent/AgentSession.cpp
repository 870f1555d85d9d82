#include "agent/AgentSession.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <utility>

#include "log/EventLog.h"

namespace quorvi {
namespace {

// Bytes asked of the socket at a time: about as many as the system holds for one.
constexpr std::size_t kReceiveChunk = 4 * 1024 * 1024;

struct FirstWord {
    bool came = false;   // some of it
    bool whole = false;  // all of it
    std::uint32_t value = 0;
};

// One recv into a cleared word. What of the word did not come stays zero.
FirstWord ReceiveWord(const TcpSocket& socket) {
    std::array<std::byte, 4> word{};
    const std::ptrdiff_t count = socket.ReceiveAll(word);
    return {count > 0, count == std::ssize(word), ReadUInt32(word.data())};
}

// Everything behind the length word, into the buffer.
SessionOutcome ReceivePayload(const TcpSocket& socket, ReplyBuffer& buffer,
                              const AgentSession::Progress& progress) {
    while (buffer.Received() < buffer.Length()) {
        const auto room = buffer.Room();
        const std::ptrdiff_t count =
            socket.Receive(room.first(std::min(room.size(), kReceiveChunk)));
        if (count < 0) {
            return SessionOutcome::receiveFailed;
        }
        if (count == 0) {
            return SessionOutcome::cut;
        }
        buffer.Commit(static_cast<std::size_t>(count));
        if (progress) {
            progress(buffer.Received(), buffer.Length());
        }
    }
    return SessionOutcome::complete;
}

LogWord WordOf(SessionOutcome outcome) {
    switch (outcome) {
        case SessionOutcome::complete:
            return "complete";
        case SessionOutcome::cut:
            return "cut";
        case SessionOutcome::noData:
            return "no-data";
        case SessionOutcome::noReply:
            return "no-reply";
        case SessionOutcome::connectFailed:
            return "connect-failed";
        case SessionOutcome::receiveFailed:
            return "receive-failed";
    }
    return "unknown";
}

// What the log holds of an exchange: its command's number, and nothing of what was said in it.
class SessionNote {
  public:
    explicit SessionNote(std::span<const std::byte> request)
        : command_(request.size() < kWordBytes ? 0 : ReadUInt32(request.data())) {}

    void End(SessionOutcome outcome, std::size_t bytes) const {
        LogEvent("session", {{"command", LogValue::Count(command_)},
                             {"outcome", WordOf(outcome)},
                             {"kb", LogValue::Kilobytes(bytes)},
                             {"ms", LogValue::Since(start_)}});
    }

  private:
    static constexpr std::size_t kWordBytes = 4;

    std::uint32_t command_;
    std::chrono::steady_clock::time_point start_ = std::chrono::steady_clock::now();
};

PayloadReply ReceiveReply(const TcpSocket& socket, const AgentSession::Progress& progress,
                          NoDataWord noData) {
    const FirstWord length = ReceiveWord(socket);
    if (!length.came) {
        return {SessionOutcome::noReply, {}};
    }
    const bool isMark = length.value == NoDataMark && noData == NoDataWord::endsTheReply;
    if (isMark || length.value == 0) {
        return {SessionOutcome::noData, {}, !length.whole};
    }
    ReplyBuffer buffer(length.value);
    if (buffer.Length() != length.value) {
        return {SessionOutcome::receiveFailed, {}};
    }
    const SessionOutcome outcome = ReceivePayload(socket, buffer, progress);
    if (outcome == SessionOutcome::receiveFailed) {
        return {outcome, {}};
    }
    return {outcome, std::move(buffer)};
}

}  // namespace

bool AgentSession::Open() {
    socket_ = TcpSocket::Connect(agent_.Port());
    return socket_.IsOpen();
}

void AgentSession::SendBare(AgentCommand command) const {
    SendFramed(BareRequest(command));
}

void AgentSession::SendFramed(std::span<const std::byte> frame) const {
    socket_.Send(frame);
}

AcknowledgedReply AgentSession::ReadAcknowledgement() {
    if (!IsOpen()) {
        return {};
    }
    const FirstWord word = ReceiveWord(socket_);
    Close();
    return {word.whole ? SessionOutcome::complete : SessionOutcome::noReply, word.value};
}

PayloadReply AgentSession::ReadPayload(const Progress& progress, NoDataWord noData) {
    if (!IsOpen()) {
        return {};
    }
    PayloadReply reply = ReceiveReply(socket_, progress, noData);
    Close();
    return reply;
}

PayloadReply AgentSession::RunPayload(std::span<const std::byte> request, const Progress& progress,
                                      NoDataWord noData) const {
    const SessionNote note(request);
    AgentSession session(agent_);
    PayloadReply reply;
    if (session.Open()) {
        session.SendFramed(request);
        reply = session.ReadPayload(progress, noData);
    }
    note.End(reply.outcome, reply.buffer.Received());
    return reply;
}

AcknowledgedReply AgentSession::RunAcknowledged(std::span<const std::byte> request) const {
    const SessionNote note(request);
    AgentSession session(agent_);
    AcknowledgedReply reply;
    if (session.Open()) {
        session.SendFramed(request);
        reply = session.ReadAcknowledgement();
    }
    note.End(reply.outcome, 0);
    return reply;
}

}  // namespace quorvi
