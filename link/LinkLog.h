// What the log holds of the link: its steps, how each ended and how long it took. Any thread.
#pragma once

#include <chrono>

#include "link/AdbOutput.h"
#include "link/FindDevice.h"

namespace quorvi {

using LogStart = std::chrono::steady_clock::time_point;

// The search for a phone. The time in which its user chooses one of several counts.
void LogSearch(FindDeviceResult result, LogStart start);

// The forward of the agent's port.
void LogForward(bool stands);

// The agent's answer, with which the link stands or does not. `version`: below 1 for no answer.
void LogAgent(int version, bool linked);

// An installation of whatever package.
void LogInstall(InstallResult result, LogStart start);

}  // namespace quorvi
