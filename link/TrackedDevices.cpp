#include "link/TrackedDevices.h"

#include <charconv>
#include <utility>

#include "base/Text.h"

namespace quorvi {
namespace {

constexpr std::size_t kLengthDigits = 4;

struct StateWord {
    std::string_view word;
    DeviceState state;
};
// Words that adb writes otherwise, such as "authorizing", "connecting" and "recovery", are `other`.
constexpr StateWord kStates[] = {
    {"device", DeviceState::ready},
    {"unauthorized", DeviceState::unauthorized},
    {"offline", DeviceState::offline},
};

constexpr std::string_view kNoPermissions = "no permissions";

// The end of the service's name under which a phone makes itself known in the network.
constexpr std::string_view kServiceEnd = "._tcp";

std::optional<std::size_t> ReadLength(std::string_view digits) {
    std::size_t length = 0;
    const char* const end = digits.data() + digits.size();
    const auto [rest, failed] = std::from_chars(digits.data(), end, length, 16);
    return failed == std::errc() && rest == end ? std::optional(length) : std::nullopt;
}

}  // namespace

DeviceState ParseDeviceState(std::string_view text) {
    if (text.starts_with(kNoPermissions)) {
        return DeviceState::noPermissions;
    }
    for (const StateWord& row : kStates) {
        if (row.word == text) {
            return row.state;
        }
    }
    return DeviceState::other;
}

TrackedDevices ParseTrackedDevices(std::string_view list) {
    TrackedDevices devices;
    for (const std::string_view line : SplitAt(list, '\n')) {
        const std::size_t tab = line.find('\t');
        if (tab == std::string_view::npos || tab == 0) {
            continue;
        }
        if (devices.size() == kMostTrackedDevices) {
            break;
        }
        devices.push_back(
            {std::string(line.substr(0, tab)), ParseDeviceState(TrimRight(line.substr(tab + 1)))});
    }
    return devices;
}

bool IsWirelessSerial(std::string_view serial) {
    while (serial.ends_with('.')) {
        serial.remove_suffix(1);
    }
    return serial.find(':') != std::string_view::npos || serial.ends_with(kServiceEnd);
}

std::optional<TrackedDevices> TrackReader::Take() {
    if (broken_ || pending_.size() < kLengthDigits) {
        return std::nullopt;
    }
    const std::optional<std::size_t> length =
        ReadLength(std::string_view(pending_).substr(0, kLengthDigits));
    if (!length) {
        broken_ = true;
        pending_.clear();
        return std::nullopt;
    }
    if (pending_.size() - kLengthDigits < *length) {
        return std::nullopt;
    }
    TrackedDevices devices =
        ParseTrackedDevices(std::string_view(pending_).substr(kLengthDigits, *length));
    pending_.erase(0, kLengthDigits + *length);
    return devices;
}

}  // namespace quorvi
