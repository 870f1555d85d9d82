// A site that answers as a test says: at once, later or never, in good form or bad. It lives on the
// window's thread, which has to run meanwhile.
#pragma once

#include <QHostAddress>
#include <QPointer>
#include <QTcpServer>
#include <QTcpSocket>
#include <algorithm>
#include <string>
#include <utility>
#include <vector>

namespace quorvi {

class ScriptedSite : public QTcpServer {
  public:
    ScriptedSite() {
        connect(this, &QTcpServer::newConnection, this, [this] { Take(nextPendingConnection()); });
        listen(QHostAddress::LocalHost);
    }

    // http://127.0.0.1:PORT/
    [[nodiscard]] std::string Root() const {
        return "http://127.0.0.1:" + std::to_string(serverPort()) + "/";
    }

    // What it answers from now on: a page, or any bytes. Then it closes.
    void AnswerPage(const std::string& body, const std::string& status = "200 OK") {
        AnswerBytes("HTTP/1.1 " + status + "\r\nContent-Length: " + std::to_string(body.size()) +
                    "\r\n\r\n" + body);
    }
    void AnswerBytes(const std::string& bytes) { answer_ = QByteArray::fromStdString(bytes); }
    // Behind each answer come so many bytes of blanks, as fast as they are taken.
    void GoOnFor(qint64 bytes) { more_ = bytes; }
    // Holds back every answer until Release.
    void Hold() { held_ = true; }
    void Release() {
        held_ = false;
        for (const QPointer<QTcpSocket>& peer : std::exchange(waiting_, {})) {
            if (peer != nullptr) {
                Answer(peer);
            }
        }
    }

    // The bodies of all requests so far.
    [[nodiscard]] const std::vector<std::string>& Bodies() const { return bodies_; }

  private:
    void Take(QTcpSocket* peer) {
        connect(peer, &QTcpSocket::disconnected, peer, &QObject::deleteLater);
        connect(peer, &QTcpSocket::readyRead, this, [this, peer, request = QByteArray()]() mutable {
            request += peer->readAll();
            const qsizetype end = request.indexOf("\r\n\r\n");
            if (end < 0 || request.size() - end - kGap.size() < LengthOf(request.left(end))) {
                return;
            }
            bodies_.push_back(request.mid(end + kGap.size()).toStdString());
            if (held_) {
                waiting_.emplace_back(peer);
            } else {
                Answer(peer);
            }
        });
    }
    static qsizetype LengthOf(const QByteArray& head) {
        constexpr QByteArrayView kLength = "Content-Length:";
        const qsizetype at = head.indexOf(kLength);
        return at < 0 ? 0 : head.mid(at + kLength.size()).split('\r')[0].trimmed().toLongLong();
    }
    void Answer(QTcpSocket* peer) {
        peer->write(answer_);
        if (more_ == 0) {
            peer->disconnectFromHost();
            return;
        }
        const auto feed = [peer, left = more_]() mutable {
            if (peer->bytesToWrite() > 0) {
                return;
            }
            const qint64 piece = std::min<qint64>(left, 1 << 20);
            left -= piece;
            if (piece > 0) {
                peer->write(QByteArray(piece, ' '));
            } else {
                peer->disconnectFromHost();
            }
        };
        connect(peer, &QTcpSocket::bytesWritten, peer, feed);
    }

    static constexpr QByteArrayView kGap = "\r\n\r\n";
    QByteArray answer_;
    qint64 more_ = 0;
    bool held_ = false;
    std::vector<QPointer<QTcpSocket>> waiting_;
    std::vector<std::string> bodies_;
};

}  // namespace quorvi
