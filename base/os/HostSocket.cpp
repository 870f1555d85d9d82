#include "base/os/HostSocket.h"

#include <netinet/in.h>
#include <poll.h>
#include <sys/socket.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <utility>

#include "base/os/HostAddresses.h"

namespace quorvi {
namespace {

using Clock = std::chrono::steady_clock;

int PollTime(std::chrono::milliseconds limit, Clock::time_point end) {
    if (limit < std::chrono::milliseconds(0)) {
        return -1;
    }
    const auto left = std::chrono::ceil<std::chrono::milliseconds>(end - Clock::now());
    return static_cast<int>(std::clamp<std::chrono::milliseconds::rep>(left.count(), 0, 1 << 30));
}

bool HasConnected(int descriptor) {
    int error = 0;
    socklen_t size = sizeof error;
    return getsockopt(descriptor, SOL_SOCKET, SO_ERROR, &error, &size) == 0 && error == 0;
}

}  // namespace

// Until one of the events comes; false when the time is up before, or it was stopped.
bool HostSocket::Await(int descriptor, short events, std::chrono::milliseconds limit) const {
    const auto end = Clock::now() + limit;
    while (!stop_->IsStopped()) {
        std::array<pollfd, 2> waiting{{{descriptor, events, 0}, {stop_->Descriptor(), POLLIN, 0}}};
        const int count = poll(waiting.data(), waiting.size(), PollTime(limit, end));
        if (count == 0 || (count < 0 && errno != EINTR)) {
            return false;
        }
        if (count > 0 && waiting[0].revents != 0) {
            return !stop_->IsStopped();
        }
    }
    return false;
}

bool HostSocket::Connect(const std::string& host, std::uint16_t port) {
    Close();
    for (const HostAddress& address : FindHost(host, port, *stop_)) {
        FileDescriptor trying(
            socket(address.Family(), SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, IPPROTO_TCP));
        if (!trying.IsOpen()) {
            continue;
        }
        const bool atOnce = connect(trying.Get(), address.Get(), address.size) == 0;
        if (!atOnce && errno != EINPROGRESS && errno != EINTR) {
            continue;
        }
        if (atOnce || (Await(trying.Get(), POLLOUT, kNoLimit) && HasConnected(trying.Get()))) {
            descriptor_ = std::move(trying);
            peerIp_ = address.Text();
            return true;
        }
        if (stop_->IsStopped()) {
            return false;
        }
    }
    return false;
}

bool HostSocket::Send(std::span<const std::byte> bytes, std::chrono::milliseconds limit) const {
    while (!bytes.empty()) {
        const std::ptrdiff_t count =
            send(descriptor_.Get(), bytes.data(), bytes.size(), MSG_NOSIGNAL);
        if (count >= 0) {
            bytes = bytes.subspan(static_cast<std::size_t>(count));
        } else if (errno == EAGAIN || errno == EWOULDBLOCK) {
            if (!Await(descriptor_.Get(), POLLOUT, limit)) {
                return false;
            }
        } else if (errno != EINTR) {
            return false;
        }
    }
    return true;
}

std::ptrdiff_t HostSocket::Receive(std::span<std::byte> bytes,
                                   std::chrono::milliseconds limit) const {
    for (;;) {
        const std::ptrdiff_t count = recv(descriptor_.Get(), bytes.data(), bytes.size(), 0);
        if (count >= 0) {
            return count;
        }
        if (errno == EAGAIN || errno == EWOULDBLOCK) {
            if (!Await(descriptor_.Get(), POLLIN, limit)) {
                return -1;
            }
        } else if (errno != EINTR) {
            return -1;
        }
    }
}

}  // namespace quorvi
