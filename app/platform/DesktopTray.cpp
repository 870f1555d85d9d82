#include "app/platform/DesktopTray.h"

#include <QIcon>

#include "app/platform/BalloonCard.h"
#include "app/platform/TrayMenu.h"
#include "ui/kit/SkinMenu.h"

namespace quorvi {
namespace {

// How often the watch asks whether there is a tray. The platform has the answer in memory, whether
// the tray is one of X11 or of the session bus, so asking costs nothing.
constexpr int kWatchMs = 2000;
constexpr int kBalloonMs = 10000;
constexpr int kEmbedMs = 250;

}  // namespace

DesktopTray::DesktopTray() : menu_(std::make_unique<CSkinMenu>()) {
    FillTrayMenu(*menu_);
    // The desktop opens the menu when the icon is pressed: this one, or one that its shell draws.
    icon_.setContextMenu(menu_.get());
    icon_.setIcon(QIcon(QStringLiteral(":/icons/logo.svg")));
    connect(menu_.get(), &CSkinMenu::commandChosen, this,
            [this](int command) { events_.command(static_cast<TrayCommand>(command)); });
    connect(&icon_, &QSystemTrayIcon::activated, this,
            [this](QSystemTrayIcon::ActivationReason reason) {
                if (reason == QSystemTrayIcon::Trigger) {
                    events_.mouse(TrayMouse::leftDown);
                } else if (reason == QSystemTrayIcon::DoubleClick) {
                    events_.mouse(TrayMouse::leftDouble);
                }
            });
    watch_.setInterval(kWatchMs);
    connect(&watch_, &QTimer::timeout, this, &DesktopTray::Watch);
}

DesktopTray::~DesktopTray() = default;

void DesktopTray::Listen(TrayEvents events) {
    events_ = std::move(events);
}

bool DesktopTray::Available() const {
    return QSystemTrayIcon::isSystemTrayAvailable();
}

void DesktopTray::Add(const QString& tip) {
    icon_.setToolTip(tip);
    available_ = Available();
    icon_.setVisible(available_);
    watch_.start();
}

bool DesktopTray::ShowBalloon(const QString& title, const QString& text) {
    // Without a tray supportsMessages() still says true, but nothing would be shown.
    if (!Available() || !icon_.isVisible() || !QSystemTrayIcon::supportsMessages()) {
        return false;
    }
    if (icon_.geometry().isEmpty()) {
        // The shell draws the icon, so only the shell knows where a balloon belongs.
        icon_.showMessage(title, text, icon_.icon(), kBalloonMs);
        return true;
    }
    // An icon that was just added gets its place in the tray a moment later.
    QTimer::singleShot(kEmbedMs, this, [this, title, text] {
        if (!balloon_) {
            balloon_ = std::make_unique<BalloonCard>(nullptr);
        }
        balloon_->PointAt(icon_.geometry());
        balloon_->Show(title, text);
    });
    return true;
}

void DesktopTray::Remove() {
    watch_.stop();
    icon_.hide();
}

void DesktopTray::Watch() {
    const bool available = Available();
    if (available && !available_) {
        events_.recreated();
    } else if (!available && available_) {
        icon_.hide();
    }
    available_ = available;
}

}  // namespace quorvi
