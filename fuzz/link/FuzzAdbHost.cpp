// Lets a server answer the requests of the host protocol with any bytes.
//
// Input: the length of the service text; the text; the server's bytes.
#include <sys/socket.h>

#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include "link/AdbHostClient.h"

namespace {

using quorvi::AdbHostClient;
using quorvi::TcpSocket;

void Require(bool held) {
    if (!held) {
        std::abort();
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size == 0) {
        return 0;
    }
    std::string_view input(reinterpret_cast<const char*>(data), size);
    const std::size_t length = static_cast<std::uint8_t>(input.front());
    input.remove_prefix(1);
    // Twice as long as the byte says, so that some do not fit into a request.
    const std::string service(input.substr(0, 2 * length));
    const std::string_view answer = input.substr(service.size());

    int ends[2];
    Require(socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, ends) == 0);
    const TcpSocket client(ends[0]);
    const TcpSocket server(ends[1]);
    server.Send(std::as_bytes(std::span(answer)));
    shutdown(server.Descriptor(), SHUT_WR);

    // Two requests on one connection, as for the framebuffer.
    const AdbHostClient requests(1);
    const std::string frame = AdbHostClient::Frame(service);
    const bool fits = frame.size() <= quorvi::kHostRequestBytes;
    const bool first = requests.Request(client, service);
    Require(first == (fits && answer.substr(0, 4) == "OKAY"));
    if (first) {
        const bool second = requests.Request(client, service);
        Require(second == (answer.size() >= 8 && answer.substr(4, 4) == "OKAY"));
    }

    // What reached the server is the frame, whole or not at all.
    std::string sent(2 * quorvi::kHostRequestBytes, '\0');
    shutdown(client.Descriptor(), SHUT_WR);
    std::size_t count = 0;
    for (std::ptrdiff_t came = 0;
         (came = server.Receive(std::as_writable_bytes(std::span(sent).subspan(count)))) > 0;) {
        count += static_cast<std::size_t>(came);
    }
    sent.resize(count);
    Require(sent == (fits ? frame + (first ? frame : "") : ""));
    return 0;
}
