#include "app/process/ProcessEnd.h"

#include <dirent.h>
#include <fcntl.h>
#include <signal.h>
#include <unistd.h>

#include <QApplication>
#include <array>
#include <atomic>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <fstream>
#include <string>

#include "log/EventLog.h"
#include "ui/kit/QtText.h"
#include "ui/kit/QuestionDlg.h"

namespace quorvi {
namespace {

constexpr std::array kFaults = {SIGSEGV, SIGBUS, SIGFPE, SIGILL, SIGABRT};
constexpr std::size_t kFaultStackBytes = 64 * 1024;

// Made ready by InstallApology, since a signal handler may not allocate.
std::string theProgram;  // NOLINT(cert-err58-cpp)
std::array<char, kFaultStackBytes> theFaultStack;
// Set by the first fault. What goes wrong while the process dies of it needs no second apology.
std::atomic_flag theFault;

// The new process, up to its program.
[[noreturn]] void BecomeApology() {
    sigset_t none;
    ::sigemptyset(&none);
    ::sigprocmask(SIG_SETMASK, &none, nullptr);
    // Nothing that the dead process held open stays open in the apology's: the running instance's
    // socket above all, at which the next start would find a window that is gone.
    constexpr int kFirstOwn = 3;
    ::close_range(kFirstOwn, ~0U, CLOSE_RANGE_CLOEXEC);
    ::execl(theProgram.c_str(), theProgram.c_str(), kApologyOption, nullptr);
    ::_exit(EXIT_FAILURE);
}

// Starts the apology and returns when its program runs. Calls only what a signal handler may.
void Apologise() {
    if (theFault.test_and_set()) {
        return;
    }
    // Closes by itself when the new process has its program: then the read ends.
    std::array<int, 2> started = {-1, -1};
    const bool waits = ::pipe2(started.data(), O_CLOEXEC) == 0;
    const pid_t apology = ::_Fork();
    if (apology == 0) {
        BecomeApology();
    }
    if (waits) {
        ::close(started[1]);
        char nothing = 0;
        while (apology > 0 && ::read(started[0], &nothing, sizeof nothing) < 0 && errno == EINTR) {
        }
        ::close(started[0]);
    }
}

// The signal comes again, and ends the process, as soon as the handler has returned: the core dump
// then shows the place of the fault.
void OnFault(int signal) {
    Apologise();
    ::signal(signal, SIG_DFL);
    ::raise(signal);
}

[[noreturn]] void OnTerminate() {
    Apologise();
    ::signal(SIGABRT, SIG_DFL);
    std::abort();
}

void KillChildrenOf(const std::string& thread) {
    std::ifstream children("/proc/self/task/" + thread + "/children");
    pid_t child = 0;
    while (children >> child) {
        ::kill(child, SIGKILL);
    }
}

void KillChildren() {
    DIR* threads = ::opendir("/proc/self/task");
    if (threads == nullptr) {
        return;
    }
    while (const dirent* thread = ::readdir(threads)) {
        if (thread->d_name[0] != '.') {
            KillChildrenOf(thread->d_name);
        }
    }
    ::closedir(threads);
}

}  // namespace

void EndProcess(int status) {
    KillChildren();
    LogEvent("end", {{"status", LogValue::Count(status)}});
    FlushLog();
    std::fflush(nullptr);
    std::_Exit(status);
}

void InstallApology(const std::filesystem::path& program) {
    theProgram = program.string();
    std::set_terminate(&OnTerminate);

    stack_t stack = {};
    stack.ss_sp = theFaultStack.data();
    stack.ss_size = theFaultStack.size();
    ::sigaltstack(&stack, nullptr);
    struct sigaction action = {};
    action.sa_handler = &OnFault;
    action.sa_flags = SA_ONSTACK | static_cast<int>(SA_RESETHAND);
    for (const int fault : kFaults) {
        ::sigaction(fault, &action, nullptr);
    }
}

void ShowApology() {
    ShowMessage(nullptr, QuestionDlg::Kind::error,
                ToQString(u8"很抱歉出现了小状况，Quorvi 需要重启下"), [] { QApplication::quit(); });
    QApplication::exec();
}

}  // namespace quorvi
