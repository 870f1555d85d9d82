#include "bench/BareReceive.h"

#include <benchmark/benchmark.h>

#include <array>
#include <memory>

#include "agent/Request.h"
#include "agent/Wire.h"
#include "base/os/TcpSocket.h"

namespace quorvi {

std::size_t BareReceive(std::uint16_t port, AgentCommand command) {
    const TcpSocket socket = TcpSocket::Connect(port);
    socket.Send(BareRequest(command));
    std::array<std::byte, 4> word{};
    static_cast<void>(socket.ReceiveAll(word));
    const std::size_t length = ReadUInt32(word.data());
    // Not cleared: the loop alone is what is measured.
    const auto buffer = std::make_unique_for_overwrite<std::byte[]>(length);
    std::size_t received = 0;
    while (received < length) {
        const std::ptrdiff_t count = socket.Receive({buffer.get() + received, length - received});
        if (count < 1) {
            break;
        }
        received += static_cast<std::size_t>(count);
    }
    benchmark::DoNotOptimize(buffer.get());
    return received;
}

}  // namespace quorvi
