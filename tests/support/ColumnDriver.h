// Drags the columns of a list as a user does.
#pragma once

#include <QTableView>
#include <QTest>

#include "ui/list/SkinHeader.h"

namespace quorvi {

// Drags the border behind a column by so many pixels to the right.
inline void DragColumn(QTableView& list, int border, int by) {
    auto& head = *static_cast<CSkinHeader*>(list.horizontalHeader());
    const QPoint from = head.GripRect(border).center();
    QTest::mousePress(head.viewport(), Qt::LeftButton, {}, from);
    QTest::mouseMove(head.viewport(), from + QPoint(by, 0));
    QTest::mouseRelease(head.viewport(), Qt::LeftButton, {}, from + QPoint(by, 0));
}

}  // namespace quorvi
