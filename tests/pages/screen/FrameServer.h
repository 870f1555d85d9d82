// An adb server for the tests of the capture page: answers each connection as the test says, and
// keeps what it was asked.
#pragma once

#include <condition_variable>
#include <cstdint>
#include <functional>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

#include "tests/pages/screen/FrameWords.h"
#include "tests/support/LoopbackAgent.h"

namespace quorvi {

// A screen as the phone sends it.
struct ToldScreen {
    std::uint32_t bits = 32;
    std::uint32_t width = 4;
    std::uint32_t height = 8;
    Bytes channels = BlueAtZero();
    // The bytes of the pixel at (x, y).
    std::function<Bytes(std::uint32_t x, std::uint32_t y)> pixel = nullptr;
};

// The bytes of a pixel of 32 bits whose blue comes first.
[[nodiscard]] Bytes Pixel32(int red, int green, int blue);
// Version, shape, channels and pixels.
[[nodiscard]] Bytes FrameOf(const ToldScreen& screen);

class FrameServer {
  public:
    enum class End { close, wait };

    // What a connection gets behind each of its two requests. A word that is not "OKAY" ends it.
    struct Answer {
        std::string transport = "OKAY";
        std::string service = "OKAY";
        Bytes stream{};
        End end = End::close;
    };

    FrameServer();
    ~FrameServer();
    FrameServer(const FrameServer&) = delete;
    FrameServer& operator=(const FrameServer&) = delete;

    [[nodiscard]] std::uint16_t Port() const { return port_; }

    void Tell(Answer answer);
    void Tell(const ToldScreen& screen) { Tell(Answer{.stream = FrameOf(screen)}); }

    // Keeps back what comes behind the requests, until Release.
    void Hold();
    void Release();

    // The requests of each connection so far, as one text: "000Dhost:transport…000cframebuffer:".
    [[nodiscard]] std::vector<std::string> Asked();
    [[nodiscard]] std::size_t Count() { return Asked().size(); }

  private:
    void AcceptAll();
    void Serve(const TcpSocket& socket);
    bool Take(const TcpSocket& socket, std::size_t connection);

    TcpSocket listener_;
    std::uint16_t port_ = 0;
    std::mutex mutex_;
    std::condition_variable released_;
    Answer answer_;
    bool held_ = false;
    bool ending_ = false;
    int open_ = -1;  // descriptor of the connection that is served
    std::vector<std::string> asked_;
    std::thread thread_;
};

}  // namespace quorvi
