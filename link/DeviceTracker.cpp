#include "link/DeviceTracker.h"

#include <algorithm>
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

// Not every server tells when a phone that it is still speaking with turns out to wait for its
// user: such a list has to be asked for again.
bool MayChangeUntold(const TrackedDevices& devices) {
    return std::ranges::any_of(devices, [](const TrackedDevice& device) {
        return device.state == DeviceState::offline || device.state == DeviceState::other;
    });
}

}  // namespace

class DeviceTracker::Follower {
  public:
    Follower(std::uint16_t port, std::chrono::milliseconds pause, Listener listener)
        : port_(port), pause_(pause), listener_(std::move(listener)) {}

    // Until it is stopped.
    void Run(const StopSignal& stop);

  private:
    // One connection, from its start to its end, or until the list has to be asked for again.
    void Follow(const StopSignal& stop);
    void Tell(const TrackedDevices& devices);
    [[nodiscard]] static bool Asks(const HostSocket& server);

    const std::uint16_t port_;
    const std::chrono::milliseconds pause_;
    const Listener listener_;
    TrackedDevices last_;
    bool isAskedAgain_ = false;  // the next list may be the one that was told last
};

void DeviceTracker::Follower::Run(const StopSignal& stop) {
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

void DeviceTracker::Follower::Tell(const TrackedDevices& devices) {
    if (!std::exchange(isAskedAgain_, false) || devices != last_) {
        last_ = devices;
        listener_(devices);
    }
}

void DeviceTracker::Follower::Follow(const StopSignal& stop) {
    HostSocket server(stop);
    if (!server.Connect(kServerHost, port_) || !Asks(server)) {
        return;
    }
    TrackReader reader;
    std::chrono::milliseconds limit = HostSocket::kNoLimit;
    std::array<char, kReadBytes> bytes;
    while (!reader.Broken()) {
        const std::ptrdiff_t count =
            server.Receive(std::as_writable_bytes(std::span(bytes)), limit);
        if (count <= 0) {
            isAskedAgain_ = count < 0 && limit != HostSocket::kNoLimit;
            return;
        }
        reader.Feed(std::string_view(bytes.data(), static_cast<std::size_t>(count)));
        while (const std::optional<TrackedDevices> devices = reader.Take()) {
            if (stop.IsStopped()) {
                return;
            }
            Tell(*devices);
            limit = MayChangeUntold(*devices) ? pause_ : HostSocket::kNoLimit;
        }
    }
}

DeviceTracker::DeviceTracker(std::uint16_t port, std::chrono::milliseconds pause)
    : port_(port), pause_(pause) {}

bool DeviceTracker::Start(Listener listener) {
    const auto follower = std::make_shared<Follower>(port_, pause_, std::move(listener));
    return thread_.Start([follower](const StopSignal& stop) { follower->Run(stop); });
}

}  // namespace quorvi
