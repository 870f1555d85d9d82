// Runs one adb command and brings its output back: for a command with a short result.
#pragma once

#include <cstddef>
#include <string>

#include "base/os/ChildProcess.h"
#include "link/AdbCommand.h"

namespace quorvi {

// Bytes of the output that are kept; for the install command one fewer.
inline constexpr std::size_t kCaptureLimit = 4096;
inline constexpr std::size_t kInstallCaptureLimit = 4095;

struct AdbCapture {
    RunOutcome outcome = RunOutcome::noPipe;
    // Standard output and error as they came, up to the limit.
    std::string text;
};

// Runs a command and waits for its end without a time limit: never on
// the window's thread. What goes beyond the limit is read and dropped, so that no amount of output
// keeps the child from ending; a process that the child leaves behind with the pipe in its hands,
// such as an adb server just started, is not waited for.
[[nodiscard]] AdbCapture RunAdbCapture(AdbCommand command, std::size_t limit = kCaptureLimit,
                                       ChildProcess::Group group = ChildProcess::Group::parents);

// Starts a command and waits for nothing; its output goes nowhere. False if it could not be
// started.
bool LaunchAdb(AdbCommand command);

}  // namespace quorvi
