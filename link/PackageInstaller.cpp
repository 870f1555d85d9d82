#include "link/PackageInstaller.h"

#include <chrono>
#include <cstdio>
#include <system_error>
#include <thread>
#include <utility>

#include "base/Text.h"
#include "link/AdbCapture.h"
#include "link/AdbCommand.h"
#include "link/LinkLog.h"

namespace quorvi {

struct PackageInstaller::State {
    explicit State(LinkEnvironment where) : environment(std::move(where)) {}

    const LinkEnvironment environment;
    Observers<InstallEvent> observers;
};

PackageInstaller::PackageInstaller(LinkEnvironment environment)
    : state_(std::make_shared<State>(std::move(environment))) {}

InstallResult PackageInstaller::Install(const PackageInstall& install, Debug debug) const {
    const auto start = std::chrono::steady_clock::now();
    state_->observers.Tell({install, std::nullopt});
    AdbCommand command = InstallCommand(state_->environment, install.serial, install.package);
    if (debug == Debug::command) {
        std::fprintf(stderr, "%s\n", CommandLineText(command).c_str());
    }
    // Ctrl+C of a terminal is this process's to answer: adb ends what it has begun.
    const AdbCapture capture =
        RunAdbCapture(std::move(command), kInstallCaptureLimit, ChildProcess::Group::own);
    const InstallResult result = capture.outcome == RunOutcome::started
                                     ? ParseInstall(Trim(capture.text))
                                     : InstallResult::noProcess;
    LogInstall(result, start);
    state_->observers.Tell({install, result});
    return result;
}

void PackageInstaller::Start(PackageInstall install, Done done) const {
    const auto end = [done = std::move(done)](InstallResult result) {
        if (done) {
            done(result);
        }
    };
    const auto wanted = std::make_shared<const PackageInstall>(std::move(install));
    try {
        // The worker has a copy of the service, and so its state, for itself.
        std::thread([self = *this, wanted, end] { end(self.Install(*wanted)); }).detach();
    } catch (const std::system_error&) {
        state_->observers.Tell({*wanted, std::nullopt});
        state_->observers.Tell({*wanted, InstallResult::noProcess});
        end(InstallResult::noProcess);
    }
}

Subscription PackageInstaller::Observe(Observer observer) const {
    return state_->observers.Add(std::move(observer));
}

}  // namespace quorvi
