#include "link/WirelessAddress.h"

#include <algorithm>
#include <charconv>

#include "base/Text.h"

namespace quorvi {
namespace {

constexpr std::string_view kRemembered = "wireless_phones";
constexpr char kBetween = ' ';

// Of a name in the domain name system.
constexpr std::size_t kLongestHost = 253;
constexpr std::string_view kDigits = "0123456789";
constexpr std::string_view kNumberLetters = "0123456789abcdefABCDEF:.";
constexpr std::string_view kNameLetters =
    "0123456789abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ-._";

bool IsOf(std::string_view text, std::string_view letters) {
    return !text.empty() && text.find_first_not_of(letters) == std::string_view::npos;
}

bool IsHostName(std::string_view host) {
    return host.size() <= kLongestHost && IsOf(host, kNameLetters) && host.front() != '-' &&
           host.front() != '.';
}

bool IsIpv6(std::string_view host) {
    return host.size() <= kLongestHost && IsOf(host, kNumberLetters) &&
           std::ranges::count(host, ':') > 1;
}

std::optional<std::uint16_t> ReadPort(std::string_view text) {
    std::uint16_t port = 0;
    const char* const end = text.data() + text.size();
    const auto [rest, failed] = std::from_chars(text.data(), end, port);
    const bool isPort = IsOf(text, kDigits) && failed == std::errc() && rest == end && port != 0;
    return isPort ? std::optional(port) : std::nullopt;
}

std::optional<std::string> Join(std::string_view host, std::optional<std::uint16_t> port) {
    return port ? std::optional(std::string(host) + ":" + std::to_string(*port)) : std::nullopt;
}

}  // namespace

std::optional<std::string> NormalAddress(std::string_view typed,
                                         std::optional<std::uint16_t> port) {
    const std::string_view text = Trim(typed);
    if (text.starts_with('[')) {
        const std::size_t close = text.find(']');
        if (close == std::string_view::npos || !IsIpv6(text.substr(1, close - 1))) {
            return std::nullopt;
        }
        const std::string_view rest = text.substr(close + 1);
        if (!rest.empty() && rest.front() != ':') {
            return std::nullopt;
        }
        return Join(text.substr(0, close + 1), rest.empty() ? port : ReadPort(rest.substr(1)));
    }
    if (IsIpv6(text)) {
        return Join("[" + std::string(text) + "]", port);
    }
    const std::size_t colon = text.find(':');
    const std::string_view host = text.substr(0, colon);
    if (!IsHostName(host)) {
        return std::nullopt;
    }
    return Join(host, colon == std::string_view::npos ? port : ReadPort(text.substr(colon + 1)));
}

bool IsPairingCode(std::string_view text) {
    constexpr std::size_t kCodeDigits = 6;
    return text.size() == kCodeDigits && IsOf(text, kDigits);
}

std::vector<std::string> RememberedAddresses(const SettingsStore& settings) {
    std::vector<std::string> addresses;
    const std::string stored = settings.ReadText(kSettingsKey, kRemembered).value_or("");
    for (const std::string_view piece : SplitAt(stored, kBetween)) {
        const std::optional<std::string> address = NormalAddress(piece, std::nullopt);
        if (address && addresses.size() < kMostRememberedAddresses &&
            std::ranges::count(addresses, *address) == 0) {
            addresses.push_back(*address);
        }
    }
    return addresses;
}

bool RememberAddress(SettingsStore& settings, const std::string& address) {
    std::vector<std::string> addresses = RememberedAddresses(settings);
    std::erase(addresses, address);
    addresses.insert(addresses.begin(), address);
    addresses.resize(std::min(addresses.size(), kMostRememberedAddresses));
    std::string text;
    for (const std::string& each : addresses) {
        text.append(text.empty() ? "" : std::string(1, kBetween)).append(each);
    }
    return settings.WriteText(kSettingsKey, kRemembered, text);
}

}  // namespace quorvi
