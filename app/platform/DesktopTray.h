// The tray of the desktop: a status notifier on the session bus, or the embedded icon of X11.
#pragma once

#include <QObject>
#include <QSystemTrayIcon>
#include <QTimer>
#include <memory>

#include "app/platform/Tray.h"

namespace quorvi {

class BalloonCard;
class CSkinMenu;

class DesktopTray : public QObject, public Tray {
    Q_OBJECT
  public:
    DesktopTray();
    ~DesktopTray() override;

    void Listen(TrayEvents events) override;
    [[nodiscard]] bool Available() const override;
    void Add(const QString& tip) override;
    bool ShowBalloon(const QString& title, const QString& text) override;
    void Remove() override;

  private:
    void Watch();

    TrayEvents events_;
    QSystemTrayIcon icon_;
    std::unique_ptr<CSkinMenu> menu_;
    std::unique_ptr<BalloonCard> balloon_;
    QTimer watch_;
    bool available_ = false;
};

}  // namespace quorvi
