#include "tests/support/Process.h"

#include <fcntl.h>
#include <poll.h>
#include <signal.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <utility>

namespace quorvi::e2e {
namespace {

// Forks, wires descriptors 0 to 2 and runs the program. All else is closed on exec.
pid_t Spawn(const std::vector<std::string>& arguments, std::array<int, 3> descriptors) {
    std::vector<char*> words;
    for (const std::string& argument : arguments) {
        words.push_back(const_cast<char*>(argument.c_str()));
    }
    words.push_back(nullptr);
    const pid_t id = fork();
    if (id == 0) {
        prctl(PR_SET_PDEATHSIG, SIGKILL);
        for (int i = 0; i < 3; ++i) {
            dup2(descriptors[static_cast<std::size_t>(i)], i);
        }
        execvp(words[0], words.data());
        _exit(127);
    }
    return id;
}

struct Pipe {
    int read = -1;
    int write = -1;

    Pipe() {
        std::array<int, 2> ends{};
        if (pipe2(ends.data(), O_CLOEXEC) == 0) {
            read = ends[0];
            write = ends[1];
        }
    }
    ~Pipe() {
        CloseRead();
        CloseWrite();
    }
    Pipe(const Pipe&) = delete;
    Pipe& operator=(const Pipe&) = delete;
    void CloseRead() { Close(read); }
    void CloseWrite() { Close(write); }
    static void Close(int& descriptor) {
        if (descriptor >= 0) {
            close(std::exchange(descriptor, -1));
        }
    }
};

// Reads both streams to their ends; false when the time is up first.
bool Collect(Pipe& output, Pipe& messages, ProgramResult& result,
             std::chrono::steady_clock::time_point end) {
    while (output.read >= 0 || messages.read >= 0) {
        std::array<pollfd, 2> waiting{{{output.read, POLLIN, 0}, {messages.read, POLLIN, 0}}};
        const auto left =
            std::chrono::ceil<std::chrono::milliseconds>(end - std::chrono::steady_clock::now());
        if (left.count() <= 0) {
            return false;
        }
        poll(waiting.data(), waiting.size(), static_cast<int>(left.count()));
        for (const bool second : {false, true}) {
            if (waiting[second].revents == 0) {
                continue;
            }
            Pipe& pipe = second ? messages : output;
            std::array<char, 4096> piece;
            const auto count = read(pipe.read, piece.data(), piece.size());
            if (count > 0) {
                (second ? result.messages : result.output)
                    .append(piece.data(), static_cast<std::size_t>(count));
            } else {
                pipe.CloseRead();
            }
        }
    }
    return true;
}

}  // namespace

Process::Process(const std::vector<std::string>& arguments, const std::string& outputFile) {
    int in = open("/dev/null", O_RDONLY | O_CLOEXEC);
    int out = open(outputFile.c_str(), O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC, 0600);
    id_ = Spawn(arguments, {in, out, out});
    Pipe::Close(in);
    Pipe::Close(out);
}

Process::~Process() {
    if (id_ > 0) {
        kill(id_, SIGKILL);
        waitpid(id_, nullptr, 0);
    }
}

bool Process::IsRunning() const {
    siginfo_t ended{};
    return id_ > 0 &&
           waitid(P_PID, static_cast<id_t>(id_), &ended, WEXITED | WNOHANG | WNOWAIT) == 0 &&
           ended.si_pid == 0;
}

int Process::Status() const {
    siginfo_t ended{};
    const bool exited =
        id_ > 0 &&
        waitid(P_PID, static_cast<id_t>(id_), &ended, WEXITED | WNOHANG | WNOWAIT) == 0 &&
        ended.si_pid == id_ && ended.si_code == CLD_EXITED;
    return exited ? ended.si_status : -1;
}

ProgramResult RunProgram(const std::vector<std::string>& arguments, const std::string& input,
                         std::chrono::milliseconds limit) {
    const auto end = std::chrono::steady_clock::now() + limit;
    ProgramResult result;
    Pipe in;
    Pipe out;
    Pipe err;
    const pid_t id = Spawn(arguments, {in.read, out.write, err.write});
    in.CloseRead();
    out.CloseWrite();
    err.CloseWrite();
    // What the tests type fits into the pipe.
    [[maybe_unused]] const auto written = write(in.write, input.data(), input.size());
    in.CloseWrite();
    result.timedOut = !Collect(out, err, result, end);
    if (result.timedOut) {
        kill(id, SIGKILL);
    }
    int status = 0;
    waitpid(id, &status, 0);
    result.status = !result.timedOut && WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    return result;
}

}  // namespace quorvi::e2e
