#include "bench/AgentProcess.h"

#include <arpa/inet.h>
#include <netinet/in.h>
#include <sys/mman.h>
#include <sys/prctl.h>
#include <sys/socket.h>
#include <unistd.h>

#include <array>
#include <atomic>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <new>
#include <utility>

namespace quorvi {
namespace {

using Clock = std::chrono::steady_clock;

constexpr int kBacklog = 16;

// Commands are numbered from here, with gaps.
constexpr std::uint32_t kFirstCommand = 870'000;
constexpr std::size_t kCommands = 2'000;

void Require(bool condition) {
    if (!condition) {
        std::perror("the benchmark's agent");
        std::exit(1);
    }
}

std::size_t SlotOf(AgentCommand command) {
    const std::size_t slot = static_cast<std::uint32_t>(command) - kFirstCommand;
    return slot < kCommands ? slot : 0;
}

}  // namespace

// Both processes read the same clock.
struct AgentProcess::Ends {
    std::array<std::atomic<Clock::rep>, kCommands> at{};
};

AgentProcess::AgentProcess(const std::function<Answer()>& prepare)
    : listener_(::socket(AF_INET, SOCK_STREAM, IPPROTO_TCP)) {
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t size = sizeof address;
    auto* raw = reinterpret_cast<sockaddr*>(&address);
    Require(bind(listener_.Descriptor(), raw, size) == 0 &&
            listen(listener_.Descriptor(), kBacklog) == 0 &&
            getsockname(listener_.Descriptor(), raw, &size) == 0);
    port_ = ntohs(address.sin_port);
    void* shared =
        mmap(nullptr, sizeof(Ends), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0);
    Require(shared != MAP_FAILED);
    ends_ = new (shared) Ends;
    const pid_t child = fork();
    Require(child >= 0);
    if (child == 0) {
        prctl(PR_SET_PDEATHSIG, SIGKILL);
        Serve(prepare());
    }
}

void AgentProcess::Serve(const Answer& answer) const {
    for (;;) {
        const TcpSocket socket(accept(listener_.Descriptor(), nullptr, nullptr));
        std::array<std::byte, 64 * 1024> request{};
        // The suite sends a request in one piece.
        if (socket.Receive(request) >= 4) {
            const auto command = static_cast<AgentCommand>(ReadUInt32(request.data()));
            answer(command, socket);
            ends_->at[SlotOf(command)] = Clock::now().time_since_epoch().count();
        }
    }
}

Clock::time_point AgentProcess::ReplyEnd(AgentCommand command) const {
    return Clock::time_point(Clock::duration(ends_->at[SlotOf(command)]));
}

AgentProcess::Answer AnswerPayloads(std::map<AgentCommand, Bytes> payloads) {
    return [payloads = std::move(payloads)](AgentCommand command, const TcpSocket& socket) {
        std::array<std::byte, 4> word{};
        const auto found = payloads.find(command);
        PackUInt32(
            found == payloads.end() ? NoDataMark : static_cast<std::uint32_t>(found->second.size()),
            word.data());
        socket.Send(word);
        if (found != payloads.end()) {
            socket.Send(found->second);  // blocks until all is sent
        }
    };
}

}  // namespace quorvi
