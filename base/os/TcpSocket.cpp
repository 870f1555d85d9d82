#include "base/os/TcpSocket.h"

#include <arpa/inet.h>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <poll.h>
#include <sys/socket.h>

#include <cerrno>

namespace quorvi {
namespace {

std::ptrdiff_t ReceiveOnce(int descriptor, std::span<std::byte> bytes, int flags) {
    for (;;) {
        const std::ptrdiff_t count = recv(descriptor, bytes.data(), bytes.size(), flags);
        if (count >= 0 || errno != EINTR) {
            return count;
        }
    }
}

// A blocking connect. One that a signal interrupts goes on by itself, and is waited for.
bool ConnectTo(int descriptor, const sockaddr_in& address) {
    if (connect(descriptor, reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0) {
        return true;
    }
    if (errno != EINTR) {
        return false;
    }
    pollfd connecting{.fd = descriptor, .events = POLLOUT, .revents = 0};
    while (poll(&connecting, 1, -1) < 0 && errno == EINTR) {
    }
    int error = 0;
    socklen_t size = sizeof error;
    return getsockopt(descriptor, SOL_SOCKET, SO_ERROR, &error, &size) == 0 && error == 0;
}

}  // namespace

TcpSocket TcpSocket::Connect(std::uint16_t port, Delay delay) {
    TcpSocket socket(::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, IPPROTO_TCP));
    if (!socket.IsOpen()) {
        return socket;
    }
    if (delay == Delay::none) {
        const int on = 1;
        setsockopt(socket.Descriptor(), IPPROTO_TCP, TCP_NODELAY, &on, sizeof on);
    }
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_port = htons(port);
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    if (!ConnectTo(socket.Descriptor(), address)) {
        socket.Close();
    }
    return socket;
}

std::ptrdiff_t TcpSocket::Send(std::span<const std::byte> bytes) const {
    std::size_t sent = 0;
    while (sent < bytes.size()) {
        const std::ptrdiff_t count =
            send(Descriptor(), bytes.data() + sent, bytes.size() - sent, MSG_NOSIGNAL);
        if (count < 0 && errno == EINTR) {
            continue;
        }
        if (count < 0) {
            return -1;
        }
        sent += static_cast<std::size_t>(count);
    }
    return static_cast<std::ptrdiff_t>(sent);
}

std::ptrdiff_t TcpSocket::Receive(std::span<std::byte> bytes) const {
    return ReceiveOnce(Descriptor(), bytes, 0);
}

std::ptrdiff_t TcpSocket::ReceiveAll(std::span<std::byte> bytes) const {
    return ReceiveOnce(Descriptor(), bytes, MSG_WAITALL);
}

void TcpSocket::LimitReceive(std::chrono::milliseconds limit) const {
    const auto seconds = std::chrono::duration_cast<std::chrono::seconds>(limit);
    const std::chrono::microseconds rest = limit - seconds;
    const timeval time{.tv_sec = seconds.count(), .tv_usec = rest.count()};
    setsockopt(Descriptor(), SOL_SOCKET, SO_RCVTIMEO, &time, sizeof time);
}

bool TcpSocket::TimedOut() {
    return errno == EAGAIN || errno == EWOULDBLOCK;
}

}  // namespace quorvi
