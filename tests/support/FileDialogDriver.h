// Finds the open file dialog, and answers it as a user does.
#pragma once

#include <gtest/gtest.h>

#include <QApplication>
#include <QFileDialog>
#include <QLineEdit>

namespace quorvi {

// The open file dialog, or null.
[[nodiscard]] inline QFileDialog* OpenFileDialog() {
    for (QWidget* widget : QApplication::topLevelWidgets()) {
        if (auto* dialog = qobject_cast<QFileDialog*>(widget); dialog && dialog->isVisible()) {
            return dialog;
        }
    }
    return nullptr;
}

// For the end of a test, which may have failed in between.
inline void CloseFileDialog() {
    if (QFileDialog* dialog = OpenFileDialog()) {
        dialog->close();
    }
}

// Types a name into the dialog, and ends it as its button does.
inline void AnswerFileDialog(const QString& name) {
    QFileDialog* dialog = OpenFileDialog();
    ASSERT_NE(dialog, nullptr);
    dialog->findChild<QLineEdit*>(QStringLiteral("fileNameEdit"))->setText(name);
    static_cast<QDialog*>(dialog)->accept();
}

}  // namespace quorvi
