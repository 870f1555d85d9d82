#include "base/os/HostAddresses.h"

#include <arpa/inet.h>
#include <netinet/in.h>
#include <poll.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstring>
#include <memory>
#include <mutex>
#include <optional>
#include <system_error>
#include <thread>
#include <utility>

namespace quorvi {
namespace {

// What a lookup's thread and the one that waits for it share.
struct Shared {
    std::mutex mutex;
    std::optional<std::vector<HostAddress>> found;
    Wakeup done;
};

std::vector<HostAddress> Look(const std::string& host, std::uint16_t port, int flags,
                              const HostLookup& lookup) {
    addrinfo hints{};
    hints.ai_socktype = SOCK_STREAM;
    hints.ai_protocol = IPPROTO_TCP;
    hints.ai_flags = AI_NUMERICSERV | flags;
    addrinfo* list = nullptr;
    std::vector<HostAddress> addresses;
    if (lookup(host.c_str(), std::to_string(port).c_str(), &hints, &list) != 0) {
        return addresses;
    }
    for (const addrinfo* each = list; each != nullptr; each = each->ai_next) {
        HostAddress address;
        if (each->ai_addrlen <= sizeof address.storage) {
            std::memcpy(&address.storage, each->ai_addr, each->ai_addrlen);
            address.size = each->ai_addrlen;
            addresses.push_back(address);
        }
    }
    freeaddrinfo(list);
    std::stable_partition(addresses.begin(), addresses.end(),
                          [](const HostAddress& address) { return address.Family() == AF_INET; });
    return addresses;
}

std::vector<HostAddress> LookBeside(const std::string& host, std::uint16_t port,
                                    const StopSignal& stop, HostLookup lookup) {
    const auto shared = std::make_shared<Shared>();
    try {
        std::thread([shared, host, port, lookup = std::move(lookup)] {
            auto addresses = Look(host, port, 0, lookup);
            const std::lock_guard lock(shared->mutex);
            shared->found = std::move(addresses);
            shared->done.Raise();
        }).detach();
    } catch (const std::system_error&) {
        return {};
    }
    std::array<pollfd, 2> waiting{
        {{shared->done.Descriptor(), POLLIN, 0}, {stop.Descriptor(), POLLIN, 0}}};
    while (poll(waiting.data(), waiting.size(), -1) < 0 && errno == EINTR) {
    }
    const std::lock_guard lock(shared->mutex);
    return stop.IsStopped() ? std::vector<HostAddress>()
                            : std::move(shared->found).value_or(std::vector<HostAddress>());
}

}  // namespace

std::string HostAddress::Text() const {
    std::array<char, INET6_ADDRSTRLEN> text{};
    const void* bytes = nullptr;
    if (Family() == AF_INET) {
        bytes = &reinterpret_cast<const sockaddr_in*>(&storage)->sin_addr;
    } else if (Family() == AF_INET6) {
        bytes = &reinterpret_cast<const sockaddr_in6*>(&storage)->sin6_addr;
    }
    const bool known =
        bytes != nullptr && inet_ntop(Family(), bytes, text.data(), text.size()) != nullptr;
    return known ? std::string(text.data()) : std::string();
}

std::vector<HostAddress> FindHost(const std::string& host, std::uint16_t port,
                                  const StopSignal& stop, HostLookup lookup) {
    if (host.empty() || host.find('\0') != std::string::npos || stop.IsStopped()) {
        return {};
    }
    const bool inBrackets = host.size() > 2 && host.starts_with('[') && host.ends_with(']');
    const std::string name = inBrackets ? host.substr(1, host.size() - 2) : host;
    // An address needs no lookup, and so no thread.
    auto addresses = Look(name, port, AI_NUMERICHOST, getaddrinfo);
    return addresses.empty() && !inBrackets ? LookBeside(name, port, stop, std::move(lookup))
                                            : addresses;
}

}  // namespace quorvi
