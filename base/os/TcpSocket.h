// A blocking TCP connection to 127.0.0.1, closed with the object.
#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <span>

#include "base/os/FileDescriptor.h"

namespace quorvi {

class TcpSocket {
  public:
    TcpSocket() = default;
    // Takes over an open descriptor.
    explicit TcpSocket(int descriptor) : descriptor_(descriptor) {}
    enum class Delay { keep, none };

    // A stream socket connected to 127.0.0.1:port, with TCP_NODELAY unless told to keep the delay;
    // not open if the connection was refused. Blocks without a time limit.
    [[nodiscard]] static TcpSocket Connect(std::uint16_t port, Delay delay = Delay::none);

    [[nodiscard]] bool IsOpen() const { return descriptor_.IsOpen(); }
    [[nodiscard]] int Descriptor() const { return descriptor_.Get(); }

    // One send of all bytes; the count sent, or -1. Raises no signal when the peer is gone.
    std::ptrdiff_t Send(std::span<const std::byte> bytes) const;

    // One recv: the count received, 0 when the peer has closed, -1 on failure.
    std::ptrdiff_t Receive(std::span<std::byte> bytes) const;

    // One recv that waits until all of `bytes` has come or the peer has closed; the count received,
    // less than asked after a close, or -1.
    std::ptrdiff_t ReceiveAll(std::span<std::byte> bytes) const;

    // From here on a receive to which nothing comes for so long, at least a millisecond, fails.
    void LimitReceive(std::chrono::milliseconds limit) const;
    // Whether a receive of this thread that has failed just now did so because of the limit.
    [[nodiscard]] static bool TimedOut();

    void Close() { descriptor_.Close(); }

  private:
    FileDescriptor descriptor_;
};

}  // namespace quorvi
