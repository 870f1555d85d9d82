// Finds and presses what stands in open dialogs.
#pragma once

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QApplication>

#include "ui/kit/ControlNumber.h"
#include "ui/kit/SkinDialog.h"

namespace quorvi {

// The open dialog of a number, or null.
[[nodiscard]] inline SkinDialog* OpenDialog(int number) {
    for (QWidget* widget : QApplication::topLevelWidgets()) {
        auto* dialog = qobject_cast<SkinDialog*>(widget);
        if (dialog != nullptr && dialog->isVisible() &&
            dialog->objectName() == QStringLiteral("dialog %1").arg(number)) {
            return dialog;
        }
    }
    return nullptr;
}

// Presses a button of the open dialog of a number.
inline void PressIn(int number, int control) {
    SkinDialog* dialog = OpenDialog(number);
    ASSERT_NE(dialog, nullptr) << "dialog " << number;
    auto* button = FindControl<QAbstractButton>(dialog, control);
    ASSERT_NE(button, nullptr) << control;
    button->click();
}

}  // namespace quorvi
