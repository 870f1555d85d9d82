// Presses keys as a user does.
#pragma once

#include <gtest/gtest.h>

#include <QTest>
#include <QWidget>
#include <QWindow>

#include "tests/support/WaitFor.h"

namespace quorvi {

// In a control that has the focus, in the active window.
inline void PressKeyIn(QWidget& control, Qt::Key key, Qt::KeyboardModifiers held = Qt::NoModifier) {
    control.window()->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(control.window(), kPatience));
    control.setFocus();
    QTest::keyClick(control.window()->windowHandle(), key, held);
}

}  // namespace quorvi
