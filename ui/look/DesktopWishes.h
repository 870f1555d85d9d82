// What the desktop asks of every program: more contrast, dark, less motion.
#pragma once

#include <QObject>
#include <QString>
#include <QVariant>

class QDBusVariant;

namespace quorvi {

// Asks the desktop's portal for its wishes without waiting, hands them to the look, and follows
// their changes. On a desktop without a portal, or without a bus, nothing is asked for. The
// window's thread.
class DesktopWishes : public QObject {
    Q_OBJECT
  public:
    explicit DesktopWishes(QObject* parent);

    // Asks over the session's bus. Call it once the application runs.
    void Ask();
    // One setting of the portal: what it says goes to the look; others are not looked at.
    static void Take(const QString& group, const QString& key, const QVariant& value);

  private Q_SLOTS:
    void OnSettingChanged(const QString& group, const QString& key, const QDBusVariant& value);
};

}  // namespace quorvi
