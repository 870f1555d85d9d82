#include "tour/TourAgent.h"

#include <QHostAddress>
#include <QTcpSocket>
#include <QTimer>
#include <chrono>

#include "agent/Wire.h"

namespace quorvi {
namespace {

// The reply of an agent that stalls: its length, and how much of it is sent, about a third.
constexpr std::uint32_t kLength = 11'200'000;
constexpr int kSent = 3'600'000;
constexpr int kSentAtOnce = 1'000'000;
// Before the second piece is sent. A page shows its progress once in a shorter time than this, so
// it shows both pieces.
constexpr std::chrono::milliseconds kPause{200};

QByteArray WordOf(std::uint32_t value) {
    QByteArray word(sizeof value, Qt::Uninitialized);
    PackUInt32(value, reinterpret_cast<std::byte*>(word.data()));
    return word;
}

}  // namespace

TourAgent::TourAgent(Manner manner) : manner_(manner) {
    connect(this, &QTcpServer::newConnection, this, &TourAgent::Answer);
    listen(QHostAddress::LocalHost);
}

// A page that waits for the rest of its reply closes the connection, when it is gone. That there is
// nothing is said with the end of the connection: the list of applications waits for it.
void TourAgent::Answer() {
    QTcpSocket* peer = nextPendingConnection();
    connect(peer, &QTcpSocket::disconnected, peer, &QObject::deleteLater);
    if (manner_ == Manner::hasNothing) {
        // A connection that is closed with a request unread breaks.
        connect(peer, &QTcpSocket::readyRead, peer, [peer] {
            peer->readAll();
            peer->write(WordOf(NoDataMark));
            peer->disconnectFromHost();
        });
    } else {
        peer->write(WordOf(kLength));
        peer->write(QByteArray(kSentAtOnce, '\0'));
        QTimer::singleShot(kPause, peer,
                           [peer] { peer->write(QByteArray(kSent - kSentAtOnce, '\0')); });
    }
}

}  // namespace quorvi
