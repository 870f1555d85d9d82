// A walk through a window by the interface that screen readers use.
#pragma once

#include <QStringList>

class QWidget;

namespace quorvi {

// What of the window's visible parts an assistive tool could not work with, a line each: a control
// without a name or with that of another, without a role of its own or without the action that its
// role has, a combo box that is called by its entry, a cell without words. Empty when all is well.
[[nodiscard]] QStringList AccessibleFaults(QWidget& window);

// How many controls and cells the same walk looks at.
[[nodiscard]] int AccessibleParts(QWidget& window);

}  // namespace quorvi
