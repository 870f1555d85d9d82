#include "tour/PhoneBehind.h"

#include <QHostAddress>
#include <QTcpSocket>

#include "agent/Wire.h"

namespace quorvi {
namespace {

void WriteWord(QTcpSocket& peer, std::uint32_t value) {
    QByteArray word(sizeof value, Qt::Uninitialized);
    PackUInt32(value, reinterpret_cast<std::byte*>(word.data()));
    peer.write(word);
}

}  // namespace

PhoneBehind::PhoneBehind(AgentAddress behind, std::optional<AgentCommand> stallsAt, int answered)
    : behind_(behind),
      stallsAt_(stallsAt),
      answered_(answered),
      lost_{{AgentCommand::listAlarms, true}, {AgentCommand::listBookmarks, true}} {
    connect(this, &QTcpServer::newConnection, this, &PhoneBehind::Take);
    listen(QHostAddress::LocalHost);
}

void PhoneBehind::Take() {
    QTcpSocket* peer = nextPendingConnection();
    connect(peer, &QTcpSocket::disconnected, peer, &QObject::deleteLater);
    connect(peer, &QTcpSocket::readyRead, this, [this, peer] {
        if (peer->bytesAvailable() >= qint64{sizeof(std::uint32_t)}) {
            disconnect(peer, &QTcpSocket::readyRead, this, nullptr);
            Answer(*peer);
        }
    });
}

void PhoneBehind::Answer(QTcpSocket& peer) {
    const QByteArray code = peer.peek(sizeof(std::uint32_t));
    const auto command =
        static_cast<AgentCommand>(ReadUInt32(reinterpret_cast<const std::byte*>(code.data())));
    if (command == stallsAt_ && answered_-- <= 0) {
        return;  // until its session is given up
    }
    if (const auto list = lost_.find(command); list != lost_.end() && list->second) {
        WriteWord(peer, NoDataMark);
    } else if (command == AgentCommand::addAlarm || command == AgentCommand::addBookmark) {
        lost_[command == AgentCommand::addAlarm ? AgentCommand::listAlarms
                                                : AgentCommand::listBookmarks] = false;
        WriteWord(peer, 1);
    } else {
        HandOn(peer);
    }
}

void PhoneBehind::HandOn(QTcpSocket& peer) {
    auto* phone = new QTcpSocket(&peer);
    connect(phone, &QTcpSocket::readyRead, &peer, [&peer, phone] { peer.write(phone->readAll()); });
    connect(phone, &QTcpSocket::disconnected, &peer, &QTcpSocket::disconnectFromHost);
    connect(phone, &QTcpSocket::errorOccurred, &peer, &QTcpSocket::disconnectFromHost);
    connect(&peer, &QTcpSocket::readyRead, phone, [&peer, phone] { phone->write(peer.readAll()); });
    phone->connectToHost(QHostAddress::LocalHost, behind_.Port());
    phone->write(peer.readAll());
}

}  // namespace quorvi
