// One child process with its output on a pipe: what the runners of adb stand on.
#pragma once

#include <sys/types.h>

#include <cstddef>
#include <mutex>
#include <string>
#include <vector>

#include "base/os/FileDescriptor.h"

namespace quorvi {

// What became of an attempt to run a command.
enum class RunOutcome {
    started,    // and, for a runner that waits, ended
    noPipe,     // the pipe could not be made
    noProcess,  // the executable is missing or could not be started
};

// A child of this process. It is never left as a zombie: one that still runs when the object goes
// is waited for by a thread of its own. Any thread, one at a time, but for Kill.
class ChildProcess {
  public:
    enum class Input { none, pipe };
    enum class Output { none, pipe };
    // Whose process group a child belongs to. What a terminal sends its foreground group, Ctrl+C
    // above all, does not reach a child in a group of its own.
    enum class Group { parents, own };

    ChildProcess() = default;
    ~ChildProcess() { Release(); }
    ChildProcess(const ChildProcess&) = delete;
    ChildProcess& operator=(const ChildProcess&) = delete;

    // Starts a program with its arguments, the program's name first, without a shell. The child
    // gets no descriptor of this process but its standard ones: output and error together on
    // the pipe, or nowhere; input from a pipe on which nothing is ever written, or from nowhere.
    RunOutcome Start(std::vector<std::string> arguments, Input input, Output output,
                     Group group = Group::parents);

    // The pipe's read end. Does not block.
    [[nodiscard]] int OutputDescriptor() const { return output_.Get(); }

    // True once the child has ended; it is reaped then.
    [[nodiscard]] bool HasEnded();
    // Blocks until the child has ended, and reaps it.
    void WaitForEnd();
    // Ends the child at once. Any thread, also while another waits.
    void Kill();

    // Closes this process's ends of the pipes and leaves the child to its end.
    void Release();

  private:
    std::mutex mutex_;  // guards child_, so that Kill never meets a number that was reaped
    pid_t child_ = 0;   // 0: none, or reaped
    FileDescriptor output_;
    FileDescriptor input_;
};

// Bytes that stand in a pipe or socket now.
[[nodiscard]] std::size_t BytesWaiting(int descriptor);

}  // namespace quorvi
