// The agent of a benchmark, in a process of its own: what it holds and computes is not the suite's.
#pragma once

#include <chrono>
#include <cstdint>
#include <functional>
#include <map>

#include "agent/AgentCommand.h"
#include "agent/Wire.h"
#include "base/os/TcpSocket.h"

namespace quorvi {

class AgentProcess {
  public:
    // Sends the reply to a command.
    using Answer = std::function<void(AgentCommand command, const TcpSocket& socket)>;

    // Forks, so it is made before any thread is. `prepare` runs in the new process. Ends the
    // program where there is no port to be had.
    explicit AgentProcess(const std::function<Answer()>& prepare);
    AgentProcess(const AgentProcess&) = delete;
    AgentProcess& operator=(const AgentProcess&) = delete;

    [[nodiscard]] std::uint16_t Port() const { return port_; }
    // When the last reply to a command had been sent to its end.
    [[nodiscard]] std::chrono::steady_clock::time_point ReplyEnd(AgentCommand command) const;

  private:
    struct Ends;

    [[noreturn]] void Serve(const Answer& answer) const;

    TcpSocket listener_;
    std::uint16_t port_ = 0;
    Ends* ends_;  // shared with the process, and kept to the end
};

// Answers with these payloads, and that there are no data to any other command.
[[nodiscard]] AgentProcess::Answer AnswerPayloads(std::map<AgentCommand, Bytes> payloads);

}  // namespace quorvi
