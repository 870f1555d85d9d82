#include "tests/support/PrivateNetwork.h"

#include <net/if.h>
#include <sched.h>
#include <sys/ioctl.h>
#include <sys/socket.h>
#include <unistd.h>

#include <cstring>
#include <fstream>
#include <string>

#include "agent/Wire.h"

namespace quorvi {
namespace {

// Keeps the user's number inside a new user namespace.
void MapUser(uid_t user, gid_t group) {
    std::ofstream("/proc/self/setgroups") << "deny";
    std::ofstream("/proc/self/uid_map") << user << " " << user << " 1";
    std::ofstream("/proc/self/gid_map") << group << " " << group << " 1";
}

bool RaiseLoopback() {
    const int descriptor = socket(AF_INET, SOCK_DGRAM | SOCK_CLOEXEC, 0);
    ifreq request{};
    std::strcpy(request.ifr_name, "lo");
    request.ifr_flags = IFF_UP | IFF_RUNNING;
    const bool up = ioctl(descriptor, SIOCSIFFLAGS, &request) == 0;
    close(descriptor);
    return up;
}

// The agent's fixed port is among those that the system hands out, and adb's server, a site or a
// phone of the test had it now and then. Where the system lets nobody say so, that stays.
void KeepAgentPort() {
    std::ofstream("/proc/sys/net/ipv4/ip_local_reserved_ports") << AgentPort;
}

bool Enter() {
    // Root may simply do so; anyone else first becomes root of a user namespace, where the system
    // has those.
    if (unshare(CLONE_NEWNET) != 0) {
        const uid_t user = getuid();
        const gid_t group = getgid();
        if (unshare(CLONE_NEWUSER | CLONE_NEWNET) != 0) {
            return false;
        }
        MapUser(user, group);
    }
    KeepAgentPort();
    return RaiseLoopback();
}

}  // namespace

bool EnterPrivateNetwork() {
    static const bool entered = Enter();
    return entered;
}

}  // namespace quorvi
