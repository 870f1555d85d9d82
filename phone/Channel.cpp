#include "phone/Channel.h"

#include <arpa/inet.h>
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
constexpr int kBacklog = 64;

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
    TcpSocket socket(::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0));
    const int on = 1;
    setsockopt(socket.Descriptor(), SOL_SOCKET, SO_REUSEADDR, &on, sizeof on);
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_port = htons(port);
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t size = sizeof address;
    if (bind(socket.Descriptor(), reinterpret_cast<sockaddr*>(&address), size) != 0 ||
        listen(socket.Descriptor(), kBacklog) != 0 ||
        getsockname(socket.Descriptor(), reinterpret_cast<sockaddr*>(&address), &size) != 0) {
        return false;
    }
    socket_ = std::move(socket);
    port_ = ntohs(address.sin_port);
    loop_.Watch(socket_.Descriptor(), POLLIN, [this, accepted = std::move(accepted)](short) {
        TcpSocket connection(accept4(socket_.Descriptor(), nullptr, nullptr, SOCK_CLOEXEC));
        if (connection.IsOpen()) {
            accepted(std::move(connection));
        }
    });
    return true;
}

void Listener::Close() {
    if (socket_.IsOpen()) {
        loop_.Unwatch(socket_.Descriptor());
        socket_.Close();
    }
    port_ = 0;
}

}  // namespace quorvi::phone
