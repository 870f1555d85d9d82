// The session's ways to end a program: Ctrl-C, a logout, kill.
#pragma once

#include <functional>

namespace quorvi {

// From here on SIGINT, SIGTERM and SIGHUP call `end` on the window's thread. Once a process, after
// the application is made.
void ListenForEndSignals(std::function<void()> end);

}  // namespace quorvi
