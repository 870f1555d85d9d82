#include "pages/apps/Uninstaller.h"

#include <algorithm>
#include <cstdio>
#include <optional>
#include <utility>

#include "link/AdbCommand.h"
#include "pages/apps/AppActions.h"

namespace quorvi {
namespace {

// Bytes of adb's output that are kept, the last ones: it prints a line or two, but nothing holds it
// to that.
constexpr std::size_t kMostSaid = 4096;

// What adb prints where there is no phone, before it waits for one.
constexpr std::string_view kWaiting = "waiting for device";

}  // namespace

Uninstaller::Uninstaller(LinkEnvironment environment, std::function<void(UninstallEnd&&)> ended,
                         std::function<void(const InstalledApp&)> waits)
    : environment_(std::move(environment)), ended_(std::move(ended)), waits_(std::move(waits)) {}

bool Uninstaller::Start(const InstalledApp& app) {
    if (!IsPackageName(app.package)) {
        return true;
    }
    ++pending_;
    pipe_.Stop();
    app_ = app;
    said_.clear();
    waiting_ = false;
    return pipe_.Start(UninstallCommand(environment_, std::nullopt, app.package));
}

void Uninstaller::OnOutput(std::string_view text, AdbOutputKind kind) {
    switch (kind) {
        case AdbOutputKind::data:
            std::fwrite(text.data(), 1, text.size(), stderr);  // the debug output
            said_.append(text);
            said_.erase(0, said_.size() - std::min(said_.size(), kMostSaid));
            if (!waiting_ && said_.find(kWaiting) != std::string::npos) {
                waiting_ = true;
                waits_(app_);
            }
            break;
        case AdbOutputKind::finished: {
            const bool last = --pending_ == 0;
            ended_({.app = app_, .outcome = ParseUninstall(said_), .said = said_, .last = last});
            break;
        }
        case AdbOutputKind::failed:
            break;
    }
}

}  // namespace quorvi
