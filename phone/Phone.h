// One simulated phone: an adb daemon on a TCP port, a handset behind it, and the agent on it.
#pragma once

#include <cstdint>
#include <list>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "phone/Channel.h"
#include "phone/EventLoop.h"
#include "phone/Handset.h"
#include "phone/PlainConnection.h"
#include "phone/Screen.h"
#include "phone/adb/Transport.h"
#include "phone/agent/AgentService.h"

namespace quorvi::phone {

// Ports on which an adb server looks for emulators: the odd ones of this range.
inline constexpr std::uint16_t kFirstEmulatorPort = 5555;
inline constexpr std::uint16_t kLastEmulatorPort = 5585;

// Adb servers that one phone serves at once.
inline constexpr std::size_t kMaxTransports = 8;

struct PhoneOptions {
    Profile profile;
    // Zero takes any free port; without a value it is the first free one on which adb servers look.
    std::optional<std::uint16_t> adbPort;
    // On this port the agent answers without adb in between. Zero takes any free port; without a
    // value there is none.
    std::optional<std::uint16_t> agentPort;
    // Speaks the transport's version of old phones: checksums, 4096 bytes a message.
    bool oldTransport = false;
    // Tells the adb server on this machine, if there is one, that the phone is there.
    bool announce = true;
    bool plugged = true;
    std::string logFile;
    // Lines for Control, run before the phone is plugged in.
    std::vector<std::string> commands;
};

// A phone whose agent answers on a port of its own and that no adb server sees, for tests that are
// not about adb.
[[nodiscard]] PhoneOptions AgentAlone();

class Phone {
  public:
    // Made, told what to do and destroyed on the loop's thread, or while the loop does not run.
    Phone(EventLoop& loop, PhoneOptions options);
    ~Phone();
    Phone(const Phone&) = delete;
    Phone& operator=(const Phone&) = delete;

    // Empty when the phone is ready; otherwise why not ("port 5555 is in use").
    [[nodiscard]] std::string Start();

    // Plug is false when the port is taken. Unplug drops the server's connections, and the agent's
    // with them.
    bool Plug();
    void Unplug();
    // How it meets an adb server from its next connection on; `allowed` goes for those that wait,
    // too.
    void SetDebugging(Debugging debugging);
    [[nodiscard]] bool IsPlugged() const { return adbListener_.Port() != 0; }

    // Zero until the phone was plugged in first; then it stays.
    [[nodiscard]] std::uint16_t AdbPort() const { return options_.adbPort.value_or(0); }
    [[nodiscard]] std::uint16_t AgentPort() const { return agentListener_.Port(); }
    // As the adb server names it: "emulator-5554" or "127.0.0.1:6000".
    [[nodiscard]] std::string AdbSerial() const;

    [[nodiscard]] Handset& TheHandset() { return handset_; }
    [[nodiscard]] Agent& TheAgent() { return agent_; }
    [[nodiscard]] Screen& TheScreen() { return screen_; }

    [[nodiscard]] std::size_t OpenStreams() const;

  private:
    [[nodiscard]] bool Listen(std::uint16_t port);
    [[nodiscard]] bool ListenForServer();
    void Accept(TcpSocket socket);
    void AcceptPlain(TcpSocket socket);
    [[nodiscard]] std::unique_ptr<Service> OpenService(std::string_view name, Sink& sink);
    [[nodiscard]] std::string Banner() const;
    void Announce() const;

    EventLoop& loop_;
    PhoneOptions options_;
    Handset handset_;
    Agent agent_;
    Screen screen_;
    Listener adbListener_;
    Listener agentListener_;
    Debugging debugging_ = Debugging::allowed;
    std::list<std::unique_ptr<Transport>> transports_;
    std::list<std::unique_ptr<PlainConnection>> plain_;
    // Lets a task on the loop know that the phone is gone.
    std::shared_ptr<Phone*> self_ = std::make_shared<Phone*>(this);
};

}  // namespace quorvi::phone
