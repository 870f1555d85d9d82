// The link procedure in this process, on a rig, without its long waits.
#pragma once

#include <condition_variable>
#include <mutex>
#include <string>
#include <vector>

#include "base/Clock.h"
#include "link/DeviceContext.h"
#include "link/LinkFace.h"
#include "link/PhoneLink.h"
#include "tests/support/PhoneRig.h"

namespace quorvi::e2e {

struct Banner {
    BannerState state;
    std::string text;  // UTF-8

    bool operator==(const Banner&) const = default;
};

// Waits until one of the rig's phones runs its agent, or was told to start it, which need not
// come to anything; on a busy machine longer than asked for.
class EagerClock : public Clock {
  public:
    explicit EagerClock(PhoneRig& rig) : rig_(rig) {}
    void SleepFor(std::chrono::milliseconds time) override;

  private:
    // Of all phones.
    struct Agents {
        bool oneRuns = false;
        int starts = 0;
    };
    [[nodiscard]] Agents Look() const;

    PhoneRig& rig_;
    int starts_ = 0;  // that an earlier wait saw
};

// One run, from ConnectPhone to the end of all that it started.
class LinkRun : private LinkFace {
  public:
    explicit LinkRun(PhoneRig& rig) : clock_(rig) {}

    // The serial that a chooser's user picks; nothing: closes it.
    void Choose(std::string serial) { choice_ = std::move(serial); }

    // Each banner that was shown; the last one tells how it ended.
    std::vector<Banner> Run();

    [[nodiscard]] std::string Serial() const { return device_.Serial(); }
    [[nodiscard]] int TimesUp() const { return timesUp_; }
    // Titles of the choosers that were opened, UTF-8.
    [[nodiscard]] const std::vector<std::string>& Choosers() const { return choosers_; }

  private:
    void ShowBanner(std::string text, BannerState state) override;
    void ChooseDevice(std::string_view title) override;
    void LinkUp() override;
    void LinkEnded() override;

    EagerClock clock_;
    DeviceContext device_;
    std::mutex mutex_;
    std::condition_variable changed_;
    std::vector<Banner> banners_;
    std::vector<std::string> choosers_;
    std::string choice_;
    int timesUp_ = 0;
    bool ended_ = false;
};

}  // namespace quorvi::e2e
