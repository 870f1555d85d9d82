#include "app/platform/BusNotifier.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QVariantMap>

#include "ui/kit/QtText.h"
#include "ui/page/Job.h"

namespace quorvi {
namespace {

constexpr uint kNoNotice = 0;
constexpr int kAnswerTimeMs = 2000;
constexpr int kBalloonMs = 10000;

const QString kService = QStringLiteral("org.freedesktop.Notifications");
const QString kPath = QStringLiteral("/org/freedesktop/Notifications");
const QString kDefaultAction = QStringLiteral("default");

// Waits for the bus to answer: called on a worker only.
uint SendNotice(const QString& title, const QString& text) {
    const QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.isConnected()) {
        return kNoNotice;
    }
    QDBusMessage call =
        QDBusMessage::createMethodCall(kService, kPath, kService, QStringLiteral("Notify"));
    const QStringList actions{kDefaultAction, ToQString(u8"显示控制中心")};
    call << QStringLiteral("Quorvi") << kNoNotice << QStringLiteral("quorvi") << title << text
         << actions << QVariantMap() << kBalloonMs;
    const QDBusMessage reply = bus.call(call, QDBus::Block, kAnswerTimeMs);
    return reply.type() == QDBusMessage::ReplyMessage && !reply.arguments().isEmpty()
               ? reply.arguments().constFirst().toUInt()
               : kNoNotice;
}

}  // namespace

void BusNotifier::Notify(const QString& title, const QString& text, std::function<void()> failed) {
    RunJob(
        this, [title, text] { return SendNotice(title, text); },
        [this, failed = std::move(failed)](uint id) {
            if (id == kNoNotice) {
                failed();
            } else {
                OnShown(id);
            }
        });
}

void BusNotifier::Listen(std::function<void()> clicked) {
    clicked_ = std::move(clicked);
}

void BusNotifier::OnShown(uint id) {
    ids_.insert(id);
    if (!listening_) {
        // The worker has connected to the bus, so this call on the window's thread does not wait.
        listening_ = QDBusConnection::sessionBus().connect(kService, kPath, kService,
                                                           QStringLiteral("ActionInvoked"), this,
                                                           SLOT(OnAction(uint, QString)));
    }
}

void BusNotifier::OnAction(uint id, const QString& action) {
    if (ids_.contains(id) && action == kDefaultAction && clicked_) {
        clicked_();
    }
}

}  // namespace quorvi
