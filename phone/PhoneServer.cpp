#include "phone/PhoneServer.h"

#include <fmt/format.h>

#include <charconv>
#include <future>

#include "base/ByteText.h"
#include "base/Text.h"
#include "phone/Control.h"
#include "phone/adb/Packet.h"

namespace quorvi::phone {

// A connection to the control port.
struct PhoneServer::Caller {
    Caller(EventLoop& loop, TcpSocket socket) : channel(loop, std::move(socket)) {}

    Channel channel;
    std::string line;
};

PhoneServer::PhoneServer(ServerOptions options) : options_(std::move(options)), control_(loop_) {}

PhoneServer::~PhoneServer() = default;

std::string PhoneServer::Start() {
    for (PhoneOptions& options : options_.phones) {
        phones_.push_back(std::make_unique<Phone>(loop_, std::move(options)));
    }
    for (const auto& phone : phones_) {
        if (std::string error = phone->Start(); !error.empty()) {
            return error;
        }
    }
    if (options_.controlPort &&
        !control_.Open(*options_.controlPort, [this](TcpSocket s) { Accept(std::move(s)); })) {
        return fmt::format("port {} is in use", *options_.controlPort);
    }
    return {};
}

std::string PhoneServer::Command(std::string_view line) {
    constexpr std::string_view kPrefix = "phone ";
    std::size_t number = 1;
    line = Trim(line);
    if (line.starts_with(kPrefix)) {
        line.remove_prefix(kPrefix.size());
        const auto [end, error] = std::from_chars(line.data(), line.data() + line.size(), number);
        line = Trim(line.substr(static_cast<std::size_t>(end - line.data())));
        if (error != std::errc()) {
            number = 0;
        }
    }
    if (number < 1 || number > phones_.size()) {
        return "error: no such phone\n";
    }
    return Control(*phones_[number - 1], line);
}

void PhoneServer::Accept(TcpSocket socket) {
    const auto place = callers_.emplace(callers_.end());
    *place = std::make_unique<Caller>(loop_, std::move(socket));
    Caller& caller = **place;
    caller.channel.Start(
        {.bytes = [this, &caller](auto bytes) { OnBytes(caller, bytes); },
         .gone = [this, place] { loop_.Post([this, place] { callers_.erase(place); }); }});
}

void PhoneServer::OnBytes(Caller& caller, std::span<const std::byte> bytes) {
    for (const char c : AsText(bytes)) {
        if (c == '\n') {
            caller.channel.Write(ToBytes(Command(caller.line)));
            caller.line.clear();
        } else if (caller.line.size() < kMaxControlLine) {
            caller.line += c;
        }
    }
}

RunningPhones::RunningPhones(ServerOptions options)
    : server_(std::move(options)), error_(server_.Start()), thread_([this] { server_.Run(); }) {}

RunningPhones::~RunningPhones() {
    server_.Stop();
    thread_.join();
}

void RunningPhones::OnLoop(const std::function<void()>& task) {
    std::promise<void> done;
    server_.Loop().Post([&] {
        task();
        done.set_value();
    });
    done.get_future().wait();
}

std::uint16_t RunningPhones::AgentPort(std::size_t index) {
    std::uint16_t port = 0;
    OnLoop([&] { port = server_.At(index).AgentPort(); });
    return port;
}

std::uint16_t RunningPhones::AdbPort(std::size_t index) {
    std::uint16_t port = 0;
    OnLoop([&] { port = server_.At(index).AdbPort(); });
    return port;
}

std::string RunningPhones::Control(std::size_t index, std::string_view line) {
    std::string answer;
    OnLoop([&] { answer = phone::Control(server_.At(index), line); });
    return answer;
}

}  // namespace quorvi::phone
