#include "link/DeviceList.h"

#include <fmt/format.h>

#include <utility>

#include "base/Text.h"
#include "link/AdbCapture.h"
#include "link/AdbCommand.h"
#include "link/AdbNames.h"
#include "link/TrackedDevices.h"

namespace quorvi {

SerialList ListSerials(const LinkEnvironment& environment) {
    const AdbCapture capture = RunAdbCapture(DevicesCommand(environment));
    return {capture.outcome, ParseDevices(capture.text)};
}

DeviceRow MakeDeviceRow(std::string serial, std::string_view getprop) {
    DeviceRow row;
    row.properties = ParseGetprop(getprop);
    row.record.connectionKind = IsWirelessSerial(serial) ? 1 : 0;
    row.record.serial = std::move(serial);
    row.record.androidVersion = AndroidVersionName(row.properties.apiLevel);
    row.record.brandImage = BrandImageId(row.properties.manufacturer);
    return row;
}

DeviceList ListDevices(const LinkEnvironment& environment) {
    SerialList found = ListSerials(environment);
    DeviceList list{found.outcome, {}};
    for (std::string& serial : found.serials) {
        const AdbCapture getprop =
            RunAdbCapture(GetpropCommand(environment, serial), kGetpropLimit);
        list.rows.push_back(MakeDeviceRow(std::move(serial), getprop.text));
    }
    return list;
}

std::string HardwareText(const DeviceProperties& properties) {
    return fmt::format("{} [ {} ]", LocalBrandName(properties.manufacturer),
                       CleanModelName(properties.model));
}

std::string ApiLevelText(const DeviceProperties& properties) {
    return fmt::format("API Level {}", properties.apiLevel);
}

std::string ConnectionText(const DeviceRecord& record) {
    return Ansi(record.connectionKind == 0 ? u8"USB 数据线" : u8"WiFi 无线网络");
}

}  // namespace quorvi
