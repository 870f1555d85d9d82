// What the adb server sends to who follows `host:track-devices`, read.
//
// A message is the length of a list in four hexadecimal digits, then the list: a line a phone, its
// serial, a tab, its state. The server sends the whole list at once and again at each change.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace quorvi {

enum class DeviceState {
    ready,          // "device": the suite can work with it
    unauthorized,   // the phone has not allowed this computer yet
    noPermissions,  // the system does not let adb open the USB device
    offline,        // the phone does not answer
    other,          // on its way to one of these, or in a mode without a shell
};

struct TrackedDevice {
    std::string serial;
    DeviceState state = DeviceState::other;

    bool operator==(const TrackedDevice&) const = default;
};

using TrackedDevices = std::vector<TrackedDevice>;

// Phones of one list that are read; what stands behind them is dropped.
inline constexpr std::size_t kMostTrackedDevices = 64;

// The state that adb writes as this text. Behind "no permissions" stands a hint.
[[nodiscard]] DeviceState ParseDeviceState(std::string_view text);

// The lines of one message, in their order. A line without a tab or without a serial is no phone.
[[nodiscard]] TrackedDevices ParseTrackedDevices(std::string_view list);

// Whether a phone of this serial is reached through the network: adb names such a phone by its
// address ("192.168.1.23:5555") or by its service ("adb-ABC-x1Y2z3._adb-tls-connect._tcp").
[[nodiscard]] bool IsWirelessSerial(std::string_view serial);

// Takes messages off a stream of bytes that may be cut anywhere.
class TrackReader {
  public:
    void Feed(std::string_view bytes) { pending_.append(bytes); }
    // The next list; nothing while its bytes are not all there, and after a broken message.
    [[nodiscard]] std::optional<TrackedDevices> Take();
    // A length was no number: what follows cannot be read any more.
    [[nodiscard]] bool Broken() const { return broken_; }

  private:
    std::string pending_;
    bool broken_ = false;
};

}  // namespace quorvi
