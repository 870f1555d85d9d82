#include "link/DeviceTracker.h"

#include <array>
#include <cstddef>
#include <string>
#include <string_view>
#include <system_error>
#include <thread>
#include <utility>

#include "base/os/HostSocket.h"
#include "base/os/StopSignal.h"

namespace quorvi {
namespace {

constexpr const char* kServerHost = "127.0.0.1";
constexpr std::string_view kService = "host:track-devices";
constexpr std::string_view kOkay = "OKAY";

// How long the server may take over the status word.
constexpr std::chrono::milliseconds kAnswerLimit{5000};

constexpr std::size_t kReadBytes = 4096;

}  // namespace

class DeviceTracker::Thread {
  public:
    Thread(std::uint16_t port, std::chrono::milliseconds pause, Listener listener)
        : port_(port), pause_(pause), listener_(std::move(listener)) {}
    ~Thread();
    Thread(const Thread&) = delete;
    Thread& operator=(const Thread&) = delete;

    bool Start();

  private:
    void Run();
    // One connection, from its start to its end.
    void Follow();
    [[nodiscard]] bool Asks(const HostSocket& server) const;

    const std::uint16_t port_;
    const std::chrono::milliseconds pause_;
    const Listener listener_;
    StopSignal stop_;
    std::thread thread_;
};

bool DeviceTracker::Thread::Start() {
    try {
        thread_ = std::thread([this] { Run(); });
    } catch (const std::system_error&) {
        return false;
    }
    return true;
}

DeviceTracker::Thread::~Thread() {
    if (thread_.joinable()) {
        stop_.Stop();
        thread_.join();
    }
}

void DeviceTracker::Thread::Run() {
    while (!stop_.IsStopped()) {
        Follow();
        stop_.WaitFor(pause_);
    }
}

bool DeviceTracker::Thread::Asks(const HostSocket& server) const {
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

void DeviceTracker::Thread::Follow() {
    HostSocket server(stop_);
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
            if (stop_.IsStopped()) {
                return;
            }
            listener_(*devices);
        }
    }
}

DeviceTracker::DeviceTracker(std::uint16_t port, std::chrono::milliseconds pause)
    : port_(port), pause_(pause) {}

DeviceTracker::~DeviceTracker() {
    Stop();
}

bool DeviceTracker::Start(Listener listener) {
    Stop();
    auto thread = std::make_unique<Thread>(port_, pause_, std::move(listener));
    if (!thread->Start()) {
        return false;
    }
    thread_ = std::move(thread);
    return true;
}

void DeviceTracker::Stop() {
    thread_.reset();
}

}  // namespace quorvi
