#include "link/DeviceTracker.h"

#include <array>
#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <utility>

#include "base/os/HostSocket.h"

namespace quorvi {
namespace {

constexpr const char* kServerHost = "127.0.0.1";
constexpr std::string_view kService = "host:track-devices";
constexpr std::string_view kOkay = "OKAY";

// How long the server may take over the status word.
constexpr std::chrono::milliseconds kAnswerLimit{5000};

constexpr std::size_t kReadBytes = 4096;

}  // namespace

class DeviceTracker::Follower {
  public:
    Follower(std::uint16_t port, std::chrono::milliseconds pause, Listener listener)
        : port_(port), pause_(pause), listener_(std::move(listener)) {}

    // Until it is stopped.
    void Run(const StopSignal& stop) const;

  private:
    // One connection, from its start to its end.
    void Follow(const StopSignal& stop) const;
    [[nodiscard]] static bool Asks(const HostSocket& server);

    const std::uint16_t port_;
    const std::chrono::milliseconds pause_;
    const Listener listener_;
};

void DeviceTracker::Follower::Run(const StopSignal& stop) const {
    while (!stop.IsStopped()) {
        Follow(stop);
        stop.WaitFor(pause_);
    }
}

bool DeviceTracker::Follower::Asks(const HostSocket& server) {
    const std::string frame = AdbHostClient::Frame(kService);
    if (!server.Send(std::as_bytes(std::span(frame)), kAnswerLimit)) {
        return false;
    }
    std::array<char, kOkay.size()> word{};
    for (std::size_t have = 0; have < word.size();) {
        const std::ptrdiff_t count =
            server.Receive(std::as_writable_bytes(std::span(word).subspan(have)), kAnswerLimit);
        if (count <= 0) {
            return false;
        }
        have += static_cast<std::size_t>(count);
    }
    return std::string_view(word.data(), word.size()) == kOkay;
}

void DeviceTracker::Follower::Follow(const StopSignal& stop) const {
    HostSocket server(stop);
    if (!server.Connect(kServerHost, port_) || !Asks(server)) {
        return;
    }
    TrackReader reader;
    std::array<char, kReadBytes> bytes;
    while (!reader.Broken()) {
        const std::ptrdiff_t count =
            server.Receive(std::as_writable_bytes(std::span(bytes)), HostSocket::kNoLimit);
        if (count <= 0) {
            return;
        }
        reader.Feed(std::string_view(bytes.data(), static_cast<std::size_t>(count)));
        while (const std::optional<TrackedDevices> devices = reader.Take()) {
            if (stop.IsStopped()) {
                return;
            }
            listener_(*devices);
        }
    }
}

DeviceTracker::DeviceTracker(std::uint16_t port, std::chrono::milliseconds pause)
    : port_(port), pause_(pause) {}

bool DeviceTracker::Start(Listener listener) {
    const auto follower = std::make_shared<const Follower>(port_, pause_, std::move(listener));
    return thread_.Start([follower](const StopSignal& stop) { follower->Run(stop); });
}

}  // namespace quorvi
