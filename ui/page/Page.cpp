#include "ui/page/Page.h"

#include <QLineEdit>
#include <QPlainTextEdit>

#include "ui/kit/ControlNumber.h"

namespace quorvi {

namespace {

bool IsWrittenIn(const QWidget* field) {
    const auto* line = qobject_cast<const QLineEdit*>(field);
    const auto* text = qobject_cast<const QPlainTextEdit*>(field);
    return (line != nullptr && !line->isReadOnly()) || (text != nullptr && !text->isReadOnly());
}

}  // namespace

Page::Page(PageHost& host, int dialog, QWidget* parent) : QWidget(parent), host_(host) {
    SetDialogNumber(*this, dialog);
}

void Page::OnCommand(int index) {
    if (isEnabled()) {
        RunCommand(index);
    }
}

void Page::SetCountLine(const QString& text) {
    if (text != countLine_) {
        countLine_ = text;
        Q_EMIT countLineChanged(countLine_);
    }
}

bool Page::MayTakeFocus() const {
    return isVisible() && !IsWrittenIn(window()->focusWidget());
}

void Page::FocusFilled(QWidget& control) const {
    if (MayTakeFocus()) {
        control.setFocus();
    }
}

void Page::OfferCommand(int index) {
    if (MayTakeFocus()) {
        Q_EMIT commandOffered(index);
    }
}

}  // namespace quorvi
