#include "tests/support/ScriptedAgent.h"

#include <sys/socket.h>

#include <algorithm>
#include <array>
#include <span>
#include <utility>

namespace quorvi {
namespace {

AgentCommand CommandOf(const Bytes& request) {
    return static_cast<AgentCommand>(request.size() < 4 ? 0 : ReadUInt32(request.data()));
}

// A bare request is its four bytes; any other says how long it is, but for one that is its code and
// an id.
bool IsWhole(const Bytes& request) {
    if (CommandOf(request) == AgentCommand::readConversation) {
        return request.size() >= 8;
    }
    return request.size() == 4 ||
           (request.size() >= 8 && request.size() >= ReadUInt32(request.data() + 4));
}

Bytes ReceiveRequest(const TcpSocket& socket) {
    Bytes request;
    std::array<std::byte, 65536> chunk{};
    while (!IsWhole(request)) {
        const std::ptrdiff_t count = socket.Receive(chunk);
        if (count <= 0) {
            break;
        }
        request.insert(request.end(), chunk.begin(), chunk.begin() + count);
    }
    return request;
}

void SendAll(const TcpSocket& socket, std::span<const std::byte> bytes) {
    while (!bytes.empty()) {
        const std::ptrdiff_t count = socket.Send(bytes);
        if (count <= 0) {
            return;
        }
        bytes = bytes.subspan(static_cast<std::size_t>(count));
    }
}

}  // namespace

ScriptedAgent::ScriptedAgent(std::uint16_t port)
    : listener_(ListenOn(port)), port_(PortOf(listener_)) {
    acceptor_ = std::thread([this] { AcceptAll(); });
}

ScriptedAgent::~ScriptedAgent() {
    {
        const std::lock_guard lock(mutex_);
        ending_ = true;
        for (const int descriptor : open_) {
            shutdown(descriptor, SHUT_RDWR);
        }
    }
    released_.notify_all();
    shutdown(listener_.Descriptor(), SHUT_RDWR);
    acceptor_.join();
    for (std::thread& server : servers_) {
        server.join();
    }
}

void ScriptedAgent::Answer(AgentCommand command, Reply reply) {
    const std::lock_guard lock(mutex_);
    replies_[command] = std::move(reply);
}

void ScriptedAgent::AnswerPayload(AgentCommand command, const Bytes& payload) {
    Bytes reply(4);
    PackUInt32(static_cast<std::uint32_t>(payload.size()), reply.data());
    reply.insert(reply.end(), payload.begin(), payload.end());
    Answer(command, {std::move(reply)});
}

void ScriptedAgent::AnswerNoData(AgentCommand command) {
    Bytes mark(4);
    PackUInt32(NoDataMark, mark.data());
    Answer(command, {std::move(mark)});
}

void ScriptedAgent::AnswerAcknowledged(AgentCommand command) {
    Bytes word(4);
    PackUInt32(1, word.data());
    Answer(command, {std::move(word)});
}

void ScriptedAgent::Hold(AgentCommand command) {
    const std::lock_guard lock(mutex_);
    held_[command] = true;
}

void ScriptedAgent::Release() {
    {
        const std::lock_guard lock(mutex_);
        held_.clear();
    }
    released_.notify_all();
}

std::vector<Bytes> ScriptedAgent::Requests() {
    const std::lock_guard lock(mutex_);
    return requests_;
}

std::vector<Bytes> ScriptedAgent::Requests(AgentCommand command) {
    std::vector<Bytes> requests = Requests();
    std::erase_if(requests,
                  [command](const Bytes& request) { return CommandOf(request) != command; });
    return requests;
}

void ScriptedAgent::AcceptAll() {
    for (;;) {
        TcpSocket socket(accept4(listener_.Descriptor(), nullptr, nullptr, SOCK_CLOEXEC));
        if (!socket.IsOpen()) {
            return;
        }
        const std::lock_guard lock(mutex_);
        if (ending_) {
            return;
        }
        open_.push_back(socket.Descriptor());
        servers_.emplace_back(
            [this, served = std::move(socket)]() mutable { Serve(std::move(served)); });
    }
}

void ScriptedAgent::Serve(TcpSocket socket) {
    const Bytes request = ReceiveRequest(socket);
    const AgentCommand command = CommandOf(request);
    Reply reply;
    {
        std::unique_lock lock(mutex_);
        requests_.push_back(request);
        released_.wait(lock, [&] { return ending_ || !held_[command]; });
        if (const auto found = replies_.find(command); found != replies_.end()) {
            reply = found->second;
        }
    }
    SendAll(socket, reply.bytes);
    if (reply.end == End::reset) {
        const linger abort{.l_onoff = 1, .l_linger = 0};
        setsockopt(socket.Descriptor(), SOL_SOCKET, SO_LINGER, &abort, sizeof abort);
    } else {
        if (reply.end == End::close) {
            shutdown(socket.Descriptor(), SHUT_WR);
        }
        std::array<std::byte, 4096> chunk{};
        while (socket.Receive(chunk) > 0) {
        }
    }
    const std::lock_guard lock(mutex_);
    std::erase(open_, socket.Descriptor());
    socket.Close();
}

}  // namespace quorvi
