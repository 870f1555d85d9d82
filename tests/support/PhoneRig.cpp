#include "tests/support/PhoneRig.h"

#include <fmt/format.h>

#include <array>

#include "base/ByteText.h"
#include "base/Text.h"
#include "base/os/TcpSocket.h"
#include "phone/adb/Packet.h"
#include "tests/support/Await.h"
#include "tests/support/BuildPlaces.h"

namespace quorvi::e2e {
namespace {

constexpr std::string_view kOkay = "OKAY";

std::uint16_t FreePort() {
    phone::EventLoop loop;
    phone::Listener listener(loop);
    return listener.Open(0, [](TcpSocket) {}) ? listener.Port() : std::uint16_t{0};
}

std::vector<phone::PhoneOptions> DeliveredPhones(std::size_t count) {
    std::vector<phone::PhoneOptions> phones(count);
    for (std::size_t i = 0; i < count; ++i) {
        phones[i].profile = phone::DeliveredProfile(i);
    }
    return phones;
}

std::string ReadToEnd(const TcpSocket& socket) {
    std::string text;
    std::array<std::byte, 4096> piece;
    for (std::ptrdiff_t count; (count = socket.Receive(piece)) > 0;) {
        text += AsText(std::span(piece).first(static_cast<std::size_t>(count)));
    }
    return text;
}

}  // namespace

PhoneRig::PhoneRig(std::size_t phoneCount) : PhoneRig(DeliveredPhones(phoneCount)) {}

PhoneRig::PhoneRig(std::vector<phone::PhoneOptions> phones)
    : serverPort_(FreePort()),
      homeVariable_("HOME", home_.Path().string()),
      portVariable_("ANDROID_ADB_SERVER_PORT", std::to_string(serverPort_)),
      // The server looks at no port by itself: it hears of the rig's phones from them alone, and
      // of no other phone that may be simulated on this machine.
      scanVariable_("ADB_LOCAL_TRANSPORT_MAX_PORT", "5554"),
      server_(std::make_unique<Process>(std::vector<std::string>{"adb", "nodaemon", "server"},
                                        (home_.Path() / "adb.log").string())) {
    const std::size_t count = phones.size();
    if (!WaitForServer()) {
        error_ = "the adb server does not start";
        return;
    }
    phones_ = std::make_unique<phone::RunningPhones>(
        phone::ServerOptions{std::move(phones), std::nullopt});
    error_ = phones_->Error();
    if (error_.empty() && !WaitForDevices(count)) {
        error_ = "the adb server does not list the phones";
    }
}

bool PhoneRig::WaitForServer() const {
    return Await([&] { return AskServer("host:version").has_value(); });
}

bool PhoneRig::WaitForDevices(std::size_t count) const {
    return Await([&] {
        const std::string list = AskServer("host:devices").value_or("");
        std::size_t ready = 0;
        for (const auto line : SplitAt(list, '\n')) {
            ready += line.ends_with("\tdevice");
        }
        return ready == count;
    });
}

std::string PhoneRig::AnswerOf(std::string_view service) const {
    const TcpSocket socket = TcpSocket::Connect(serverPort_);
    if (!socket.IsOpen()) {
        return "no connection";
    }
    socket.Send(ToBytes(fmt::format("{:04X}{}", service.size(), service)));
    return ReadToEnd(socket);
}

std::optional<std::string> PhoneRig::AskServer(std::string_view service) const {
    const std::string answer = AnswerOf(service);
    return answer.starts_with(kOkay) ? std::optional(answer.substr(kOkay.size())) : std::nullopt;
}

std::string PhoneRig::Serial(std::size_t index) {
    const std::uint16_t port = phones_->AdbPort(index);
    return fmt::format("emulator-{}", port - 1);
}

std::string PhoneRig::Control(std::size_t index, std::string_view line) {
    return phones_->Control(index, line);
}

std::string PhoneRig::BringAgentUp(std::size_t index) {
    const std::string answer = Control(index, "agent start");
    const std::string forward =
        AnswerOf(fmt::format("host-serial:{}:forward:tcp:50505;tcp:50505", Serial(index)));
    if (!forward.starts_with(kOkay)) {
        return "the forward is refused: " + forward;
    }
    return answer == "ok\n" ? "" : answer;
}

ProgramResult PhoneRig::Suite(std::vector<std::string> arguments, const std::string& input,
                              std::chrono::milliseconds limit) {
    arguments.insert(arguments.begin(), QUORVI_BIN_DIR "/quorvictl");
    return RunProgram(arguments, input, limit);
}

ProgramResult PhoneRig::Adb(std::vector<std::string> arguments) {
    arguments.insert(arguments.begin(), "adb");
    return RunProgram(arguments);
}

}  // namespace quorvi::e2e
