// The uninstalls of a page: adb's runs, one behind the other, and how many of them are waited for.
#pragma once

#include <atomic>
#include <functional>
#include <string>
#include <string_view>

#include "link/AdbPipe.h"
#include "link/LinkEnvironment.h"
#include "pages/apps/UninstallOutcome.h"

namespace quorvi {

// An application to be uninstalled; texts are ANSI.
struct InstalledApp {
    std::string name;
    std::string package;
};

// An uninstall that has ended by itself.
struct UninstallEnd {
    InstalledApp app;
    UninstallOutcome outcome = UninstallOutcome::unknown;
    std::string said;   // what adb printed, its last 4 KiB, UTF-8
    bool last = false;  // none is waited for any more
};

// Shared by a page and its workers. One worker at a time starts runs.
class Uninstaller : private CAdbPipeListener {
  public:
    // Both are called on the reader's thread: `ended` for each that has ended by itself, `waits`
    // once for each for which adb waits until there is a phone.
    Uninstaller(
        LinkEnvironment environment, std::function<void(UninstallEnd&&)> ended,
        std::function<void(const InstalledApp&)> waits = [](const InstalledApp&) {});

    // Runs `adb uninstall PACKAGE`, without a serial: with two phones attached adb refuses it. Kept
    // on purpose: a list may be older than the phone that is chosen now, and no other phone shall
    // lose an application by it (test UninstallerTest.NamesNoSerial). A run that goes on is cut off
    // first; it reports no end, so that it stays counted. Kept on purpose: whether the phone did
    // what was cut off, nobody knows (test
    // UninstallerTest.ABatchCutsItselfOffAndWhatWasCutOffStaysCounted). Waits for that. A package
    // name that is none is neither run nor counted. False where adb could not be started.
    [[nodiscard]] bool Start(const InstalledApp& app);

    // Runs that were started and whose end was not reported. Any thread.
    [[nodiscard]] int Pending() const { return pending_; }

  private:
    void OnOutput(std::string_view text, AdbOutputKind kind) override;

    LinkEnvironment environment_;
    std::function<void(UninstallEnd&&)> ended_;
    std::function<void(const InstalledApp&)> waits_;
    std::atomic<int> pending_ = 0;
    // Of the run that goes on: set before its reader starts, then the reader's.
    InstalledApp app_;
    std::string said_;
    bool waiting_ = false;
    CAdbPipe pipe_{*this};
};

}  // namespace quorvi
