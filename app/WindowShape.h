// Round corners of the frameless window: a translucent window where the desktop composes windows,
// else a mask.
#pragma once

#include <QPainterPath>

class QWidget;

namespace quorvi {

// Before the window is made.
void PrepareRoundCorners(QWidget& window);
// At each change of the window's size or state.
void ShapeRoundCorners(QWidget& window);
// The shape of the window: round corners, none when it fills the screen.
[[nodiscard]] QPainterPath RoundShape(const QWidget& window);

}  // namespace quorvi
