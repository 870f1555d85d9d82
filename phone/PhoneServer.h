// Several simulated phones on one loop, and the control port through which they are told what to
// do. Start here to run phones inside a test:
//
//   RunningPhones phones({.phones = {AgentAlone()}});
//
//   const AgentSession session(phones.AgentPort(0));
//
//   phones.Control(0, "fault listContacts cut 100");
#pragma once

#include <cstdint>
#include <list>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

#include "phone/Phone.h"

namespace quorvi::phone {

// Longest line taken on the control port, in bytes.
inline constexpr std::size_t kMaxControlLine = 64 * 1024;

struct ServerOptions {
    std::vector<PhoneOptions> phones;
    // Zero takes any free port; without a value there is no control port.
    std::optional<std::uint16_t> controlPort;
};

class PhoneServer {
  public:
    explicit PhoneServer(ServerOptions options);
    ~PhoneServer();
    PhoneServer(const PhoneServer&) = delete;
    PhoneServer& operator=(const PhoneServer&) = delete;

    // Plugs the phones in and opens the control port. Empty, or why that failed.
    [[nodiscard]] std::string Start();
    // Serves until Stop is called.
    void Run() { loop_.Run(); }
    // Any thread; safe in a signal handler.
    void Stop() { loop_.Stop(); }

    [[nodiscard]] EventLoop& Loop() { return loop_; }
    [[nodiscard]] std::size_t Count() const { return phones_.size(); }
    [[nodiscard]] Phone& At(std::size_t index) { return *phones_[index]; }
    [[nodiscard]] std::uint16_t ControlPort() const { return control_.Port(); }

    // Runs a line of the control port, "phone N COMMAND" or a command for phone 1; its answer.
    [[nodiscard]] std::string Command(std::string_view line);

  private:
    struct Caller;

    void Accept(TcpSocket socket);
    void OnBytes(Caller& caller, std::span<const std::byte> bytes);

    EventLoop loop_;
    ServerOptions options_;
    std::vector<std::unique_ptr<Phone>> phones_;
    Listener control_;
    std::list<std::unique_ptr<Caller>> callers_;
};

// A PhoneServer on a thread of its own, from construction to destruction. All members on any
// thread.
class RunningPhones {
  public:
    explicit RunningPhones(ServerOptions options);
    ~RunningPhones();

    // Why the phones could not be set up; empty when they are.
    [[nodiscard]] const std::string& Error() const { return error_; }
    [[nodiscard]] std::size_t Count() const { return server_.Count(); }
    [[nodiscard]] std::uint16_t AgentPort(std::size_t index);
    [[nodiscard]] std::uint16_t AdbPort(std::size_t index);
    [[nodiscard]] std::uint16_t ControlPort() const { return server_.ControlPort(); }
    // Runs a line of Control on the phone's thread, and waits for the answer.
    std::string Control(std::size_t index, std::string_view line);

  private:
    void OnLoop(const std::function<void()>& task);

    PhoneServer server_;
    std::string error_;
    std::thread thread_;
};

}  // namespace quorvi::phone
