// Reads any text as each kind of adb's output, whole and joined of pieces.
#include <cstdint>
#include <cstdlib>
#include <optional>
#include <string>
#include <string_view>

#include "link/AdbNames.h"
#include "link/AdbOutput.h"
#include "link/DeviceList.h"
#include "link/WirelessAddress.h"
#include "link/WirelessLink.h"

namespace {

void Require(bool held) {
    if (!held) {
        std::abort();
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view text(reinterpret_cast<const char*>(data), size);

    for (const std::string& serial : quorvi::ParseDevices(text)) {
        Require(serial.find('\n') == std::string::npos && serial.find(' ') == std::string::npos);
    }

    const quorvi::DeviceRow row = quorvi::MakeDeviceRow("serial", text);
    static_cast<void>(quorvi::HardwareText(row.properties));
    static_cast<void>(quorvi::ApiLevelText(row.properties));
    Require(row.record.brandImage >= 21000 && row.record.brandImage <= 21015);
    Require(!row.record.androidVersion.empty());

    const std::string_view package = "com.quorvi.Quorvi";
    Require(!quorvi::HoldsPackage(text, package) || text.find(package) != std::string_view::npos);

    const quorvi::InstallResult result = quorvi::ParseInstall(text);
    Require((result == quorvi::InstallResult::success) ==
            (text.find("Success") != std::string_view::npos));
    Require(result != quorvi::InstallResult::noProcess);

    // Whatever a neighbour calls itself, what comes of it is an address and no option.
    for (const quorvi::FoundPhone& phone : quorvi::ParseMdnsServices(text)) {
        Require(quorvi::NormalAddress(phone.address, std::nullopt) == phone.address);
        Require(phone.address.front() != '-');
        Require(phone.address.find_first_of(std::string_view(" \t\r\n;$'\"\0", 9)) ==
                std::string::npos);
    }
    if (const auto address = quorvi::NormalAddress(text)) {
        Require(quorvi::NormalAddress(*address, std::nullopt) == address);
        Require(address->front() != '-');
    }
    Require(quorvi::ParseConnect(text) != quorvi::ConnectResult::noAdb);
    Require(quorvi::ParsePair(text) != quorvi::PairResult::noAdb);
    return 0;
}
