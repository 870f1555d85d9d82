#include "tests/support/StuckListener.h"

#include <netinet/in.h>
#include <sys/socket.h>

#include <charconv>
#include <fstream>
#include <sstream>
#include <stdexcept>
#include <string>

#include "tests/support/LoopbackPort.h"

namespace quorvi {
namespace {

constexpr int kMostQueued = 16;
constexpr const char* kSynSent = "02";  // the system's number for a connect that waits

}  // namespace

StuckListener::StuckListener()
    : listener_(socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, IPPROTO_TCP)) {
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    bind(listener_.Descriptor(), reinterpret_cast<const sockaddr*>(&address), sizeof address);
    listen(listener_.Descriptor(), 0);
    port_ = PortOf(listener_);
    address.sin_port = htons(port_);
    while (Waiting() == 0) {
        if (queued_.size() == kMostQueued) {
            throw std::runtime_error("every connect is answered");
        }
        queued_.emplace_back(
            socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, IPPROTO_TCP));
        connect(queued_.back().Descriptor(), reinterpret_cast<const sockaddr*>(&address),
                sizeof address);
    }
    own_ = Waiting();
}

// Connects to the port that have got no answer, as the system's table tells.
std::size_t StuckListener::Waiting() const {
    std::ifstream table("/proc/self/net/tcp");
    std::size_t count = 0;
    std::string line;
    std::getline(table, line);  // its heading
    while (std::getline(table, line)) {
        std::istringstream words(line);
        std::string number;
        std::string local;
        std::string remote;  // address:port, in hexadecimal digits
        std::string state;
        words >> number >> local >> remote >> state;
        const std::string digits = remote.substr(remote.find(':') + 1);
        unsigned int port = 0;
        std::from_chars(digits.data(), digits.data() + digits.size(), port, 16);
        count += port == port_ && state == kSynSent ? 1 : 0;
    }
    return count;
}

}  // namespace quorvi
