// The addresses of a host, by its name.
#pragma once

#include <netdb.h>
#include <sys/socket.h>

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "base/os/StopSignal.h"

namespace quorvi {

// Where a stream socket may connect to.
struct HostAddress {
    sockaddr_storage storage{};
    socklen_t size = 0;

    [[nodiscard]] const sockaddr* Get() const {
        return reinterpret_cast<const sockaddr*>(&storage);
    }
    [[nodiscard]] int Family() const { return storage.ss_family; }
    // "127.0.0.1", "::1".
    [[nodiscard]] std::string Text() const;
};

// getaddrinfo, or what a test has in its place.
using HostLookup =
    std::function<int(const char* host, const char* port, const addrinfo* hints, addrinfo** found)>;

// The addresses of a host's name, or of an address as text, an IPv6 one in brackets or without;
// IPv4 first, each kind in the system's order. Empty where there is none. A name may take the
// system many seconds, which Stop ends: the system then goes on by itself, on a thread of its own.
[[nodiscard]] std::vector<HostAddress> FindHost(const std::string& host, std::uint16_t port,
                                                const StopSignal& stop,
                                                HostLookup lookup = getaddrinfo);

}  // namespace quorvi
