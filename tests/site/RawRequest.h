// A request to the sample site as it stands, byte for byte.
#pragma once

#include <array>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "base/os/TcpSocket.h"

namespace quorvi::site {

inline void SendText(const TcpSocket& socket, std::string_view text) {
    const auto bytes = std::as_bytes(std::span(text));
    for (std::size_t sent = 0; sent < bytes.size();) {
        const std::ptrdiff_t count = socket.Send(bytes.subspan(sent));
        if (count <= 0) {
            return;
        }
        sent += static_cast<std::size_t>(count);
    }
}

// Until the site closes, or says nothing for a minute.
inline std::string ReceiveText(const TcpSocket& socket) {
    socket.LimitReceive(std::chrono::minutes(1));
    std::string text;
    std::array<std::byte, 4096> piece{};
    for (;;) {
        const std::ptrdiff_t count = socket.Receive(piece);
        if (count <= 0) {
            return text;
        }
        text.append(reinterpret_cast<const char*>(piece.data()), static_cast<std::size_t>(count));
    }
}

// The request's first line and headers; the site closes behind its answer.
inline std::string AskRaw(std::uint16_t port, std::string_view line,
                          std::string_view headers = {}) {
    const TcpSocket socket = TcpSocket::Connect(port);
    SendText(socket, std::string(line)
                         .append("\r\nHost:127.0.0.1\r\nConnection: close\r\n")
                         .append(headers)
                         .append("\r\n"));
    return ReceiveText(socket);
}

inline std::string BodyOf(const std::string& answer) {
    const std::size_t end = answer.find("\r\n\r\n");
    return end == std::string::npos ? std::string() : answer.substr(end + 4);
}

}  // namespace quorvi::site
