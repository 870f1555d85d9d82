#include "app/process/EndSignals.h"

#include <signal.h>

#include <QCoreApplication>
#include <QSocketNotifier>
#include <array>
#include <utility>

#include "base/os/Wakeup.h"

namespace quorvi {
namespace {

constexpr std::array kSignals = {SIGINT, SIGTERM, SIGHUP};

// A signal handler may not call into the window. It raises this, which wakes the window's thread.
// Never deleted: a signal may come at any time.
const Wakeup* theWakeup = nullptr;

void OnSignal(int /*signal*/) {
    theWakeup->Raise();
}

}  // namespace

void ListenForEndSignals(std::function<void()> end) {
    theWakeup = new Wakeup;
    if (!theWakeup->IsOpen()) {
        return;
    }
    auto* notifier = new QSocketNotifier(theWakeup->Descriptor(), QSocketNotifier::Read, qApp);
    QObject::connect(notifier, &QSocketNotifier::activated, notifier, [end = std::move(end)] {
        theWakeup->Take();
        end();
    });
    struct sigaction action = {};
    action.sa_handler = &OnSignal;
    action.sa_flags = SA_RESTART;
    for (const int signal : kSignals) {
        ::sigaction(signal, &action, nullptr);
    }
}

}  // namespace quorvi
