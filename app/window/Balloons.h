// Balloons: short notices with a title.
#pragma once

#include <QPointer>
#include <QString>

class QWidget;

namespace quorvi {

class BalloonCard;
class Notifier;
class Tray;

// Shows a balloon where there is a place for one: at the tray icon; without a tray as a notice of
// the desktop; without that as a card inside the window. The window's thread; all that it is given
// outlives it.
class Balloons {
  public:
    Balloons(Tray& tray, Notifier& notifier, QWidget& window)
        : tray_(tray), notifier_(notifier), window_(window) {}

    void Show(const QString& title, const QString& text);
    // Takes away a card that stands inside the window.
    void HideCard();

  private:
    Tray& tray_;
    Notifier& notifier_;
    QWidget& window_;
    QPointer<BalloonCard> card_;
};

}  // namespace quorvi
