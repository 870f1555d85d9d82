// The phones that adb lists, with what each tells of itself, and how a list shows them.
//
//   const DeviceList list = ListDevices();
//   for (const DeviceRow& row : list.rows) show(row.record.serial, HardwareText(row.properties));
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "base/os/ChildProcess.h"
#include "link/AdbOutput.h"
#include "link/LinkEnvironment.h"

namespace quorvi {

// One row of the device manager's list. Texts are ANSI.
struct DeviceRecord {
    std::string serial;
    std::string androidVersion;
    std::uint32_t connectionKind = 0;  // 0 on a cable, 1 in the network
    int brandImage = 0;
};

struct DeviceRow {
    DeviceRecord record;
    DeviceProperties properties;
};

struct SerialList {
    RunOutcome outcome = RunOutcome::noPipe;
    std::vector<std::string> serials;
};

struct DeviceList {
    RunOutcome outcome = RunOutcome::noPipe;  // of `adb devices`
    std::vector<DeviceRow> rows;
};

// Bytes of a phone's getprop that are read; real ones have some thirty thousand.
inline constexpr std::size_t kGetpropLimit = 1024 * 1024;

// Runs `adb devices` and waits for it: on a worker.
[[nodiscard]] SerialList ListSerials(const LinkEnvironment& environment = {});

// The row of a phone out of its getprop's output. Of an empty one: no brand, image 21004, level 0.
[[nodiscard]] DeviceRow MakeDeviceRow(std::string serial, std::string_view getprop);

// Runs `adb devices`, then asks each phone in turn: on a worker.
[[nodiscard]] DeviceList ListDevices(const LinkEnvironment& environment = {});

// The columns' texts, ANSI: "%s [ %s ]" of brand and model; "API Level %d"; "USB 数据线", or "WiFi
// 无线网络" for any kind but 0.
[[nodiscard]] std::string HardwareText(const DeviceProperties& properties);
[[nodiscard]] std::string ApiLevelText(const DeviceProperties& properties);
[[nodiscard]] std::string ConnectionText(const DeviceRecord& record);

}  // namespace quorvi
