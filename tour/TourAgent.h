// Pretended agents for the pictures of a page that loads without end, and of one that gets nothing.
#pragma once

#include <QTcpServer>
#include <cstdint>

namespace quorvi {

// Listens on a loopback port of its own and answers every request alike. The window's thread.
class TourAgent : public QTcpServer {
    Q_OBJECT
  public:
    enum class Manner {
        hasNothing,  // answers that there are no data
        stalls,      // sends a third of a reply, and never the rest
    };

    explicit TourAgent(Manner manner);

    [[nodiscard]] std::uint16_t Port() const { return serverPort(); }

  private:
    void Answer();

    Manner manner_;
};

}  // namespace quorvi
