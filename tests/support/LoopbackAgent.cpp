#include "tests/support/LoopbackAgent.h"

#include <sys/socket.h>

#include <algorithm>
#include <array>
#include <span>
#include <string_view>
#include <utility>

#include "agent/Wire.h"

namespace quorvi {
namespace {

void Append(Bytes& out, std::span<const std::byte> bytes) {
    out.insert(out.end(), bytes.begin(), bytes.end());
}

}  // namespace

LoopbackAgent::LoopbackAgent(Answer answer, std::uint16_t port)
    : answer_(std::move(answer)),
      listener_(ListenOn(port)),
      port_(PortOf(listener_)),
      thread_([this] { AcceptAll(); }) {}

LoopbackAgent::~LoopbackAgent() {
    shutdown(listener_.Descriptor(), SHUT_RDWR);
    thread_.join();
}

void LoopbackAgent::AcceptAll() {
    for (;;) {
        const TcpSocket socket(accept4(listener_.Descriptor(), nullptr, nullptr, SOCK_CLOEXEC));
        if (!socket.IsOpen()) {
            return;
        }
        Serve(socket);
    }
}

void LoopbackAgent::Serve(const TcpSocket& socket) {
    Exchange exchange;
    std::array<std::byte, 65536> chunk{};
    const std::ptrdiff_t first = socket.Receive(chunk);
    if (first > 0) {
        Append(exchange.firstPiece, std::span(chunk).first(static_cast<std::size_t>(first)));
    }
    ++accepted_;
    std::span<const std::byte> left = answer_.bytes;
    while (!left.empty()) {
        const std::size_t count = answer_.piece == 0 ? left.size() : answer_.piece;
        const auto piece = left.first(std::min(count, left.size()));
        socket.Send(piece);
        left = left.subspan(piece.size());
        std::this_thread::sleep_for(answer_.pause);
    }
    if (answer_.end == Answer::End::reset) {
        const linger abort{.l_onoff = 1, .l_linger = 0};
        setsockopt(socket.Descriptor(), SOL_SOCKET, SO_LINGER, &abort, sizeof abort);
    } else {
        if (answer_.end == Answer::End::close) {
            shutdown(socket.Descriptor(), SHUT_WR);
        }
        std::ptrdiff_t count = 0;
        while ((count = socket.Receive(chunk)) > 0) {
            Append(exchange.rest, std::span(chunk).first(static_cast<std::size_t>(count)));
        }
        exchange.closedByPeer = count == 0;
    }
    const std::lock_guard lock(mutex_);
    exchanges_.push_back(std::move(exchange));
}

std::vector<Exchange> LoopbackAgent::Exchanges(std::size_t count) {
    constexpr auto kPatience = std::chrono::seconds(20);
    const auto end = std::chrono::steady_clock::now() + kPatience;
    for (;;) {
        {
            const std::lock_guard lock(mutex_);
            if (exchanges_.size() >= count || std::chrono::steady_clock::now() > end) {
                return exchanges_;
            }
        }
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
}

Bytes Join(std::initializer_list<Bytes> fields) {
    Bytes all;
    for (const Bytes& field : fields) {
        Append(all, field);
    }
    return all;
}

Bytes Word(std::uint32_t value) {
    Bytes word(4);
    PackUInt32(value, word.data());
    return word;
}

Bytes LongWord(std::uint64_t value) {
    Bytes word(8);
    PackUInt64(value, word.data());
    return word;
}

Bytes Text(std::string_view utf8) {
    Bytes text = Word(static_cast<std::uint32_t>(utf8.size()));
    Append(text, std::as_bytes(std::span(utf8)));
    return text;
}

Bytes Framed(const Bytes& payload) {
    Bytes reply = Word(static_cast<std::uint32_t>(payload.size()));
    Append(reply, payload);
    return reply;
}

}  // namespace quorvi
