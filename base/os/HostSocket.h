// A TCP connection to any host, all of whose waits another thread may end.
#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>

#include "base/os/FileDescriptor.h"
#include "base/os/StopSignal.h"

namespace quorvi {

// Used on one thread. `stop` outlives it.
class HostSocket {
  public:
    explicit HostSocket(const StopSignal& stop) : stop_(&stop) {}

    // Closes the connection that is there, and tries the host's addresses in turn until one
    // answers. Has no time-out of its own. False where none does, and where it was stopped.
    bool Connect(const std::string& host, std::uint16_t port);
    // The address that answered, as text.
    [[nodiscard]] const std::string& PeerIp() const { return peerIp_; }
    [[nodiscard]] bool IsOpen() const { return descriptor_.IsOpen(); }
    void Close() { descriptor_.Close(); }

    // Sends all; false where that failed, took too long or was stopped.
    bool Send(std::span<const std::byte> bytes, std::chrono::milliseconds limit) const;
    // What has come: the count, 0 when the peer has closed, -1 on failure, after `limit` without a
    // byte, and when stopped.
    std::ptrdiff_t Receive(std::span<std::byte> bytes, std::chrono::milliseconds limit) const;

    // As a limit: none.
    static constexpr std::chrono::milliseconds kNoLimit{-1};

  private:
    [[nodiscard]] bool Await(int descriptor, short events, std::chrono::milliseconds limit) const;

    const StopSignal* stop_;
    FileDescriptor descriptor_;
    std::string peerIp_;
};

}  // namespace quorvi
