#include "app/process/ProcessEnd.h"

#include <dirent.h>
#include <fcntl.h>
#include <signal.h>
#include <unistd.h>

#include <QApplication>
#include <array>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <fstream>
#include <string>

#include "base/Places.h"
#include "ui/kit/QtText.h"
#include "ui/kit/QuestionDlg.h"

namespace quorvi {
namespace {

constexpr int kFaultStatus = 1;
constexpr std::array kFaults = {SIGSEGV, SIGBUS, SIGFPE, SIGILL, SIGABRT};
constexpr std::size_t kFaultStackBytes = 64 * 1024;

// Set once before any fault: a handler must not build them.
std::string theProgram;  // NOLINT(cert-err58-cpp)
std::array<char, kFaultStackBytes> theFaultStack;

// Only what is allowed in a signal handler.
[[noreturn]] void Apologise() {
    if (::fork() == 0) {
        sigset_t none;
        ::sigemptyset(&none);
        ::sigprocmask(SIG_SETMASK, &none, nullptr);
        // What the process held open, the running instance's socket above all, ends with it.
        constexpr int kFirstOwn = 3;
        ::close_range(kFirstOwn, ~0U, 0);
        ::execl(theProgram.c_str(), theProgram.c_str(), kApologyOption, nullptr);
    }
    ::_exit(kFaultStatus);
}

void OnFault(int /*signal*/) {
    Apologise();
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
    std::fflush(nullptr);
    std::_Exit(status);
}

void InstallApology() {
    theProgram = ThePlaces().program.string();
    std::set_terminate(&Apologise);

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
