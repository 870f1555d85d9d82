// What adb said of an uninstall, in words for its user.
#pragma once

#include <string>
#include <string_view>

namespace quorvi {

enum class UninstallOutcome {
    done,
    notInstalled,   // the phone does not have it any more
    deviceAdmin,    // it administers the phone
    notAllowed,     // the phone's user may not uninstall
    pinned,         // it is pinned to the phone's screen
    needed,         // other applications use it
    aborted,        // the phone gave up
    refused,        // the phone gave no better reason, as for its own applications
    severalPhones,  // adb was told of none of them
    noPhone,
    offline,       // the phone is attached and does not answer
    unauthorized,  // the phone has not allowed this computer
    noPermission,  // this computer may not use the phone's port
    brokenOff,     // the connection went while adb was at it
    noServer,      // adb's own server does not run
    noAdb,         // adb could not be started; no output tells this
    unknown,
};

// Reads the whole output of `adb uninstall`, UTF-8. Any thread.
[[nodiscard]] UninstallOutcome ParseUninstall(std::string_view said);

// Why it was not uninstalled, and what to do next; where the outcome is not known, the last line
// that adb said. ANSI, one line without a full stop; empty for `done`. Any thread.
[[nodiscard]] std::string UninstallReason(UninstallOutcome outcome, std::string_view said);

}  // namespace quorvi
