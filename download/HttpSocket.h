// The engine's connection: one question by text, one answer.
#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "base/os/HostSocket.h"
#include "download/HttpHead.h"

namespace quorvi {

// Used on one thread. `stop` outlives it and ends each of its waits.
class CHttpSocket {
  public:
    // Its head is the one of an earlier connection until it has read one of its own.
    explicit CHttpSocket(const StopSignal& stop, ResponseHead head = {})
        : stop_(stop), socket_(stop), head_(std::move(head)) {}

    // Closes a connection that is there. The host's addresses are tried in turn.
    bool Connect(const std::string& host, std::uint16_t port);
    [[nodiscard]] bool IsConnected() const { return socket_.IsOpen(); }
    [[nodiscard]] const std::string& PeerIp() const { return socket_.PeerIp(); }
    [[nodiscard]] std::uint16_t Port() const { return port_; }

    // Makes the text that SendRequest sends.
    void BuildRequest(const HttpRequest& request) { request_ = quorvi::BuildRequest(request); }
    // Sends the text and reads the head of the answer, as long as that takes. Where nothing is
    // connected, it does nothing; where the answer is none, the connection is closed.
    void SendRequest();

    // What has come of the body: the count; 0 when the peer has closed, or nothing is connected; -1
    // on failure, on a time-out and when stopped. Below 1 the connection is closed.
    std::ptrdiff_t Receive(std::span<std::byte> bytes);

    // How long Receive waits, or how long a send does; for this connection.
    enum class Direction { receive, send };
    void SetTimeout(std::chrono::milliseconds limit, Direction direction);

    void Close() { socket_.Close(); }

    // Of the last head that was read; see ResponseHead.
    [[nodiscard]] const ResponseHead& Head() const { return head_; }
    [[nodiscard]] int GetStatusCode() const { return head_.GetStatusCode(); }
    [[nodiscard]] std::optional<std::string_view> GetHeaderValue(std::string_view name) const {
        return head_.GetHeaderValue(name);
    }

  private:
    const StopSignal& stop_;
    HostSocket socket_;
    ResponseHead head_;
    std::string request_;
    std::uint16_t port_ = 80;
    std::chrono::milliseconds receiveLimit_ = HostSocket::kNoLimit;
    std::chrono::milliseconds sendLimit_ = HostSocket::kNoLimit;
};

}  // namespace quorvi
