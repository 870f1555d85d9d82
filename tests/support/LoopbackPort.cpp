#include "tests/support/LoopbackPort.h"

#include <arpa/inet.h>
#include <netinet/in.h>
#include <sys/socket.h>

namespace quorvi {
namespace {

constexpr int kBacklog = 64;

TcpSocket Bind(std::uint16_t port) {
    TcpSocket socket(::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, IPPROTO_TCP));
    // A port that was asked for may have served a moment ago. A free one shall nobody share.
    const int on = port == 0 ? 0 : 1;
    setsockopt(socket.Descriptor(), SOL_SOCKET, SO_REUSEADDR, &on, sizeof on);
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_port = htons(port);
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    if (bind(socket.Descriptor(), reinterpret_cast<const sockaddr*>(&address), sizeof address) !=
        0) {
        socket.Close();
    }
    return socket;
}

}  // namespace

TcpSocket ListenOn(std::uint16_t port) {
    TcpSocket socket = Bind(port);
    if (listen(socket.Descriptor(), kBacklog) != 0) {
        socket.Close();
    }
    return socket;
}

std::uint16_t PortOf(const TcpSocket& socket) {
    sockaddr_in address{};
    socklen_t size = sizeof address;
    getsockname(socket.Descriptor(), reinterpret_cast<sockaddr*>(&address), &size);
    return ntohs(address.sin_port);
}

std::uint16_t UnusedPort() {
    static const TcpSocket kept = Bind(0);  // so that no other process is given the port
    return PortOf(kept);
}

}  // namespace quorvi
