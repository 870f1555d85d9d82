#include "base/os/Interrupt.h"

#include <poll.h>
#include <signal.h>

#include <array>
#include <cerrno>
#include <memory>

#include "base/os/Wakeup.h"

namespace quorvi {
namespace {

constexpr std::array<int, 3> kSignals{SIGINT, SIGTERM, SIGHUP};

// What the handler touches.
std::unique_ptr<StopSignal> come;
std::unique_ptr<Wakeup> wakeup;
std::array<struct sigaction, kSignals.size()> before;

void Take(int) {
    const int error = errno;
    come->Stop();
    wakeup->Raise();
    for (std::size_t i = 0; i < kSignals.size(); ++i) {
        if (before[i].sa_handler != SIG_IGN) {
            signal(kSignals[i], SIG_DFL);
        }
    }
    errno = error;
}

}  // namespace

Interrupt::Interrupt() {
    come = std::make_unique<StopSignal>();
    wakeup = std::make_unique<Wakeup>();
    struct sigaction ours {};
    ours.sa_handler = Take;
    ours.sa_flags = SA_RESTART;
    for (std::size_t i = 0; i < kSignals.size(); ++i) {
        sigaction(kSignals.at(i), nullptr, &before.at(i));
        if (before.at(i).sa_handler != SIG_IGN) {
            sigaction(kSignals.at(i), &ours, nullptr);
        }
    }
}

Interrupt::~Interrupt() {
    for (std::size_t i = 0; i < kSignals.size(); ++i) {
        sigaction(kSignals.at(i), &before.at(i), nullptr);
    }
}

bool Interrupt::HasCome() const {
    return come->IsStopped();
}

const StopSignal& Interrupt::Signal() const {
    return *come;
}

void Interrupt::WaitFor(std::chrono::milliseconds limit) const {
    pollfd waiting{wakeup->Descriptor(), POLLIN, 0};
    poll(&waiting, 1, static_cast<int>(limit.count()));
    wakeup->Take();
}

void Interrupt::Wake() const {
    wakeup->Raise();
}

}  // namespace quorvi
