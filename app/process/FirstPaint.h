// The moment from which on a window is seen.
#pragma once

#include <QWidget>
#include <functional>

namespace quorvi {

// Calls `then` once, on the window's thread, when the window has been painted for the first time
// and what was painted has gone to the screen. Never for a window that is not shown.
void AfterFirstPaint(QWidget& window, std::function<void()> then);

}  // namespace quorvi
