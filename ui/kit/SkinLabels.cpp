#include "ui/kit/SkinLabels.h"

#include <QHelpEvent>
#include <QPainter>
#include <QPainterPath>
#include <algorithm>
#include <array>
#include <cmath>

#include "ui/kit/PlainTip.h"
#include "ui/look/Theme.h"

namespace quorvi {

using look::Color;
using look::Metric;
using look::Size;

namespace {

struct StateColors {
    Color dot;
    Color text;
};

// By state: 0 blue, 1 red, 2 green.
constexpr std::array<StateColors, 3> kStates{{{Color::blueMark, Color::statedBlue},
                                              {Color::redMark, Color::statedRed},
                                              {Color::greenMark, Color::statedGreen}}};

// The width that a label's text takes, in whole pixels.
int TextWidth(const QLabel& label) {
    return static_cast<int>(std::ceil(QFontMetricsF(label.font()).horizontalAdvance(label.text())));
}

}  // namespace

CSkinStateLabel::CSkinStateLabel(const QString& text, QWidget* parent) : QLabel(text, parent) {
    setTextFormat(Qt::PlainText);
    setFont(look::font(Size::s12));
}

void CSkinStateLabel::SetState(int state) {
    state_ = state >= 0 && state < static_cast<int>(kStates.size()) ? state : kBlue;
    update();
}

void CSkinStateLabel::SetState(int state, const QString& text) {
    setText(text);
    SetState(state);
}

void CSkinStateLabel::SetTip(const QString& tip) {
    tip_ = tip;
    setAccessibleDescription(tip);
}

QSize CSkinStateLabel::sizeHint() const {
    return {Metric::dot + Metric::dotGap + TextWidth(*this), Metric::stateHeight};
}

QSize CSkinStateLabel::minimumSizeHint() const {
    return {Metric::dot + Metric::dotGap, Metric::stateHeight};
}

void CSkinStateLabel::paintEvent(QPaintEvent*) {
    if (text().isEmpty()) {
        return;
    }
    QPainter painter(this);
    const StateColors& colors = kStates[static_cast<std::size_t>(state_)];
    const int space = width() - Metric::dot - Metric::dotGap;
    const bool fits = TextWidth(*this) <= space;
    const QString shown = fits ? text() : fontMetrics().elidedText(text(), Qt::ElideRight, space);
    const int words = fits ? TextWidth(*this) : space;
    const int left = (alignment() & Qt::AlignRight) != 0 ? space - words : 0;
    look::plate(painter, QRectF(left, (height() - Metric::dot) / 2.0, Metric::dot, Metric::dot),
                Metric::dot / 2.0, look::color(colors.dot), Qt::transparent);
    painter.setFont(font());
    painter.setPen(look::color(isEnabled() ? colors.text : Color::inkOff));
    painter.drawText(QRect(left + Metric::dot + Metric::dotGap, 0, words, height()),
                     Qt::AlignVCenter | Qt::AlignLeft, shown);
}

bool CSkinStateLabel::event(QEvent* event) {
    if (event->type() == QEvent::ToolTip) {
        QStringList lines;
        if (sizeHint().width() > width()) {
            lines.append(text());
        }
        if (!tip_.isEmpty()) {
            lines.append(tip_);
        }
        if (!lines.isEmpty()) {
            ShowPlainTip(static_cast<QHelpEvent*>(event)->globalPos(),
                         lines.join(QLatin1Char('\n')), this);
            return true;
        }
    }
    return QLabel::event(event);
}

ConnectionBannerLabel::ConnectionBannerLabel(QWidget* parent) : CSkinStateLabel(QString(), parent) {
    setAlignment(Qt::AlignRight | Qt::AlignVCenter);
}

PlainLabel::PlainLabel(const QString& text, Size size, Color ink, QWidget* parent, bool bold)
    : QLabel(text, parent) {
    setFont(look::font(size, bold));
    setTextFormat(Qt::PlainText);
    look::SetPaletteColor(*this, QPalette::WindowText, ink);
}

QSize ElidedLabel::minimumSizeHint() const {
    return {0, PlainLabel::minimumSizeHint().height()};
}

void ElidedLabel::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setFont(font());
    painter.setPen(palette().color(QPalette::WindowText));
    painter.drawText(rect(), Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine,
                     fontMetrics().elidedText(text(), Qt::ElideMiddle, width()));
}

bool ElidedLabel::event(QEvent* event) {
    if (event->type() == QEvent::ToolTip) {
        const auto* help = static_cast<QHelpEvent*>(event);
        if (fontMetrics().horizontalAdvance(text()) > width()) {
            ShowPlainTip(help->globalPos(), text(), this);
        } else {
            QToolTip::hideText();
        }
        return true;
    }
    return PlainLabel::event(event);
}

FormCaption::FormCaption(const QString& text, QWidget* parent)
    : PlainLabel(text, Size::s13, Color::ink2, parent) {
    setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    setFixedSize(Metric::formCaption, Metric::fieldHeight);
}

RemarkLabel::RemarkLabel(const QString& text, QWidget* parent)
    : PlainLabel(text, Size::s12, Color::ink2, parent) {}

CSkinProgress::CSkinProgress(QWidget* parent) : QProgressBar(parent) {
    setRange(0, 100);
    setValue(0);
    setFormat(QStringLiteral("%p %"));
}

QSize CSkinProgress::sizeHint() const {
    return {QProgressBar::sizeHint().width(), Metric::progressHeight};
}

void CSkinProgress::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const int span = maximum() - minimum();
    const int percent = span > 0 ? static_cast<int>((qint64{value()} - minimum()) * 100 / span) : 0;
    QRectF bar(0, (height() - Metric::progressHeight) / 2.0, width(), Metric::progressHeight);
    look::paintProgress(painter, bar, percent);
}

CSkinGroupBox::CSkinGroupBox(const QString& caption, QWidget* parent) : QGroupBox(caption, parent) {
    setContentsMargins(Metric::groupPadding, Metric::groupCaption + Metric::groupFoot,
                       Metric::groupPadding, Metric::groupFoot);
    look::SetPaletteColor(*this, QPalette::Window, Color::surface);
}

void CSkinGroupBox::SetCaptionColors(Color text, Color fill) {
    text_ = text;
    fill_ = fill;
    update();
}

void CSkinGroupBox::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    look::plate(painter, rect(), Metric::radiusGroup, look::color(Color::surface),
                look::color(Color::line2));
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    const qreal line = look::hairline(painter);
    const QRectF inner = QRectF(rect()).adjusted(line, line, -line, -line);
    QRectF strip = inner;
    strip.setHeight(Metric::groupCaption);
    QPainterPath box;
    box.addRoundedRect(inner, Metric::radiusGroup - line, Metric::radiusGroup - line);
    QPainterPath cut;
    cut.addRect(look::snapped(painter, strip));
    painter.fillPath(box.intersected(cut), look::color(fill_));
    painter.restore();
    look::bottomLine(painter, strip, look::color(Color::rowBorder));
    painter.setFont(look::font(Size::s13, true));
    painter.setPen(look::color(isEnabled() ? text_ : Color::inkOff));
    painter.drawText(strip.adjusted(Metric::groupPadding - line, 0, -Metric::groupPadding, 0),
                     Qt::AlignVCenter | Qt::AlignLeft,
                     QFontMetrics(painter.font())
                         .elidedText(title(), Qt::ElideRight, width() - 2 * Metric::groupPadding));
}

}  // namespace quorvi
