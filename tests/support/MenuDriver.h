// The menu of a list's row, as a user opens it and chooses from it.
#pragma once

#include <gtest/gtest.h>

#include <QContextMenuEvent>

#include "tests/support/ControlDriver.h"
#include "ui/kit/SkinMenu.h"

namespace quorvi {

// Opens the menu of a row with the right button; `page` is the one that makes it.
inline CSkinMenu* OpenRowMenu(const QWidget& page, CSkinListCtrl& list, int row, int column) {
    const QPoint at = PlaceOf(list, row, column);
    QTest::mouseClick(list.viewport(), Qt::RightButton, {}, at);
    QContextMenuEvent event(QContextMenuEvent::Mouse, at, list.viewport()->mapToGlobal(at));
    QApplication::sendEvent(list.viewport(), &event);
    return page.findChild<CSkinMenu*>();
}

// Chooses from an open menu by Enter, which closes it. The test fails where it has no such command.
inline void ChooseFrom(CSkinMenu* menu, int command) {
    ASSERT_NE(menu, nullptr);
    for (QAction* item : menu->actions()) {
        if (CSkinMenu::CommandOf(item) == command) {
            menu->setActiveAction(item);
            QTest::keyClick(menu, Qt::Key_Return);
            return;
        }
    }
    FAIL() << "no command " << command;
}

}  // namespace quorvi
