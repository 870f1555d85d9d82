#include "link/AdbHostClient.h"

#include <fmt/format.h>

#include <array>
#include <charconv>
#include <cstdlib>
#include <cstring>

namespace quorvi {
namespace {

constexpr std::string_view kOkay = "OKAY";

// The two port numbers stand in the service as digits.
std::string ForwardService(std::string_view serial) {
    return fmt::format("host-serial:{}:forward:tcp:50505;tcp:50505", serial);
}

// One receive into a cleared word.
bool ReceivesOkay(const TcpSocket& socket) {
    std::array<char, 4> word{};
    static_cast<void>(socket.Receive(std::as_writable_bytes(std::span(word))));
    return std::string_view(word.data(), word.size()) == kOkay;
}

}  // namespace

std::uint16_t AdbServerPort() {
    const char* const named = std::getenv("ANDROID_ADB_SERVER_PORT");
    if (named == nullptr) {
        return AdbHostPort;
    }
    std::uint16_t port = 0;
    const char* const end = named + std::strlen(named);
    const auto [rest, failed] = std::from_chars(named, end, port);
    return failed == std::errc() && rest == end && port != 0 ? port : AdbHostPort;
}

std::string AdbHostClient::Frame(std::string_view service, LengthDigits digits) {
    return digits == LengthDigits::upperCase ? fmt::format("{:04X}{}", service.size(), service)
                                             : fmt::format("{:04x}{}", service.size(), service);
}

TcpSocket AdbHostClient::Open(TcpSocket::Delay delay) const {
    return TcpSocket::Connect(port_, delay);
}

std::ptrdiff_t AdbHostClient::Send(const TcpSocket& socket, std::string_view service,
                                   LengthDigits digits) const {
    const std::string frame = Frame(service, digits);
    if (frame.size() > kHostRequestBytes) {
        return -1;
    }
    return sender_(socket, std::as_bytes(std::span(frame)));
}

bool AdbHostClient::Request(const TcpSocket& socket, std::string_view service) const {
    return Send(socket, service) > 0 && ReceivesOkay(socket);
}

bool AdbHostClient::ForwardAgentPort(std::string_view serial, const ForwardReport& report) const {
    TcpSocket socket = Open();
    if (serial.empty()) {
        socket.Close();
        report(ForwardEvent::noSerial);
    }
    const std::ptrdiff_t sent = Send(socket, ForwardService(serial));
    if (sent == 0) {
        socket.Close();
        report(ForwardEvent::sendFailed);
    }
    const bool stands = sent > 0 && ReceivesOkay(socket);
    socket.Close();
    report(stands ? ForwardEvent::standing : ForwardEvent::refused);
    return stands;
}

}  // namespace quorvi
