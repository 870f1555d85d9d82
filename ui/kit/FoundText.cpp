#include "ui/kit/FoundText.h"

#include <QTextLayout>
#include <QTextOption>

#include "ui/look/Look.h"

namespace quorvi {

void DrawFoundText(QPainter& painter, const QRect& area, const QString& text, const QFont& font,
                   Qt::Alignment alignment, const TextPart& part, bool enabled) {
    QTextLayout::FormatRange found;
    found.start = part.begin;
    found.length = part.length;
    QFont bold = font;
    bold.setBold(true);
    // In high contrast the colours are too near to white to be told apart.
    bold.setUnderline(look::CurrentTheme() == look::Theme::contrast);
    found.format.setFont(bold);
    if (enabled) {
        found.format.setForeground(look::color(look::Color::plum7));
    }
    QTextLayout line(QFontMetrics(bold).elidedText(text, Qt::ElideRight, area.width()), font);
    QTextOption option(alignment);
    option.setWrapMode(QTextOption::NoWrap);
    line.setTextOption(option);
    line.setFormats({found});
    line.beginLayout();
    QTextLine whole = line.createLine();
    whole.setLineWidth(area.width());
    line.endLayout();
    line.draw(&painter, QPointF(area.left(), area.top() + (area.height() - whole.height()) / 2));
}

}  // namespace quorvi
