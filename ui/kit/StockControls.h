// The controls of Qt's own dialogs, which choose files where the desktop has no dialog for that:
// painted as the kit's are. For the application's style; the window's thread.
#pragma once

#include <QIcon>
#include <QStyle>

class QPainter;
class QStyleOption;
class QStyleOptionComboBox;

namespace quorvi {

// Whether a widget is one of these dialogs, and whether it stands in one.
[[nodiscard]] bool IsStockDialog(const QWidget* widget);
[[nodiscard]] bool IsInStockDialog(const QWidget* widget);

// The ground of a button with a caption, and of one with a picture alone.
void PaintStockButton(QPainter& painter, const QStyleOption& button);
void PaintStockTool(QPainter& painter, const QStyleOption& button);
// Where the focus is, of what has no other sign of it: a tool, a row.
void PaintStockFocus(QPainter& painter, const QStyleOption& focused, const QWidget& widget);
// The frame and the arrow of a combo box.
void PaintStockCombo(QPainter& painter, const QStyleOptionComboBox& combo);
// The ground of a section of a list's head.
void PaintStockHead(QPainter& painter, const QRect& section);
// The picture of a tool, in the colours of the theme; null for what is none of theirs.
[[nodiscard]] QIcon StockIcon(QStyle::StandardPixmap picture);

}  // namespace quorvi
