#include "phone/Phone.h"

#include <fmt/format.h>

#include <algorithm>
#include <cstdlib>

#include "agent/Wire.h"
#include "base/Text.h"
#include "phone/Control.h"
#include "phone/adb/FramebufferService.h"
#include "phone/adb/ShellService.h"
#include "phone/adb/SyncService.h"

namespace quorvi::phone {
namespace {

constexpr std::uint16_t kAdbServerPort = 5037;

// The port of the adb server on this machine: adb's own variable names another.
std::uint16_t ServerPort() {
    const char* named = std::getenv("ANDROID_ADB_SERVER_PORT");
    const int port = named ? ToInt(named) : kAdbServerPort;
    return port > 0 && port <= UINT16_MAX ? static_cast<std::uint16_t>(port) : kAdbServerPort;
}

[[nodiscard]] bool IsEmulatorPort(std::uint16_t port) {
    return port >= kFirstEmulatorPort && port <= kLastEmulatorPort && port % 2 == 1;
}

}  // namespace

PhoneOptions AgentAlone() {
    PhoneOptions options;
    options.profile = DeliveredProfile(0);
    options.agentPort = 0;
    options.announce = false;
    options.plugged = false;
    return options;
}

Phone::Phone(EventLoop& loop, PhoneOptions options)
    : loop_(loop),
      options_(std::move(options)),
      handset_(options_.profile),
      agent_(handset_),
      screen_(FormOf(options_.profile), options_.profile.battery),
      adbListener_(loop),
      agentListener_(loop) {}

Phone::~Phone() {
    *self_ = nullptr;
}

std::string Phone::Start() {
    if (!options_.logFile.empty() && !agent_.log.AlsoWriteTo(options_.logFile)) {
        return fmt::format("cannot write {}", options_.logFile);
    }
    if (options_.agentPort && !agentListener_.Open(*options_.agentPort, [this](TcpSocket s) {
            AcceptPlain(std::move(s));
        })) {
        return fmt::format("port {} is in use", *options_.agentPort);
    }
    for (const std::string& command : options_.commands) {
        const std::string answer = Control(*this, command);
        if (answer != kControlOk) {
            return fmt::format("{}: {}", command, Trim(answer));
        }
    }
    if (options_.plugged && !Plug()) {
        return options_.adbPort ? fmt::format("port {} is in use", *options_.adbPort)
                                : "all ports for emulators are in use";
    }
    return {};
}

bool Phone::Listen(std::uint16_t port) {
    return adbListener_.Open(port, [this](TcpSocket socket) { Accept(std::move(socket)); });
}

bool Phone::ListenForServer() {
    if (options_.adbPort) {
        const bool listens = Listen(*options_.adbPort);
        options_.adbPort = listens ? adbListener_.Port() : *options_.adbPort;
        return listens;
    }
    for (std::uint16_t port = kFirstEmulatorPort; port <= kLastEmulatorPort; port += 2) {
        if (Listen(port)) {
            options_.adbPort = port;
            return true;
        }
    }
    return false;
}

bool Phone::Plug() {
    if (!IsPlugged() && !ListenForServer()) {
        return false;
    }
    if (options_.announce) {
        Announce();
    }
    return true;
}

void Phone::Unplug() {
    adbListener_.Close();
    for (const auto& transport : transports_) {
        transport->Drop();
    }
}

void Phone::SetDebugging(Debugging debugging) {
    debugging_ = debugging;
    if (debugging == Debugging::allowed) {
        for (const auto& transport : transports_) {
            transport->Allow();
        }
    }
}

std::string Phone::AdbSerial() const {
    return IsEmulatorPort(AdbPort()) ? fmt::format("emulator-{}", AdbPort() - 1)
                                     : fmt::format("127.0.0.1:{}", AdbPort());
}

std::size_t Phone::OpenStreams() const {
    std::size_t count = 0;
    for (const auto& transport : transports_) {
        count += transport->StreamCount();
    }
    return count;
}

void Phone::Announce() const {
    const TcpSocket server = TcpSocket::Connect(ServerPort());
    if (server.IsOpen()) {
        const std::string service = IsEmulatorPort(AdbPort())
                                        ? fmt::format("host:emulator:{}", AdbPort())
                                        : fmt::format("host:connect:127.0.0.1:{}", AdbPort());
        const std::string framed = fmt::format("{:04X}{}", service.size(), service);
        server.Send(std::as_bytes(std::span(framed)));
    }
}

std::string Phone::Banner() const {
    const Profile& profile = handset_.Facts();
    return fmt::format(
        "device::ro.product.name={0}_{1};ro.product.model={1};ro.product.device={1};",
        profile.brand, profile.model);
}

void Phone::Accept(TcpSocket socket) {
    if (transports_.size() >= kMaxTransports) {
        return;
    }
    const auto place = transports_.emplace(transports_.end());
    *place = std::make_unique<Transport>(
        loop_, std::move(socket),
        Transport::Setup{
            .banner = Banner(),
            .version = options_.oldTransport ? kVersionWithChecksum : kVersionWithoutChecksum,
            .openService = [this](std::string_view name,
                                  Sink& sink) { return OpenService(name, sink); },
            .debugging = debugging_,
            .gone =
                [this, place] {
                    loop_.Post([self = self_, place] {
                        if (Phone* phone = *self) {
                            phone->transports_.erase(place);
                        }
                    });
                }});
}

void Phone::AcceptPlain(TcpSocket socket) {
    const auto place = plain_.emplace(plain_.end());
    *place = std::make_unique<PlainConnection>(loop_, std::move(socket), [this, place] {
        loop_.Post([self = self_, place] {
            if (Phone* phone = *self) {
                phone->plain_.erase(place);
            }
        });
    });
    (*place)->Start(std::make_unique<AgentService>(loop_, agent_, **place));
}

std::unique_ptr<Service> Phone::OpenService(std::string_view name, Sink& sink) {
    const auto argument = [&](std::string_view prefix) -> std::optional<std::string_view> {
        return name.starts_with(prefix) ? std::optional(name.substr(prefix.size())) : std::nullopt;
    };
    if (const auto command = argument("shell:")) {
        return std::make_unique<ShellService>(handset_, *command, sink);
    }
    if (name == "sync:") {
        return std::make_unique<SyncService>(handset_, sink);
    }
    if (name == "framebuffer:" && screen_.Form().fault != ScreenFault::refuse) {
        return std::make_unique<FramebufferService>(screen_, sink);
    }
    if (name == fmt::format("tcp:{}", quorvi::AgentPort) && handset_.AgentRuns()) {
        return std::make_unique<AgentService>(loop_, agent_, sink);
    }
    return nullptr;
}

}  // namespace quorvi::phone
