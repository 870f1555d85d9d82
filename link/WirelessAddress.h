// The addresses of phones in the network: typed, found or remembered. All of them are foreign; only
// what has the form of an address reaches adb, so that none is taken for an option or for more than
// one argument. ASCII. Any thread.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/SettingsStore.h"

namespace quorvi {

// Where a phone listens that was told to by `adb tcpip 5555`.
inline constexpr std::uint16_t kWirelessPort = 5555;

// "host:port" out of what was typed, with `port` where none stands there; nothing where it is no
// address, or where a port is missing and none is given. A host is a name, an IPv4 address, or an
// IPv6 address, which comes back in brackets.
[[nodiscard]] std::optional<std::string> NormalAddress(
    std::string_view typed, std::optional<std::uint16_t> port = kWirelessPort);

// Whether this is a code with which a phone is paired: six digits.
[[nodiscard]] bool IsPairingCode(std::string_view text);

// Addresses that are remembered at most.
inline constexpr std::size_t kMostRememberedAddresses = 8;

// The addresses that were connected to, the last one first.
[[nodiscard]] std::vector<std::string> RememberedAddresses(const SettingsStore& settings);

// Puts an address in front. False when it could not be stored.
bool RememberAddress(SettingsStore& settings, const std::string& address);

}  // namespace quorvi
