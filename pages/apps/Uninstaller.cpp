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

}  // namespace

Uninstaller::Uninstaller(LinkEnvironment environment, std::function<void(UninstallEnd&&)> ended)
    : environment_(std::move(environment)), ended_(std::move(ended)) {}

bool Uninstaller::Start(const InstalledApp& app) {
    if (!IsPackageName(app.package)) {
        return true;
    }
    ++pending_;
    pipe_.Stop();
    app_ = app;
    said_.clear();
    return pipe_.Start(UninstallCommand(environment_, std::nullopt, app.package));
}

void Uninstaller::OnOutput(std::string_view text, AdbOutputKind kind) {
    switch (kind) {
        case AdbOutputKind::data:
            std::fwrite(text.data(), 1, text.size(), stderr);  // the debug output
            said_.append(text);
            said_.erase(0, said_.size() - std::min(said_.size(), kMostSaid));
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
