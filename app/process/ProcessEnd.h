// The two ends of the process.
#pragma once

#include <filesystem>

#include "base/Places.h"

namespace quorvi {

// Ends the process with `status` at once. Nobody is waited for and nothing is torn down, since
// workers may still run; child processes are killed, so that an adb command that never ends does
// not outlive its program. The adb server is no child and stays. The log alone is given a moment
// for its last lines.
[[noreturn]] void EndProcess(int status);

// From here on an exception that nobody catches, or a fault, shows the apology in a process of its
// own and then ends this one by its signal (SIGABRT for an exception), so that the system sees the
// crash and may keep a core dump. Called once, first of all. `program`: is started with
// kApologyOption to show it; another than the own one in tests only.
void InstallApology(const std::filesystem::path& program = ThePlaces().program);

// The option with which the program, started anew, shows the apology.
inline constexpr const char* kApologyOption = "--apology";
// Shows the message box and returns when it is closed.
void ShowApology();

}  // namespace quorvi
