// A text in which the part that was looked for stands out.
#pragma once

#include <QFont>
#include <QPainter>
#include <QRect>
#include <QString>

namespace quorvi {

// A part of a text, in the units of its UTF-16.
struct TextPart {
    int begin = 0;
    int length = 0;
};

// Draws a text of one line with the painter's pen, the part in bold and, unless `enabled` is false,
// in the colour of links; in high contrast underlined, too. Where the line is cut off, what is left
// of the part stands out.
void DrawFoundText(QPainter& painter, const QRect& area, const QString& text, const QFont& font,
                   Qt::Alignment alignment, const TextPart& part, bool enabled);

}  // namespace quorvi
