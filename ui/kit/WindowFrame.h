// The edge of a window without the desktop's frame: one line around it and round corners.
#pragma once

#include <QRect>

class QPainter;
class QSize;
class QWidget;

namespace quorvi {

class WindowFrame {
  public:
    // Gives `window` its edge: a contents margin of the line's width (none while maximised), and
    // corners that are translucent where a compositor runs, masked where none does. Call it once,
    // before the window is shown.
    static void Attach(QWidget& window);
    // Paints the edge and clips the painter to what is inside. First thing in the window's paint
    // event; paint within `window.contentsRect()` after it.
    static void Paint(QPainter& painter, const QWidget& window);
    // The size of a window whose inside is `inner`.
    [[nodiscard]] static QSize Around(const QWidget& window, QSize inner);
    // Whether the desktop composes windows, so that a window may be translucent.
    [[nodiscard]] static bool HasCompositor();
};

}  // namespace quorvi
