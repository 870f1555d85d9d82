#include "tests/pages/screen/FrameServer.h"

#include <sys/socket.h>

#include <array>
#include <charconv>
#include <span>
#include <utility>

#include "base/ByteText.h"

namespace quorvi {
namespace {

constexpr std::size_t kLengthDigits = 4;

}  // namespace

Bytes Pixel32(int red, int green, int blue) {
    return {static_cast<std::byte>(blue), static_cast<std::byte>(green),
            static_cast<std::byte>(red), std::byte{0}};
}

Bytes FrameOf(const ToldScreen& screen) {
    Bytes pixels;
    for (std::uint32_t y = 0; y < screen.height; ++y) {
        for (std::uint32_t x = 0; x < screen.width; ++x) {
            const Bytes pixel = screen.pixel ? screen.pixel(x, y) : Pixel32(200, 40, 60);
            pixels.insert(pixels.end(), pixel.begin(), pixel.end());
        }
    }
    return Join({Words({1, screen.bits, static_cast<std::uint32_t>(pixels.size()), screen.width,
                        screen.height}),
                 screen.channels, pixels});
}

FrameServer::FrameServer()
    : listener_(ListenOn(0)), port_(PortOf(listener_)), thread_([this] { AcceptAll(); }) {
    Tell(ToldScreen());
}

FrameServer::~FrameServer() {
    {
        const std::lock_guard lock(mutex_);
        ending_ = true;
        if (open_ >= 0) {
            shutdown(open_, SHUT_RDWR);
        }
    }
    released_.notify_all();
    shutdown(listener_.Descriptor(), SHUT_RDWR);
    thread_.join();
}

void FrameServer::Tell(Answer answer) {
    const std::lock_guard lock(mutex_);
    answer_ = std::move(answer);
}

void FrameServer::Hold() {
    const std::lock_guard lock(mutex_);
    held_ = true;
}

void FrameServer::Release() {
    {
        const std::lock_guard lock(mutex_);
        held_ = false;
    }
    released_.notify_all();
}

std::vector<std::string> FrameServer::Asked() {
    const std::lock_guard lock(mutex_);
    return asked_;
}

void FrameServer::AcceptAll() {
    for (;;) {
        const TcpSocket socket(accept4(listener_.Descriptor(), nullptr, nullptr, SOCK_CLOEXEC));
        if (!socket.IsOpen()) {
            return;
        }
        {
            const std::lock_guard lock(mutex_);
            if (ending_) {
                return;
            }
            open_ = socket.Descriptor();
        }
        Serve(socket);
        const std::lock_guard lock(mutex_);
        open_ = -1;
    }
}

// One request: four digits, and the text that is so long.
bool FrameServer::Take(const TcpSocket& socket, std::size_t connection) {
    std::string request(kLengthDigits, '\0');
    if (socket.ReceiveAll(std::as_writable_bytes(std::span(request))) !=
        static_cast<std::ptrdiff_t>(kLengthDigits)) {
        return false;
    }
    std::size_t length = 0;
    std::from_chars(request.data(), request.data() + kLengthDigits, length, 16);
    std::string text(length, '\0');
    if (socket.ReceiveAll(std::as_writable_bytes(std::span(text))) !=
        static_cast<std::ptrdiff_t>(length)) {
        return false;
    }
    const std::lock_guard lock(mutex_);
    asked_[connection] += request + text;
    return true;
}

void FrameServer::Serve(const TcpSocket& socket) {
    Answer answer;
    std::size_t connection = 0;
    {
        const std::lock_guard lock(mutex_);
        answer = answer_;
        connection = asked_.size();
        asked_.emplace_back();
    }
    for (const std::string& word : {answer.transport, answer.service}) {
        if (!Take(socket, connection)) {
            return;
        }
        socket.Send(ToBytes(word));
        if (word != "OKAY") {
            return;
        }
    }
    {
        std::unique_lock lock(mutex_);
        released_.wait(lock, [this] { return !held_ || ending_; });
    }
    socket.Send(answer.stream);
    if (answer.end == End::close) {
        shutdown(socket.Descriptor(), SHUT_WR);
    }
    // Until the suite closes: its byte that asks for the pixels may still come.
    std::array<std::byte, 64> chunk{};
    while (socket.Receive(chunk) > 0) {
    }
}

}  // namespace quorvi
