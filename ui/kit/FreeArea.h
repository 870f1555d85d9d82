// Where on the desktop a window may stand: what its panels leave of the screens.
#pragma once

#include <QList>
#include <QRect>

namespace quorvi {

// What the desktop leaves free of each screen, the primary screen's first. The window's thread.
[[nodiscard]] QList<QRect> FreeAreas();

// The area that holds most of `place`; the first where none holds any of it. `place` itself when
// there are no areas.
[[nodiscard]] QRect AreaFor(const QRect& place, const QList<QRect>& areas);

// `place` with its size reduced to that of `area` where it is larger, and moved so that it lies in
// `area` whole.
[[nodiscard]] QRect BroughtInto(const QRect& place, const QRect& area);

}  // namespace quorvi
