// Installs packages on a phone: one service for the whole program, made once at its start.
//
//   PackageInstaller installer;
//   const Subscription heard = installer.Observe([](const InstallEvent& event) { … });
//   const InstallResult result = installer.Install({serial, file});   // on a worker
#pragma once

#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "base/Observers.h"
#include "link/AdbOutput.h"
#include "link/LinkEnvironment.h"

namespace quorvi {

struct PackageInstall {
    std::string serial;             // of the phone; an empty one goes to adb as it is
    std::filesystem::path package;  // a file of this computer
};

struct InstallEvent {
    PackageInstall install;
    std::optional<InstallResult> result;  // nothing: the installation starts
};

// Copies are the same service: they share its observers, and so does each worker, so that the
// service may go before an installation ends. Any thread.
class PackageInstaller {
  public:
    using Observer = Observers<InstallEvent>::Observer;
    using Done = std::function<void(InstallResult result)>;

    // The environment differs from the default in tests only.
    explicit PackageInstaller(LinkEnvironment environment = {});

    // Whether the command line is written to the debug channel, standard error, too.
    enum class Debug { silent, command };

    // Runs "adb -s SERIAL install -r FILE" and waits for its end without a time limit: on a worker.
    // Each observer hears the start before adb runs, and the end before this returns. Nothing is
    // retried, and two installations may run beside each other.
    InstallResult Install(const PackageInstall& install, Debug debug = Debug::silent) const;

    // The same on a thread of its own; `done` hears the result there, behind the observers. Where
    // no thread is to be had, all hear `noProcess` on this one.
    void Start(PackageInstall install, Done done = {}) const;

    // Tells `observer` of every installation from now on, on the thread that installs, for as long
    // as the subscription is kept. An observer of the window posts what it hears.
    [[nodiscard]] Subscription Observe(Observer observer) const;

  private:
    struct State;
    std::shared_ptr<State> state_;
};

}  // namespace quorvi
