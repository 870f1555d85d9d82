#include "link/AdbCapture.h"

#include <poll.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <utility>

namespace quorvi {
namespace {

// How long to wait for output before looking whether the child has ended all the same, because
// another process holds the pipe open.
constexpr int kLookMilliseconds = 20;

constexpr std::size_t kReadBytes = 4096;

// Reads once, keeping what fits under the limit. The count, 0 at the end, -1 for nothing there.
std::ptrdiff_t ReadOnce(int descriptor, std::size_t most, std::string& text, std::size_t limit) {
    std::array<char, kReadBytes> bytes;
    const std::ptrdiff_t count = read(descriptor, bytes.data(), std::min(most, bytes.size()));
    if (count > 0) {
        text.append(bytes.data(), std::min(static_cast<std::size_t>(count), limit - text.size()));
    }
    return count < 0 && errno != EAGAIN && errno != EINTR ? 0 : count;
}

}  // namespace

AdbCapture RunAdbCapture(AdbCommand command, std::size_t limit, ChildProcess::Group group) {
    AdbCapture capture;
    ChildProcess child;
    capture.outcome = child.Start(std::move(command), ChildProcess::Input::none,
                                  ChildProcess::Output::pipe, group);
    if (capture.outcome != RunOutcome::started) {
        return capture;
    }
    const int output = child.OutputDescriptor();
    while (!child.HasEnded()) {
        pollfd wait{.fd = output, .events = POLLIN, .revents = 0};
        if (poll(&wait, 1, kLookMilliseconds) > 0 &&
            ReadOnce(output, kReadBytes, capture.text, limit) == 0) {
            child.WaitForEnd();
        }
    }
    // What the child wrote before its end stands in the pipe; what others still write is not its.
    for (std::size_t left = BytesWaiting(output); left > 0;) {
        const std::ptrdiff_t count = ReadOnce(output, left, capture.text, limit);
        if (count <= 0) {
            break;
        }
        left -= static_cast<std::size_t>(count);
    }
    return capture;
}

bool LaunchAdb(AdbCommand command) {
    ChildProcess child;
    return child.Start(std::move(command), ChildProcess::Input::none, ChildProcess::Output::none) ==
           RunOutcome::started;
}

}  // namespace quorvi
