#include "app/process/EndSignals.h"

#include <fcntl.h>
#include <signal.h>
#include <unistd.h>

#include <QCoreApplication>
#include <QSocketNotifier>
#include <array>

namespace quorvi {
namespace {

constexpr std::array kSignals = {SIGINT, SIGTERM, SIGHUP};

// A signal handler may not call into the window. It writes a byte into this pipe, which wakes the
// window's thread.
std::array<int, 2> thePipe = {-1, -1};

void OnSignal(int /*signal*/) {
    const char byte = 0;
    // Where the pipe is full, earlier bytes wake the window's thread.
    [[maybe_unused]] const ssize_t written = ::write(thePipe[1], &byte, sizeof byte);
}

}  // namespace

void ListenForEndSignals(std::function<void()> end) {
    if (::pipe2(thePipe.data(), O_CLOEXEC | O_NONBLOCK) != 0) {
        return;
    }
    auto* notifier = new QSocketNotifier(thePipe[0], QSocketNotifier::Read, qApp);
    QObject::connect(notifier, &QSocketNotifier::activated, notifier,
                     [end = std::move(end)] { end(); });
    struct sigaction action = {};
    action.sa_handler = &OnSignal;
    action.sa_flags = SA_RESTART;
    for (const int signal : kSignals) {
        ::sigaction(signal, &action, nullptr);
    }
}

}  // namespace quorvi
