#include "phone/Channel.h"

#include <fcntl.h>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <sys/socket.h>

#include <array>
#include <cerrno>
#include <utility>

namespace quorvi::phone {
namespace {

constexpr std::size_t kReceiveChunk = 64 * 1024;

[[nodiscard]] bool WouldBlock() {
    return errno == EAGAIN || errno == EWOULDBLOCK || errno == EINTR;
}

}  // namespace

Channel::Channel(EventLoop& loop, TcpSocket socket) : loop_(loop), socket_(std::move(socket)) {}

void Channel::Start(Events events) {
    events_ = std::move(events);
    const int descriptor = socket_.Descriptor();
    fcntl(descriptor, F_SETFL, fcntl(descriptor, F_GETFL) | O_NONBLOCK);
    const int on = 1;
    setsockopt(descriptor, IPPROTO_TCP, TCP_NODELAY, &on, sizeof on);
    loop_.Watch(descriptor, POLLIN, [this](short happened) { OnReady(happened); });
}

void Channel::Write(Bytes bytes) {
    const std::size_t count = bytes.size();
    Write(Share(std::move(bytes)), 0, count);
}

void Channel::Write(SharedBytes bytes, std::size_t offset, std::size_t count) {
    if (!IsOpen() || count == 0) {
        return;
    }
    pieces_.push_back({std::move(bytes), offset, offset + count});
    loop_.SetEvents(socket_.Descriptor(), POLLIN | POLLOUT);
}

void Channel::Close() {
    if (IsOpen()) {
        loop_.Unwatch(socket_.Descriptor());
        socket_.Close();
    }
    pieces_.clear();
}

void Channel::Reset() {
    if (IsOpen()) {
        const linger atOnce{.l_onoff = 1, .l_linger = 0};
        setsockopt(socket_.Descriptor(), SOL_SOCKET, SO_LINGER, &atOnce, sizeof atOnce);
    }
    Close();
}

void Channel::OnReady(short happened) {
    if (happened & POLLOUT) {
        Send();
    }
    if (IsOpen() && (happened & (POLLIN | POLLHUP | POLLERR))) {
        Receive();
    }
}

void Channel::Receive() {
    std::array<std::byte, kReceiveChunk> chunk;
    const auto count = recv(socket_.Descriptor(), chunk.data(), chunk.size(), 0);
    if (count > 0) {
        events_.bytes(std::span(chunk).first(static_cast<std::size_t>(count)));
    } else if (count == 0 || !WouldBlock()) {
        Close();
        events_.gone();
    }
}

void Channel::Send() {
    while (!pieces_.empty()) {
        Piece& piece = pieces_.front();
        const auto count = send(socket_.Descriptor(), piece.bytes->data() + piece.offset,
                                piece.end - piece.offset, MSG_NOSIGNAL);
        if (count < 0) {
            if (!WouldBlock()) {
                Close();
                events_.gone();
            }
            return;
        }
        piece.offset += static_cast<std::size_t>(count);
        if (piece.offset == piece.end) {
            pieces_.pop_front();
        }
    }
    loop_.SetEvents(socket_.Descriptor(), POLLIN);
    events_.drained();
}

bool Listener::Open(std::uint16_t port, std::function<void(TcpSocket)> accepted) {
    Close();
    port_ = TcpListener::On(port);
    if (!port_.IsOpen()) {
        return false;
    }
    loop_.Watch(port_.Descriptor(), POLLIN, [this, accepted = std::move(accepted)](short) {
        TcpSocket connection = port_.Accept();
        if (connection.IsOpen()) {
            accepted(std::move(connection));
        }
    });
    return true;
}

void Listener::Close() {
    if (port_.IsOpen()) {
        loop_.Unwatch(port_.Descriptor());
        port_ = TcpListener();
    }
}

}  // namespace quorvi::phone
