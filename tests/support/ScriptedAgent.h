// An agent for page tests: answers each command as the test says, over any number of connections at
// once, and keeps what it was asked.
#pragma once

#include <condition_variable>
#include <cstdint>
#include <functional>
#include <map>
#include <mutex>
#include <ostream>
#include <thread>
#include <vector>

#include "agent/AgentCommand.h"
#include "agent/Wire.h"
#include "base/os/TcpSocket.h"
#include "tests/support/LoopbackPort.h"

namespace quorvi {

class ScriptedAgent {
  public:
    enum class End { wait, close, reset };

    struct Reply {
        Bytes bytes{};  // the whole reply, its length word or mark included
        End end = End::close;
    };

    // On an ephemeral port, unless told which. A command without an answer is closed upon.
    explicit ScriptedAgent(std::uint16_t port = 0);
    ~ScriptedAgent();
    ScriptedAgent(const ScriptedAgent&) = delete;
    ScriptedAgent& operator=(const ScriptedAgent&) = delete;

    [[nodiscard]] std::uint16_t Port() const { return port_; }

    void Answer(AgentCommand command, Reply reply);
    // A payload reply around these bytes.
    void AnswerPayload(AgentCommand command, const Bytes& payload);
    void AnswerNoData(AgentCommand command);
    void AnswerAcknowledged(AgentCommand command);

    // Holds back every answer to a command until Release.
    void Hold(AgentCommand command);
    void Release();

    // All requests so far, in the order in which they came; those of one command.
    [[nodiscard]] std::vector<Bytes> Requests();
    [[nodiscard]] std::vector<Bytes> Requests(AgentCommand command);

  private:
    void AcceptAll();
    void Serve(TcpSocket socket);

    TcpSocket listener_;
    std::uint16_t port_ = 0;
    std::mutex mutex_;
    std::condition_variable released_;
    std::map<AgentCommand, Reply> replies_;
    std::map<AgentCommand, bool> held_;
    std::vector<Bytes> requests_;
    std::vector<int> open_;  // descriptors of connections that are served
    std::vector<std::thread> servers_;
    bool ending_ = false;
    std::thread acceptor_;
};

inline void PrintTo(const ScriptedAgent::Reply& reply, std::ostream* out) {
    constexpr const char* kEnds[] = {"wait", "close", "reset"};
    *out << reply.bytes.size() << " bytes, then " << kEnds[static_cast<std::size_t>(reply.end)];
}

}  // namespace quorvi
