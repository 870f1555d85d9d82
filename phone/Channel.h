// Non-blocking TCP connections and listeners on an event loop.
#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <functional>
#include <memory>
#include <span>
#include <vector>

#include "agent/Request.h"
#include "base/os/TcpListener.h"
#include "base/os/TcpSocket.h"
#include "phone/EventLoop.h"

namespace quorvi::phone {

// Bytes on their way out, shared by whoever still has to send a part of them.
using SharedBytes = std::shared_ptr<const Bytes>;

[[nodiscard]] inline SharedBytes Share(Bytes bytes) {
    return std::make_shared<const Bytes>(std::move(bytes));
}

// One connection. All members on the loop's thread. No callback comes after Close or Reset.
class Channel {
  public:
    struct Events {
        std::function<void(std::span<const std::byte>)> bytes;
        std::function<void()> drained = [] {};  // the system has taken all that was written
        std::function<void()> gone;             // the peer closed, or the connection broke
    };

    Channel(EventLoop& loop, TcpSocket socket);
    ~Channel() { Close(); }
    Channel(const Channel&) = delete;
    Channel& operator=(const Channel&) = delete;

    // Callbacks may close the channel, but not destroy it.
    void Start(Events events);
    void Write(SharedBytes bytes, std::size_t offset, std::size_t count);
    void Write(Bytes bytes);
    [[nodiscard]] bool IsOpen() const { return socket_.IsOpen(); }
    // Drops what is not sent yet. Reset makes the peer's next read fail instead of ending.
    void Close();
    void Reset();

  private:
    struct Piece {
        SharedBytes bytes;
        std::size_t offset;
        std::size_t end;
    };

    void OnReady(short happened);
    void Receive();
    void Send();

    EventLoop& loop_;
    TcpSocket socket_;
    Events events_;
    std::deque<Piece> pieces_;
};

// A listener on 127.0.0.1.
class Listener {
  public:
    explicit Listener(EventLoop& loop) : loop_(loop) {}
    ~Listener() { Close(); }
    Listener(const Listener&) = delete;
    Listener& operator=(const Listener&) = delete;

    // Port 0 takes any free one. False when the port is in use.
    [[nodiscard]] bool Open(std::uint16_t port, std::function<void(TcpSocket)> accepted);
    void Close();
    // Zero while closed.
    [[nodiscard]] std::uint16_t Port() const { return port_.Port(); }

  private:
    EventLoop& loop_;
    TcpListener port_;
};

}  // namespace quorvi::phone
