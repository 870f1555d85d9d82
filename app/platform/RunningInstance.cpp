#include "app/platform/RunningInstance.h"

#include <unistd.h>

#include <QDir>
#include <QLocalSocket>
#include <algorithm>
#include <string>
#include <utility>

namespace quorvi {
namespace {

// Part of the socket's name: the number by which a running instance is known on every platform.
constexpr int kInstanceValue = 1103;
constexpr int kConnectTimeMs = 1000;

// Of an X display, what is in front of its screen; "unix" names this machine, as no name does.
QString XDisplay(QString display) {
    const qsizetype colon = display.lastIndexOf(QLatin1Char(':'));
    if (const qsizetype screen = display.indexOf(QLatin1Char('.'), colon);
        colon >= 0 && screen >= 0) {
        display.truncate(screen);
    }
    return display.startsWith(QStringLiteral("unix:")) ? display.mid(display.indexOf(u':'))
                                                       : display;
}

// A Wayland display is named by its socket, which may be given with its folder.
QString WaylandDisplay(const QString& display) {
    return display.section(QLatin1Char('/'), -1);
}

bool Answers(const QString& socket) {
    QLocalSocket other;
    other.connectToServer(socket);
    return other.waitForConnected(kConnectTimeMs);
}

}  // namespace

QStringList SocketsOfDisplays(const Environment& environment) {
    const auto value = [&](const char* name) {
        return QString::fromStdString(environment(name).value_or(std::string()));
    };
    QString folder = value("XDG_RUNTIME_DIR");
    QString name = QStringLiteral("Quorvi-%1").arg(kInstanceValue);
    if (folder.isEmpty() || !QDir(folder).exists()) {
        folder = QDir::tempPath();
        name += QStringLiteral("-%1").arg(::getuid());
    }
    QStringList displays = {WaylandDisplay(value("WAYLAND_DISPLAY")), XDisplay(value("DISPLAY"))};
    displays.removeAll(QString());
    if (displays.isEmpty()) {
        displays.append(QString());
    }
    QStringList sockets;
    for (QString& display : displays) {
        for (QChar& character : display) {
            if (!character.isLetterOrNumber()) {
                character = QLatin1Char('_');
            }
        }
        sockets.append(folder + QLatin1Char('/') + name + display);
    }
    return sockets;
}

LocalSocketInstance::LocalSocketInstance()
    : LocalSocketInstance(SocketsOfDisplays(TheEnvironment())) {}

LocalSocketInstance::LocalSocketInstance(QStringList sockets) : sockets_(std::move(sockets)) {}

bool LocalSocketInstance::ShowOther() {
    return std::ranges::any_of(sockets_, &Answers);
}

void LocalSocketInstance::Announce(std::function<void()> show) {
    show_ = std::move(show);
    for (const QString& socket : std::as_const(sockets_)) {
        Listen(socket);
    }
}

void LocalSocketInstance::Listen(const QString& socket) {
    auto server = std::make_unique<QLocalServer>();
    server->setSocketOptions(QLocalServer::UserAccessOption);
    QObject::connect(server.get(), &QLocalServer::newConnection, server.get(),
                     [this, from = server.get()] {
                         while (QLocalSocket* second = from->nextPendingConnection()) {
                             second->abort();
                             second->deleteLater();
                             show_();
                         }
                     });
    // Where the file is there already and nobody answers behind it, an instance that was killed
    // left it.
    if (!server->listen(socket) && !Answers(socket)) {
        QLocalServer::removeServer(socket);
        server->listen(socket);
    }
    servers_.push_back(std::move(server));
}

void LocalSocketInstance::Withdraw() {
    for (const auto& server : servers_) {
        server->close();
    }
}

}  // namespace quorvi
