#include "link/AdbOutput.h"

#include "base/Text.h"

namespace quorvi {
namespace {

constexpr std::string_view kDevice = "device";
constexpr std::string_view kDevices = "devices";

// A phone without permissions has a hint behind its serial that names a page "device.html".
std::string_view BeforeWebAddress(std::string_view line) {
    return line.substr(0, line.find("://"));
}

bool IsDeviceLine(std::string_view line) {
    const std::size_t devices = line.find(kDevices);
    const std::size_t device = BeforeWebAddress(line).find(kDevice);
    return (devices == std::string_view::npos || devices == 0) &&
           device != std::string_view::npos && device > 0;
}

// What stands between the last "[" and the last "]".
std::string_view LastBracketed(std::string_view line) {
    const std::size_t open = line.rfind('[');
    const std::size_t close = line.rfind(']');
    if (open == std::string_view::npos || close == std::string_view::npos || close <= open) {
        return {};
    }
    return line.substr(open + 1, close - open - 1);
}

struct InstallWord {
    std::string_view word;
    InstallResult result;
};
// In the order in which they are looked for.
constexpr InstallWord kInstallWords[] = {
    {"Success", InstallResult::success},
    {"INSTALL_PARSE_FAILED_INCONSISTENT_CERTIFICATES", InstallResult::otherSignature},
    {"INSTALL_FAILED_INSUFFICIENT_STORAGE", InstallResult::phoneFull},
};

}  // namespace

std::vector<std::string> ParseDevices(std::string_view text) {
    std::vector<std::string> serials;
    for (const std::string_view line : SplitAt(text, '\n')) {
        if (line.empty()) {
            break;
        }
        if (IsDeviceLine(line)) {
            const std::string left = ReplaceAll(ReplaceAll(line, kDevice, ""), " ", "");
            serials.emplace_back(TrimRight(left));
        }
    }
    return serials;
}

DeviceProperties ParseGetprop(std::string_view text) {
    DeviceProperties properties;
    for (const std::string_view line : SplitAt(text, '\n')) {
        if (line.find("ro.build.version.sdk") != std::string_view::npos) {
            properties.apiLevel = ToInt(LastBracketed(line));
        }
        if (line.find("ro.product.manufacturer") != std::string_view::npos) {
            properties.manufacturer = ToAnsi(LastBracketed(line));
        }
        if (line.find("ro.product.model") != std::string_view::npos) {
            properties.model = ToAnsi(LastBracketed(line));
        }
    }
    return properties;
}

bool HoldsPackage(std::string_view text, std::string_view package) {
    for (std::string_view line : SplitAt(text, '\n')) {
        line = Trim(line);
        if (line.empty()) {
            break;
        }
        if (line.find(package) != std::string_view::npos) {
            return true;
        }
    }
    return false;
}

InstallResult ParseInstall(std::string_view text) {
    for (const InstallWord& row : kInstallWords) {
        if (text.find(row.word) != std::string_view::npos) {
            return row.result;
        }
    }
    return InstallResult::failed;
}

}  // namespace quorvi
