#include "app/platform/RunningInstance.h"

#include <unistd.h>

#include <QDir>
#include <QLocalSocket>
#include <QStandardPaths>

namespace quorvi {
namespace {

// Part of the socket's name: the number by which a running instance is known on every platform.
constexpr int kInstanceValue = 1103;
constexpr int kConnectTimeMs = 1000;

QString SocketOfUserAndDisplay() {
    QString folder = qEnvironmentVariable("XDG_RUNTIME_DIR");
    QString name = QStringLiteral("Quorvi-%1").arg(kInstanceValue);
    if (folder.isEmpty() || !QDir(folder).exists()) {
        folder = QDir::tempPath();
        name += QStringLiteral("-%1").arg(::getuid());
    }
    QString display = qEnvironmentVariable("WAYLAND_DISPLAY");
    if (display.isEmpty()) {
        display = qEnvironmentVariable("DISPLAY");
    }
    for (QChar& character : display) {
        if (!character.isLetterOrNumber()) {
            character = QLatin1Char('_');
        }
    }
    return folder + QLatin1Char('/') + name + display;
}

}  // namespace

LocalSocketInstance::LocalSocketInstance() : LocalSocketInstance(SocketOfUserAndDisplay()) {}

LocalSocketInstance::LocalSocketInstance(QString socketPath) : socketPath_(std::move(socketPath)) {
    server_.setSocketOptions(QLocalServer::UserAccessOption);
    QObject::connect(&server_, &QLocalServer::newConnection, &server_, [this] {
        while (QLocalSocket* second = server_.nextPendingConnection()) {
            second->abort();
            second->deleteLater();
            show_();
        }
    });
}

bool LocalSocketInstance::ShowOther() {
    QLocalSocket other;
    other.connectToServer(socketPath_);
    return other.waitForConnected(kConnectTimeMs);
}

void LocalSocketInstance::Announce(std::function<void()> show) {
    show_ = std::move(show);
    if (server_.listen(socketPath_)) {
        return;
    }
    // The file is there already. If nobody answers behind it, an instance that was killed left it.
    if (!ShowOther()) {
        QLocalServer::removeServer(socketPath_);
        server_.listen(socketPath_);
    }
}

void LocalSocketInstance::Withdraw() {
    server_.close();
}

}  // namespace quorvi
