// Ports of 127.0.0.1 for tests.
#pragma once

#include <cstdint>

#include "base/os/TcpSocket.h"

namespace quorvi {

// A listening socket on this port, on a free one for port 0; not open when the port is taken.
[[nodiscard]] TcpSocket ListenOn(std::uint16_t port);

// Zero for a socket that is not open.
[[nodiscard]] std::uint16_t PortOf(const TcpSocket& socket);

// A port that nobody listens on as long as the process runs.
[[nodiscard]] std::uint16_t UnusedPort();

}  // namespace quorvi
