#include "base/os/ChildProcess.h"

#include <fcntl.h>
#include <poll.h>
#include <spawn.h>
#include <sys/ioctl.h>
#include <sys/wait.h>

#include <cerrno>
#include <csignal>
#include <string>
#include <system_error>
#include <thread>
#include <utility>
#include <vector>

namespace quorvi {
namespace {

struct Pipe {
    FileDescriptor read;
    FileDescriptor write;
};

// Both ends stay out of every child but the one that is given them.
bool MakePipe(Pipe& made) {
    int ends[2];
    if (pipe2(ends, O_CLOEXEC) != 0) {
        return false;
    }
    made.read = FileDescriptor(ends[0]);
    made.write = FileDescriptor(ends[1]);
    return true;
}

// What the child has for its standard descriptors, and the signals as a fresh process has them.
class SpawnSettings {
  public:
    SpawnSettings() {
        posix_spawn_file_actions_init(&actions_);
        posix_spawnattr_init(&attributes_);
        sigset_t none;
        sigemptyset(&none);
        posix_spawnattr_setsigmask(&attributes_, &none);
        sigset_t usual;
        sigemptyset(&usual);
        for (const int signal : {SIGPIPE, SIGINT, SIGQUIT, SIGTERM, SIGHUP, SIGCHLD}) {
            sigaddset(&usual, signal);
        }
        posix_spawnattr_setsigdefault(&attributes_, &usual);
        posix_spawnattr_setflags(&attributes_, POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_SETSIGDEF);
    }
    ~SpawnSettings() {
        posix_spawn_file_actions_destroy(&actions_);
        posix_spawnattr_destroy(&attributes_);
    }
    SpawnSettings(const SpawnSettings&) = delete;
    SpawnSettings& operator=(const SpawnSettings&) = delete;

    // `standard` is 0, 1 or 2; nowhere if the descriptor is not open.
    void Give(int standard, const FileDescriptor& descriptor) {
        if (descriptor.IsOpen()) {
            posix_spawn_file_actions_adddup2(&actions_, descriptor.Get(), standard);
        } else {
            posix_spawn_file_actions_addopen(&actions_, standard, "/dev/null",
                                             standard == STDIN_FILENO ? O_RDONLY : O_WRONLY, 0);
        }
    }
    void OpenGroup() {
        posix_spawnattr_setpgroup(&attributes_, 0);
        posix_spawnattr_setflags(
            &attributes_, POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_SETSIGDEF | POSIX_SPAWN_SETPGROUP);
    }
    void CloseTheRest() { posix_spawn_file_actions_addclosefrom_np(&actions_, STDERR_FILENO + 1); }

    [[nodiscard]] const posix_spawn_file_actions_t* Actions() const { return &actions_; }
    [[nodiscard]] const posix_spawnattr_t* Attributes() const { return &attributes_; }

  private:
    posix_spawn_file_actions_t actions_;
    posix_spawnattr_t attributes_;
};

// Waits for a child; true if it has ended, or is no child of this process any more.
bool Reap(pid_t child, int flags) {
    pid_t ended = 0;
    do {
        ended = waitpid(child, nullptr, flags);
    } while (ended < 0 && errno == EINTR);
    return ended != 0;
}

// Waits until a child has ended and leaves it to be reaped.
void AwaitEnd(pid_t child) {
    siginfo_t information;
    while (waitid(P_PID, static_cast<id_t>(child), &information, WEXITED | WNOWAIT) != 0 &&
           errno == EINTR) {
    }
}

}  // namespace

RunOutcome ChildProcess::Start(std::vector<std::string> arguments, Input input, Output output,
                               Group group) {
    Release();
    if (arguments.empty()) {
        return RunOutcome::noProcess;
    }
    Pipe out;
    Pipe in;
    if ((output == Output::pipe && !MakePipe(out)) || (input == Input::pipe && !MakePipe(in))) {
        return RunOutcome::noPipe;
    }
    if (out.read.IsOpen() && fcntl(out.read.Get(), F_SETFL, O_NONBLOCK) != 0) {
        return RunOutcome::noPipe;
    }

    SpawnSettings settings;
    settings.Give(STDIN_FILENO, in.read);
    settings.Give(STDOUT_FILENO, out.write);
    settings.Give(STDERR_FILENO, out.write);
    settings.CloseTheRest();
    if (group == Group::own) {
        settings.OpenGroup();
    }

    std::vector<char*> vector;
    for (std::string& argument : arguments) {
        vector.push_back(argument.data());
    }
    vector.push_back(nullptr);
    pid_t child = 0;
    if (posix_spawnp(&child, vector[0], settings.Actions(), settings.Attributes(), vector.data(),
                     environ) != 0) {
        return RunOutcome::noProcess;
    }
    const std::lock_guard lock(mutex_);
    child_ = child;
    output_ = std::move(out.read);
    input_ = std::move(in.write);
    return RunOutcome::started;
}

bool ChildProcess::HasEnded() {
    const std::lock_guard lock(mutex_);
    if (child_ != 0 && Reap(child_, WNOHANG)) {
        child_ = 0;
    }
    return child_ == 0;
}

void ChildProcess::WaitForEnd() {
    pid_t child = 0;
    {
        const std::lock_guard lock(mutex_);
        child = child_;
    }
    if (child != 0) {
        AwaitEnd(child);
        static_cast<void>(HasEnded());
    }
}

void ChildProcess::Kill() {
    const std::lock_guard lock(mutex_);
    if (child_ != 0) {
        kill(child_, SIGKILL);
    }
}

void ChildProcess::Release() {
    output_.Close();
    input_.Close();
    if (HasEnded()) {
        return;
    }
    const std::lock_guard lock(mutex_);
    const pid_t child = std::exchange(child_, 0);
    try {
        std::thread([child] { Reap(child, 0); }).detach();
    } catch (const std::system_error&) {
        // No thread could be started: the child stays a zombie until this process ends.
    }
}

std::size_t BytesWaiting(int descriptor) {
    int count = 0;
    return ioctl(descriptor, FIONREAD, &count) == 0 && count > 0 ? static_cast<std::size_t>(count)
                                                                 : 0;
}

}  // namespace quorvi
