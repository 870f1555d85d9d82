#include "ui/page/FocusKeeper.h"

namespace quorvi {

FocusKeeper::FocusKeeper(const QWidget& controls) {
    QWidget* window = controls.window();
    if (QWidget* focus = window->focusWidget(); focus && controls.isAncestorOf(focus)) {
        had_ = focus;
        window->setFocus();
    }
}

void FocusKeeper::GiveBack() const {
    if (had_ && had_->isVisible() && had_->window()->focusWidget() == had_->window()) {
        had_->setFocus();
    }
}

}  // namespace quorvi
