#include "ui/look/DesktopWishes.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusVariant>
#include <QGuiApplication>
#include <array>
#include <string_view>

#include "ui/look/Look.h"
#include "ui/look/Theme.h"

namespace quorvi {
namespace {

const QString kService = QStringLiteral("org.freedesktop.portal.Desktop");
const QString kPath = QStringLiteral("/org/freedesktop/portal/desktop");
const QString kInterface = QStringLiteral("org.freedesktop.portal.Settings");

// A setting of the portal and what it means here.
struct Wish {
    std::u16string_view group;
    std::u16string_view key;
    void (*take)(const QVariant& value);
};

constexpr std::array<Wish, 3> kWishes{{
    {u"org.freedesktop.appearance", u"contrast",  // 1: more contrast
     [](const QVariant& value) {
         look::SetReadableInks(value.toUInt() == 1, look::InkReason::desktop);
         look::SetDesktopContrast(value.toUInt() == 1);
     }},
    {u"org.freedesktop.appearance", u"color-scheme",  // 1: dark, 2: light, 0: no wish
     [](const QVariant& value) { look::SetDesktopDark(value.toUInt() == 1); }},
    {u"org.gnome.desktop.interface", u"enable-animations",
     [](const QVariant& value) { look::SetLessMotion(!value.toBool()); }},
}};

// The portal's value, which comes wrapped in one or two D-Bus variants.
QVariant Unwrapped(QVariant value) {
    while (value.canConvert<QDBusVariant>()) {
        value = value.value<QDBusVariant>().variant();
    }
    return value;
}

}  // namespace

DesktopWishes::DesktopWishes(QObject* parent) : QObject(parent) {}

void DesktopWishes::Take(const QString& group, const QString& key, const QVariant& value) {
    const QVariant plain = Unwrapped(value);
    for (const Wish& wish : kWishes) {
        if (plain.isValid() && group == QStringView(wish.group) && key == QStringView(wish.key)) {
            wish.take(plain);
        }
    }
}

void DesktopWishes::Ask() {
    const QString platform = QGuiApplication::platformName();
    if (platform == QStringLiteral("offscreen") || platform == QStringLiteral("minimal")) {
        return;  // no desktop
    }
    QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.isConnected()) {
        return;
    }
    bus.connect(kService, kPath, kInterface, QStringLiteral("SettingChanged"), this,
                SLOT(OnSettingChanged(QString, QString, QDBusVariant)));
    for (const Wish& wish : kWishes) {
        const QString group = QStringView(wish.group).toString();
        const QString key = QStringView(wish.key).toString();
        QDBusMessage call =
            QDBusMessage::createMethodCall(kService, kPath, kInterface, QStringLiteral("Read"));
        call << group << key;
        auto* watcher = new QDBusPendingCallWatcher(bus.asyncCall(call), this);
        connect(watcher, &QDBusPendingCallWatcher::finished, this, [group, key, watcher] {
            const QDBusPendingReply<QDBusVariant> reply = *watcher;
            if (!reply.isError()) {
                Take(group, key, reply.value().variant());
            }
            watcher->deleteLater();
        });
    }
}

void DesktopWishes::OnSettingChanged(const QString& group, const QString& key,
                                     const QDBusVariant& value) {
    Take(group, key, value.variant());
}

}  // namespace quorvi
