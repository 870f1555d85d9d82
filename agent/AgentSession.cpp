#include "agent/AgentSession.h"

#include <algorithm>
#include <array>

#include "base/TcpSocket.h"

namespace quorvi {
namespace {

// Bytes asked of the socket at a time.
constexpr std::size_t kReceiveChunk = 256 * 1024;

// One recv into a cleared word; what it brought is not checked, so a close reads as zero.
std::uint32_t ReceiveWord(const TcpSocket& socket) {
    std::array<std::byte, 4> word{};
    static_cast<void>(socket.Receive(word));
    return ReadUInt32(word.data());
}

}  // namespace

PayloadReply AgentSession::RunPayload(std::span<const std::byte> request,
                                      const Progress& progress) const {
    TcpSocket socket = TcpSocket::Connect(port_);
    if (!socket.IsOpen()) {
        return {SessionOutcome::connectFailed, {}};
    }
    socket.Send(request);
    const std::uint32_t length = ReceiveWord(socket);
    if (length == NoDataMark || length == 0) {
        return {SessionOutcome::noData, {}};
    }
    ReplyBuffer buffer(length);
    if (buffer.Length() != length) {
        return {SessionOutcome::receiveFailed, {}};
    }
    while (buffer.Received() < length) {
        const auto room = buffer.Room();
        const std::ptrdiff_t count =
            socket.Receive(room.first(std::min(room.size(), kReceiveChunk)));
        if (count < 0) {
            return {SessionOutcome::receiveFailed, {}};
        }
        if (count == 0) {
            break;
        }
        buffer.Commit(static_cast<std::size_t>(count));
        if (progress) {
            progress(buffer.Received(), length);
        }
    }
    return {SessionOutcome::complete, std::move(buffer)};
}

AcknowledgedReply AgentSession::RunAcknowledged(std::span<const std::byte> request) const {
    const TcpSocket socket = TcpSocket::Connect(port_);
    if (!socket.IsOpen()) {
        return {SessionOutcome::connectFailed, 0};
    }
    socket.Send(request);
    return {SessionOutcome::complete, ReceiveWord(socket)};
}

}  // namespace quorvi
