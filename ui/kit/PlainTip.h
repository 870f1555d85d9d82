// Tool tips for texts that came from elsewhere.
#pragma once

#include <QTextDocument>
#include <QToolTip>

namespace quorvi {

// `text` in lines that fit on a screen, whether or not it has blanks.
inline QString BrokenForTip(const QString& text) {
    constexpr int kTipLine = 60;  // characters
    QString broken;
    int line = 0;
    for (const QChar character : text) {
        if (line >= kTipLine && !character.isLowSurrogate()) {
            broken += QLatin1Char('\n');
            line = 0;
        }
        broken += character;
        line = character == QLatin1Char('\n') ? 0 : line + 1;
    }
    return broken;
}

// Shows `text` as it stands, whatever marks of formatting it holds.
inline void ShowPlainTip(const QPoint& at, const QString& text, QWidget* widget,
                         const QRect& area = {}) {
    QString shown = BrokenForTip(text);
    if (Qt::mightBeRichText(shown)) {
        // Qt takes this text for rich text, so its marks are escaped; the <qt> around it keeps Qt
        // from taking the escaped text for plain text and showing the escapes.
        shown = QStringLiteral("<qt>%1</qt>").arg(shown.toHtmlEscaped());
        shown.replace(QLatin1Char('\n'), QStringLiteral("<br>"));
    }
    QToolTip::showText(at, shown, widget, area);
}

}  // namespace quorvi
