// The edges and corners of a window without the desktop's frame, by which its user resizes it.
#pragma once

#include <QRect>

class QSize;
class QWidget;

namespace quorvi {

class ResizeEdges {
  public:
    // Lays a grip along each edge and into each corner of `window`, over all that the window holds
    // now. A grip shows the cursor of its direction and has the desktop resize the window with the
    // pointer; where the desktop does not do that, the grip does it itself. A window that fills its
    // screen has none. Call it once, when the window has its children.
    static void Attach(QWidget& window);
    // What `place` becomes when these edges of it are moved by `by`, at least of size `least`. The
    // other edges stay.
    [[nodiscard]] static QRect Dragged(const QRect& place, Qt::Edges edges, QPoint by, QSize least);
};

}  // namespace quorvi
