#include "tests/support/LinkRun.h"

#include <thread>

#include "agent/Wire.h"
#include "base/Text.h"
#include "tests/support/BuildPlaces.h"

namespace quorvi::e2e {

EagerClock::Agents EagerClock::Look() const {
    constexpr std::string_view kStarts = "starts ";
    Agents agents;
    for (std::size_t i = 0; i < rig_.Count(); ++i) {
        const std::string status = rig_.Control(i, "status");
        agents.oneRuns |= status.find("running 1\n") != std::string::npos;
        agents.starts +=
            ToInt(std::string_view(status).substr(status.find(kStarts)).substr(kStarts.size()));
    }
    return agents;
}

void EagerClock::SleepFor(std::chrono::milliseconds time) {
    constexpr int kMostTimes = 10;
    constexpr auto kPause = std::chrono::milliseconds(5);
    const auto end = std::chrono::steady_clock::now() + kMostTimes * time;
    Agents agents = Look();
    while (!agents.oneRuns && agents.starts == starts_ && std::chrono::steady_clock::now() < end) {
        std::this_thread::sleep_for(kPause);
        agents = Look();
    }
    starts_ = agents.starts;
}

std::vector<Banner> LinkRun::Run() {
    {
        const std::lock_guard lock(mutex_);
        banners_.clear();
        ended_ = false;
    }
    LinkEnvironment environment;
    environment.packageFile = std::filesystem::path(QUORVI_BIN_DIR) / kAgentPackageFile;
    PhoneLink link(device_, *this, clock_, PackageInstaller(environment), AgentPort, environment);
    link.ConnectPhone(false);
    std::unique_lock lock(mutex_);
    changed_.wait(lock, [this] { return ended_; });
    return banners_;
}

void LinkRun::ShowBanner(std::string text, BannerState state) {
    const std::lock_guard lock(mutex_);
    banners_.push_back({state, ToUtf8(text)});
}

void LinkRun::ChooseDevice(std::string_view title) {
    choosers_.push_back(ToUtf8(title));
    device_.SetSerial(choice_);
}

void LinkRun::LinkUp() {
    ++timesUp_;
}

void LinkRun::LinkEnded() {
    const std::lock_guard lock(mutex_);
    ended_ = true;
    changed_.notify_all();
}

}  // namespace quorvi::e2e
