// A port of 127.0.0.1 whose connects do not come to an end.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "base/os/TcpSocket.h"

namespace quorvi {

class StuckListener {
  public:
    // Its queue is full of connections that it never takes.
    StuckListener();

    [[nodiscard]] std::uint16_t Port() const { return port_; }
    // Whether anybody but itself waits for an answer.
    [[nodiscard]] bool IsKnockedAt() const { return Waiting() > own_; }

  private:
    [[nodiscard]] std::size_t Waiting() const;

    TcpSocket listener_;
    std::uint16_t port_ = 0;
    std::vector<TcpSocket> queued_;
    std::size_t own_ = 0;
};

}  // namespace quorvi
