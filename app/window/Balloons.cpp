#include "app/window/Balloons.h"

#include "app/platform/BalloonCard.h"
#include "app/platform/Notifier.h"
#include "app/platform/Tray.h"

namespace quorvi {

void Balloons::Show(const QString& title, const QString& text) {
    if (tray_.ShowBalloon(title, text)) {
        return;
    }
    // The desktop's answer may come when the window is gone.
    notifier_.Notify(title, text, [this, window = QPointer<QWidget>(&window_), title, text] {
        if (!window) {
            return;
        }
        if (!card_) {
            card_ = new BalloonCard(window);
        }
        card_->Show(title, text);
    });
}

void Balloons::HideCard() {
    delete card_;
}

}  // namespace quorvi
