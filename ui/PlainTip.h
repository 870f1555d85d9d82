// Tool tips for texts that came from elsewhere.
#pragma once

#include <QTextDocument>
#include <QToolTip>

namespace quorvi {

// Shows `text` as it stands, whatever marks of formatting it holds.
inline void ShowPlainTip(const QPoint& at, const QString& text, QWidget* widget,
                         const QRect& area = {}) {
    QString shown = text;
    if (Qt::mightBeRichText(text)) {
        // Escaping alone would show its own marks: what is left must be rich text for certain.
        shown = QStringLiteral("<qt>%1</qt>").arg(text.toHtmlEscaped());
        shown.replace(QLatin1Char('\n'), QStringLiteral("<br>"));
    }
    QToolTip::showText(at, shown, widget, area);
}

}  // namespace quorvi
