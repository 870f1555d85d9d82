// A port of 127.0.0.1 to which others connect.
#pragma once

#include <cstdint>

#include "base/os/TcpSocket.h"

namespace quorvi {

// Closed with the object.
class TcpListener {
  public:
    TcpListener() = default;
    // Listens on a port, 0 for any that is free. Not open when the port is in use.
    [[nodiscard]] static TcpListener On(std::uint16_t port);

    [[nodiscard]] bool IsOpen() const { return socket_.IsOpen(); }
    [[nodiscard]] std::uint16_t Port() const { return port_; }
    // Readable when somebody has connected. Stays the listener's own.
    [[nodiscard]] int Descriptor() const { return socket_.Descriptor(); }
    // The next connection; not open when there is none. Never waits.
    [[nodiscard]] TcpSocket Accept() const;

  private:
    TcpSocket socket_;
    std::uint16_t port_ = 0;
};

}  // namespace quorvi
