#include "download/HttpSocket.h"

namespace quorvi {

bool CHttpSocket::Connect(const std::string& host, std::uint16_t port) {
    port_ = port;
    receiveLimit_ = HostSocket::kNoLimit;
    sendLimit_ = HostSocket::kNoLimit;
    return socket_.Connect(host, port);
}

void CHttpSocket::SendRequest() {
    if (!IsConnected()) {
        return;
    }
    // Whether that went well shows in what comes back.
    static_cast<void>(socket_.Send(std::as_bytes(std::span(request_)), sendLimit_));
    ResponseHead head;
    ResponseHead::Next next = ResponseHead::Next::more;
    std::byte byte{};
    while (next == ResponseHead::Next::more && !stop_.IsStopped() &&
           socket_.Receive({&byte, 1}, receiveLimit_) == 1) {
        next = head.Take(static_cast<char>(byte));
    }
    if (next == ResponseHead::Next::rejected) {
        Close();
    }
    head.End();
    head_ = std::move(head);
}

std::ptrdiff_t CHttpSocket::Receive(std::span<std::byte> bytes) {
    if (!IsConnected()) {
        return 0;
    }
    const std::ptrdiff_t count = socket_.Receive(bytes, receiveLimit_);
    if (count < 1) {
        Close();
    }
    return count;
}

void CHttpSocket::SetTimeout(std::chrono::milliseconds limit, Direction direction) {
    (direction == Direction::receive ? receiveLimit_ : sendLimit_) = limit;
}

}  // namespace quorvi
