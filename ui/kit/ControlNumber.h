// Controls and dialogs are found by number: by a test, a screen reader and a script alike.
#pragma once

#include <QLabel>
#include <QString>
#include <QWidget>

namespace quorvi {

namespace detail {
// With QUORVI_CONTROL_NUMBERS=1 the number is what assistive tools read as the description; without
// it descriptions are for people.
inline void DescribeByNumber(QWidget& widget) {
    if (qEnvironmentVariableIntValue("QUORVI_CONTROL_NUMBERS") == 1) {
        widget.setAccessibleDescription(widget.objectName());
    }
}
}  // namespace detail

// Gives a control its number as object name, and its accessible name. A label whose text is to be
// read takes no name of its own, since that would hide the text.
template <typename Control>
Control* SetControlNumber(Control* control, int number, const QString& name = {}) {
    control->setObjectName(QString::number(number));
    if (!name.isEmpty() && qobject_cast<QLabel*>(control) == nullptr) {
        control->setAccessibleName(name);
    }
    detail::DescribeByNumber(*control);
    return control;
}

// Gives a dialog or page its number: "dialog 130".
inline void SetDialogNumber(QWidget& dialog, int number) {
    dialog.setObjectName(QStringLiteral("dialog %1").arg(number));
    detail::DescribeByNumber(dialog);
}

// The control of a number below `parent`, or null.
template <typename Control = QWidget>
[[nodiscard]] Control* FindControl(const QWidget* parent, int number) {
    return parent->findChild<Control*>(QString::number(number));
}

}  // namespace quorvi
