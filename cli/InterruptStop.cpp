#include "cli/InterruptStop.h"

#include <array>
#include <atomic>
#include <csignal>

namespace quorvi::cli {
namespace {

constexpr std::array kSignals{SIGINT, SIGTERM, SIGHUP};

std::atomic<StopSignal*> raised = nullptr;

// Runs in a signal handler: an atomic flag, and a write to a descriptor.
void Raise(int) {
    if (StopSignal* stop = raised) {
        stop->Stop();
    }
}

}  // namespace

InterruptStop::InterruptStop() {
    raised = &stop_;
    struct sigaction action {};
    action.sa_handler = Raise;
    action.sa_flags = SA_RESETHAND | SA_RESTART;
    for (const int signal : kSignals) {
        sigaction(signal, &action, nullptr);
    }
}

InterruptStop::~InterruptStop() {
    struct sigaction action {};
    action.sa_handler = SIG_DFL;
    for (const int signal : kSignals) {
        sigaction(signal, &action, nullptr);
    }
    raised = nullptr;
}

}  // namespace quorvi::cli
