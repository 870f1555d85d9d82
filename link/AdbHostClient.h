// Talks to the adb server over its socket, for what running adb would be too slow or too clumsy
// for. The server is never started here: an earlier `adb devices` leaves it running.
//
// A frame is the byte length of the service text in four hexadecimal digits, upper-case but for the
// frame buffer's, then the text, with no terminator. The server answers each with a status word of
// four bytes; nothing behind it is read.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <span>
#include <string>
#include <string_view>

#include "base/os/TcpSocket.h"

namespace quorvi {

// TCP port of the adb server on 127.0.0.1.
inline constexpr std::uint16_t AdbHostPort = 5037;

// Bytes of the longest frame. What does not fit, as with a serial that is too long, is not sent.
inline constexpr std::size_t kHostRequestBytes = 256;

// AdbHostPort, unless adb's own variable ANDROID_ADB_SERVER_PORT names another (1 to 65535). Any
// thread.
[[nodiscard]] std::uint16_t AdbServerPort();

// How the digits of a frame's length are written.
enum class LengthDigits { upperCase, lowerCase };

// What a forward runs into, in the order of its steps.
enum class ForwardEvent {
    noSerial,    // no phone was ever chosen
    sendFailed,  // nothing was sent
    refused,     // the status word is not "OKAY", or none came
    standing,    // the forward stands
};

// All operations block without a time limit: on a worker only. Each uses a socket of its own.
class AdbHostClient {
  public:
    using Sender = std::ptrdiff_t (*)(const TcpSocket& socket, std::span<const std::byte> bytes);
    using ForwardReport = std::function<void(ForwardEvent)>;

    // The sender differs in tests only.
    explicit AdbHostClient(std::uint16_t port = AdbServerPort(), Sender sender = SendAll)
        : port_(port), sender_(sender) {}

    // The bytes of a request.
    [[nodiscard]] static std::string Frame(std::string_view service,
                                           LengthDigits digits = LengthDigits::upperCase);

    // A connection to the server. Whether it could be made is not examined: on a socket that is not
    // open the requests fail.
    [[nodiscard]] TcpSocket Open(TcpSocket::Delay delay = TcpSocket::Delay::none) const;

    // Sends one request and reads nothing, for who reads the status word under a limit of time: the
    // count sent, -1 for a text that does not fit or a failed send.
    [[nodiscard]] std::ptrdiff_t Send(const TcpSocket& socket, std::string_view service,
                                      LengthDigits digits = LengthDigits::upperCase) const;

    // Sends one request and reads the status word, once. True if it is "OKAY"; every other word, a
    // short one, a failed send or receive and a text that does not fit are false.
    [[nodiscard]] bool Request(const TcpSocket& socket, std::string_view service) const;

    // Has the server forward 127.0.0.1:50505 to port 50505 of the phone; done again without harm
    // where it stands. True if it stands. Each event is reported as it happens, and a step that
    // fails does not end the procedure: an empty serial gives `noSerial` and then `refused`. Kept
    // on purpose (AdbHostClient.EmptySerialIsToldAndThenRefused).
    bool ForwardAgentPort(std::string_view serial, const ForwardReport& report) const;

  private:
    static std::ptrdiff_t SendAll(const TcpSocket& socket, std::span<const std::byte> bytes) {
        return socket.Send(bytes);
    }

    std::uint16_t port_;
    Sender sender_;
};

}  // namespace quorvi
