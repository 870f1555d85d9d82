// Uses the kit's controls as a user does: with the mouse, and with text from an input method.
#pragma once

#include <QApplication>
#include <QInputMethodEvent>
#include <QTest>
#include <QTreeWidgetItem>
#include <QWidget>

#include "ui/kit/SkinTree.h"
#include "ui/list/SkinListCtrl.h"

namespace quorvi {

// A press with the mouse in the middle of a control.
inline void ClickOn(QWidget& control) {
    QTest::mouseClick(&control, Qt::LeftButton);
}

// Puts text in the place of a field's own.
inline void Type(QWidget& field, const QString& text) {
    QTest::keyClick(&field, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(&field, Qt::Key_Delete);
    QInputMethodEvent event;
    event.setCommitString(text);
    QApplication::sendEvent(&field, &event);
}

// The place of a cell, scrolled into view; in the list's viewport.
[[nodiscard]] inline QPoint PlaceOf(CSkinListCtrl& list, int row, int column) {
    list.scrollTo(list.model()->index(row, column));
    return list.CellRect(row, column).center();
}

inline void ClickCell(CSkinListCtrl& list, int row, int column) {
    QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, PlaceOf(list, row, column));
}

inline void DoubleClickCell(CSkinListCtrl& list, int row, int column) {
    QTest::mouseDClick(list.viewport(), Qt::LeftButton, {}, PlaceOf(list, row, column));
}

// Flips the tick of a node that can be scrolled to.
inline void ClickTick(CSkinTree& tree, QTreeWidgetItem& node) {
    tree.scrollToItem(&node);
    QTest::mouseClick(tree.viewport(), Qt::LeftButton, {}, tree.TickRect(&node).center());
}

}  // namespace quorvi
