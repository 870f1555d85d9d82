// Notices over the session bus, by org.freedesktop.Notifications.
#pragma once

#include <QObject>
#include <QSet>

#include "app/platform/Notifier.h"

namespace quorvi {

class BusNotifier : public QObject, public Notifier {
    Q_OBJECT
  public:
    void Notify(const QString& title, const QString& text, std::function<void()> failed) override;
    void Listen(std::function<void()> clicked) override;

    // How many notices the desktop has shown.
    [[nodiscard]] int Shown() const { return static_cast<int>(ids_.size()); }

  private Q_SLOTS:
    void OnAction(uint id, const QString& action);

  private:
    void OnShown(uint id);

    std::function<void()> clicked_;
    QSet<uint> ids_;
    bool listening_ = false;
};

}  // namespace quorvi
