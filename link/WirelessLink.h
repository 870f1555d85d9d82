// Phones in the network: found by adb's mDNS, paired by six digits, connected by their address.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "link/LinkEnvironment.h"

namespace quorvi {

// A phone that makes itself known in the network.
struct FoundPhone {
    enum class Waits {
        toConnect,  // for a computer that it knows
        toPair,     // for the six digits
    };

    std::string name;     // of its service; any bytes but line ends and tabs
    std::string address;  // as NormalAddress gives it
    Waits waits = Waits::toConnect;

    bool operator==(const FoundPhone&) const = default;
};

// Phones of one answer that are read.
inline constexpr std::size_t kMostFoundPhones = 64;

// `adb mdns services`: a line a service, with its name, its type and its address between tabs.
// Other services, and what is no address, are left out.
[[nodiscard]] std::vector<FoundPhone> ParseMdnsServices(std::string_view text);

enum class ConnectResult {
    connected,   // or was before
    notAllowed,  // the phone asks its user, or wants to be paired first
    failed,      // nobody answers there
    noAddress,   // what was given is none; adb was not run
    noAdb,       // adb could not run
};

// `adb connect`.
[[nodiscard]] ConnectResult ParseConnect(std::string_view text);

enum class PairResult {
    paired,
    wrongCode,  // or the phone has gone on to another one
    failed,     // nobody answers there
    tooOld,     // this adb cannot pair
    noAddress,  // what was given is none, or has no port; adb was not run
    noCode,     // what was given is not six digits; adb was not run
    noAdb,      // adb could not run
};

// `adb pair`.
[[nodiscard]] PairResult ParsePair(std::string_view text);

// What the StatusLabel says of it, ANSI.
[[nodiscard]] std::string StatusText(ConnectResult result);
[[nodiscard]] std::string StatusText(PairResult result);

// Each runs adb and waits for its end: on a worker.
[[nodiscard]] std::vector<FoundPhone> FindWirelessPhones(const LinkEnvironment& environment = {});
[[nodiscard]] ConnectResult ConnectWireless(std::string_view address,
                                            const LinkEnvironment& environment = {});
// The address is that of the pairing, which the phone shows beside the code; its port is another
// one than that of the connection.
[[nodiscard]] PairResult PairWireless(std::string_view address, std::string_view code,
                                      const LinkEnvironment& environment = {});

}  // namespace quorvi
