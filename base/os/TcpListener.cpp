#include "base/os/TcpListener.h"

#include <arpa/inet.h>
#include <netinet/in.h>
#include <sys/socket.h>

#include <utility>

namespace quorvi {
namespace {

constexpr int kBacklog = 64;

}  // namespace

TcpListener TcpListener::On(std::uint16_t port) {
    TcpListener listener;
    TcpSocket socket(::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, IPPROTO_TCP));
    const int on = 1;
    setsockopt(socket.Descriptor(), SOL_SOCKET, SO_REUSEADDR, &on, sizeof on);
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_port = htons(port);
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t size = sizeof address;
    auto* const raw = reinterpret_cast<sockaddr*>(&address);
    if (bind(socket.Descriptor(), raw, size) == 0 && listen(socket.Descriptor(), kBacklog) == 0 &&
        getsockname(socket.Descriptor(), raw, &size) == 0) {
        listener.socket_ = std::move(socket);
        listener.port_ = ntohs(address.sin_port);
    }
    return listener;
}

TcpSocket TcpListener::Accept() const {
    return TcpSocket(accept4(Descriptor(), nullptr, nullptr, SOCK_CLOEXEC));
}

}  // namespace quorvi
