// A desktop that notes what is asked of it. Any thread.
#pragma once

#include <atomic>
#include <mutex>
#include <string>
#include <vector>

#include "desktop/DesktopIntegration.h"

namespace quorvi {

class FakeDesktop : public DesktopIntegration {
  public:
    bool AutoRuns() const override { return autoRuns && writable; }
    void SetAutoRun(bool on) override {
        Note(on ? "auto run" : "no auto run");
        autoRuns = on;
    }
    void MakeShortcut() override { Note("shortcut"); }
    void RegisterProtocol() override { Note("protocol"); }

    std::vector<std::string> Asked() const {
        const std::lock_guard lock(mutex_);
        return asked_;
    }

    std::atomic<bool> autoRuns = false;
    std::atomic<bool> writable = true;

  private:
    void Note(const char* what) {
        const std::lock_guard lock(mutex_);
        asked_.emplace_back(what);
    }

    mutable std::mutex mutex_;
    std::vector<std::string> asked_;
};

}  // namespace quorvi
