// Child processes of the end-to-end tests: none outlives its object, nor the test.
#pragma once

#include <sys/types.h>

#include <chrono>
#include <string>
#include <vector>

namespace quorvi::e2e {

// A program that runs until its object goes. It dies with the test's process, too.
class Process {
  public:
    // `arguments[0]` is looked up on the search path. Output goes to `outputFile`.
    Process(const std::vector<std::string>& arguments, const std::string& outputFile);
    ~Process();
    Process(const Process&) = delete;
    Process& operator=(const Process&) = delete;

    [[nodiscard]] pid_t Id() const { return id_; }
    [[nodiscard]] bool IsRunning() const;
    // What it exited with; -1 while it runs, and when a signal ended it.
    [[nodiscard]] int Status() const;

  private:
    pid_t id_;
};

struct ProgramResult {
    // What the program exited with; -1 when it was ended because its time was up or by a signal.
    int status = -1;
    bool timedOut = false;
    std::string output;    // standard output
    std::string messages;  // standard error
};

// Runs a program to its end, at most for `limit`.
[[nodiscard]] ProgramResult RunProgram(const std::vector<std::string>& arguments,
                                       const std::string& input = {},
                                       std::chrono::milliseconds limit = std::chrono::seconds(20));

}  // namespace quorvi::e2e
