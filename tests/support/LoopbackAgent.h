// An agent for tests: listens on an ephemeral port of 127.0.0.1, and gives every connection the
// same answer, right or wrong.
#pragma once

#include <atomic>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <mutex>
#include <string_view>
#include <thread>
#include <vector>

#include "agent/Request.h"
#include "base/os/TcpSocket.h"
#include "tests/support/LoopbackPort.h"

namespace quorvi {

// How the agent behaves once the first bytes of a request have come.
struct Answer {
    enum class End {
        wait,   // keeps the connection until the suite closes it
        close,  // closes it in order
        reset,  // breaks it
    };

    Bytes bytes{};
    End end = End::wait;
    // Bytes sent at a time and the pause behind each; all at once when zero.
    std::size_t piece = 0;
    std::chrono::milliseconds pause{0};
};

// What came over one connection.
struct Exchange {
    Bytes firstPiece;           // what one recv brought
    Bytes rest;                 // what came behind it
    bool closedByPeer = false;  // the suite closed it, in order
};

class LoopbackAgent {
  public:
    // On an ephemeral port, unless told which.
    explicit LoopbackAgent(Answer answer, std::uint16_t port = 0);
    ~LoopbackAgent();
    LoopbackAgent(const LoopbackAgent&) = delete;
    LoopbackAgent& operator=(const LoopbackAgent&) = delete;

    // Zero when the port could not be had.
    [[nodiscard]] std::uint16_t Port() const { return port_; }
    // Connections so far that have asked something.
    [[nodiscard]] std::size_t Accepted() const { return accepted_; }
    // Waits until `count` connections have ended, and gives them in the order of their ends.
    [[nodiscard]] std::vector<Exchange> Exchanges(std::size_t count);

  private:
    void AcceptAll();
    void Serve(const TcpSocket& socket);

    Answer answer_;
    TcpSocket listener_;
    std::uint16_t port_ = 0;
    std::atomic<std::size_t> accepted_ = 0;
    std::mutex mutex_;
    std::vector<Exchange> exchanges_;
    std::thread thread_;
};

// Bytes out of words and text, for literals with a line a field.
[[nodiscard]] Bytes Join(std::initializer_list<Bytes> fields);
[[nodiscard]] Bytes Word(std::uint32_t value);
[[nodiscard]] Bytes LongWord(std::uint64_t value);
// A string field: length and UTF-8.
[[nodiscard]] Bytes Text(std::string_view utf8);
// A payload reply: the length word, then the payload.
[[nodiscard]] Bytes Framed(const Bytes& payload);

}  // namespace quorvi
