// A pretended site for the pictures of the pages that ask one: versions, weather, ratings,
// feedback, the store's first page.
#pragma once

#include <QTcpServer>
#include <cstdint>

#include "base/Deployment.h"

class QTcpSocket;

namespace quorvi {

// Listens on a loopback port of its own and answers each path alike. The window's thread.
class TourSite : public QTcpServer {
    Q_OBJECT
  public:
    TourSite();

    // With the services of this site in the place of the delivered ones.
    [[nodiscard]] Deployment Told() const;

  private:
    void Answer();
    void Read(QTcpSocket& peer);
};

}  // namespace quorvi
