// The two ends of the process.
#pragma once

namespace quorvi {

// Ends the process with `status` at once. Nobody is waited for and nothing is torn down, since
// workers may still run; child processes are killed, so that an adb command that never ends does
// not outlive its program. The adb server is no child and stays.
[[noreturn]] void EndProcess(int status);

// From here on an exception that nobody catches, or a fault, shows the apology in a process of its
// own and ends this one with status 1. Called once, first of all.
void InstallApology();

// The option with which the program, started anew, shows the apology.
inline constexpr const char* kApologyOption = "--apology";
// Shows the message box and returns when it is closed.
void ShowApology();

}  // namespace quorvi
