// Pretended agents that stand before the one of the phone, for pictures of a restore: nothing is
// changed on the phone, which may be the developer's own.
#pragma once

#include <QTcpServer>
#include <cstdint>
#include <map>
#include <optional>

#include "agent/AgentAddress.h"
#include "agent/AgentCommand.h"

class QTcpSocket;

namespace quorvi {

// Lists the phone's alarms and bookmarks as lost until one is brought back, acknowledges those that
// are added without telling the phone, and hands all else on to its agent. The window's thread.
class PhoneBehind : public QTcpServer {
    Q_OBJECT
  public:
    // `stallsAt` is answered `answered` times, and never again.
    explicit PhoneBehind(AgentAddress behind, std::optional<AgentCommand> stallsAt = {},
                         int answered = 0);

    [[nodiscard]] std::uint16_t Port() const { return serverPort(); }
    // A session waits for an answer that does not come.
    [[nodiscard]] bool HasStalled() const { return answered_ < 0; }

  private:
    void Take();
    void Answer(QTcpSocket& peer);
    void HandOn(QTcpSocket& peer);

    AgentAddress behind_;
    std::optional<AgentCommand> stallsAt_;
    int answered_;
    std::map<AgentCommand, bool> lost_;  // by the command of the list
};

}  // namespace quorvi
