// Reads what adb prints. Nothing here runs adb; every text is foreign and may be anything.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace quorvi {

// `adb devices`: the serials in the order of their lines, equal ones included.
//
// The text is read up to the first empty line. A line is a device line if the position of "devices"
// in it is below 1 (absent, or at the very start) and the position of "device" is above 0; "device"
// inside a web address does not count. The serial is what is left of it without every "device" and
// every blank, trimmed on its right side.
[[nodiscard]] std::vector<std::string> ParseDevices(std::string_view text);

// What `adb shell getprop` tells of a phone. Texts are ANSI.
struct DeviceProperties {
    std::string manufacturer;
    std::string model;
    int apiLevel = 0;  // 0 if there is none, or no number
};

// `adb shell getprop`, lines "[key]: [value]". What the text does not tell stays empty.
[[nodiscard]] DeviceProperties ParseGetprop(std::string_view text);

// `adb shell pm list package`: whether any line up to the first empty one holds `package` anywhere,
// so that a package with a longer name passes for it.
[[nodiscard]] bool HoldsPackage(std::string_view text, std::string_view package);

// What became of an install. The numbers are the rows of the table of its banner texts.
enum class InstallResult {
    success = 0,
    noProcess = 1,  // adb could not run; no output tells this
    otherSignature = 2,
    phoneFull = 3,
    failed = 4,
};

// `adb install`.
[[nodiscard]] InstallResult ParseInstall(std::string_view text);

}  // namespace quorvi
