#include "tests/e2e/LinkRun.h"

#include <thread>

#include "base/Text.h"

namespace quorvi::e2e {

void EagerClock::SleepFor(std::chrono::milliseconds time) {
    constexpr auto kPause = std::chrono::milliseconds(5);
    const auto end = std::chrono::steady_clock::now() + time / part_;
    while (std::chrono::steady_clock::now() < end) {
        for (std::size_t i = 0; i < bench_.Count(); ++i) {
            if (bench_.Control(i, "status").find("running 1\n") != std::string::npos) {
                return;
            }
        }
        std::this_thread::sleep_for(kPause);
    }
}

std::vector<Banner> LinkRun::Run() {
    {
        const std::lock_guard lock(mutex_);
        banners_.clear();
        ended_ = false;
    }
    LinkEnvironment environment;
    environment.packageFile = std::filesystem::path(QUORVI_BIN_DIR) / kAgentPackageFile;
    PhoneLink link(device_, *this, clock_, environment);
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
