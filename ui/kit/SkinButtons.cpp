#include "ui/kit/SkinButtons.h"

#include <QAccessible>
#include <QPainter>
#include <algorithm>

namespace quorvi {
namespace {

using look::ButtonKind;
using look::Metric;
using look::Size;

}  // namespace

CSkinButton::CSkinButton(const QString& text, QWidget* parent, ButtonKind kind)
    : Pressable<QPushButton>(parent), kind_(kind) {
    setText(text);
    setSizePolicy(QSizePolicy::Minimum, QSizePolicy::Fixed);
}

void CSkinButton::SetImage(const QString& icon) {
    image_ = icon;
    updateGeometry();
    update();
}

void CSkinButton::SetKind(ButtonKind kind) {
    kind_ = kind;
    update();
}

void CSkinButton::SetInert() {
    setFocusPolicy(Qt::NoFocus);
    // A screen reader that runs has been told of a button already.
    QAccessibleInterface* before = QAccessible::queryAccessibleInterface(this);
    inert_ = true;
    QAccessible::deleteAccessibleInterface(QAccessible::uniqueId(before));
}

void CSkinButton::SetSmall(bool small) {
    small_ = small;
    updateGeometry();
    update();
}

QFont CSkinButton::TextFont() const {
    return look::font(small_ ? Size::s12 : Size::s13);
}

QSize CSkinButton::sizeHint() const {
    const int text = QFontMetrics(TextFont()).horizontalAdvance(this->text());
    const int icon = image_.isEmpty() ? 0 : Metric::iconButton + Metric::buttonIconGap;
    const int padding = small_ ? Metric::smallPadding : Metric::buttonPadding;
    const int least = small_ ? Metric::smallMinWidth : Metric::buttonMinWidth;
    return {std::max(least, text + icon + 2 * padding),
            small_ ? Metric::smallHeight : Metric::buttonHeight};
}

void CSkinButton::PaintContents(QPainter& painter, const QRectF& area, const look::ButtonInk& ink,
                                int iconSize, const QFont& textFont) const {
    const QFontMetricsF metrics(textFont);
    const qreal icon = image_.isEmpty() ? 0 : iconSize;
    const qreal gap = image_.isEmpty() || text().isEmpty() ? 0 : Metric::buttonIconGap;
    const QString shown =
        metrics.elidedText(text(), Qt::ElideRight, area.width() - icon - gap, Qt::TextShowMnemonic);
    const qreal width = icon + gap + metrics.size(Qt::TextShowMnemonic, shown).width();
    QRectF part = area;
    part.setLeft(std::max(area.left(), area.left() + (area.width() - width) / 2));
    if (icon > 0) {
        look::drawIcon(painter, QRectF(part.left(), part.top(), icon, part.height()), image_,
                       iconSize, ink.icon);
    }
    part.setLeft(part.left() + icon + gap);
    painter.setFont(textFont);
    painter.setPen(ink.text);
    painter.drawText(part, Qt::AlignVCenter | Qt::AlignLeft | Qt::TextShowMnemonic, shown);
}

void CSkinButton::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const look::ButtonInk ink = look::paintButton(painter, rect(), kind_, LookState());
    const int inset = Metric::gap1;
    PaintContents(painter, rect().adjusted(inset, 0, -inset, 0), ink, Metric::iconButton,
                  TextFont());
}

CSkinStripButton::CSkinStripButton(const QString& text, QWidget* parent)
    : CSkinButton(text, parent) {
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

QSize CSkinStripButton::sizeHint() const {
    return {Metric::commandWidth, Metric::buttonHeight};
}

CFlatImageButton::CFlatImageButton(const QString& text, const QString& icon, QWidget* parent)
    : CSkinButton(text, parent, ButtonKind::flat) {
    SetImage(icon);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

QFont CFlatImageButton::TextFont() const {
    return look::font(Size::s12);
}

QSize CFlatImageButton::sizeHint() const {
    const int words = QFontMetrics(TextFont()).horizontalAdvance(text());
    const int icon = Image().isEmpty() ? 0 : Metric::iconField;
    const int gap = icon == 0 || text().isEmpty() ? 0 : Metric::buttonIconGap;
    return {words + icon + gap + 2 * Metric::flatPadding, Metric::flatHeight};
}

void CFlatImageButton::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const look::ButtonInk ink = look::paintButton(painter, rect(), ButtonKind::flat, LookState());
    PaintContents(painter, rect(), ink, Metric::iconField, TextFont());
}

SkinLink::SkinLink(const QString& text, QWidget* parent) : Pressable<QPushButton>(parent) {
    setText(text);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    setFont(look::font(Size::s13));
}

QSize SkinLink::sizeHint() const {
    return {fontMetrics().horizontalAdvance(text()), Metric::cellLine};
}

QRectF SkinLink::RingRect() const {
    return QRectF(rect());
}

void SkinLink::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const look::ButtonInk ink = look::paintButton(painter, rect(), ButtonKind::link, LookState());
    QFont drawn = font();
    drawn.setUnderline(ink.underline);
    painter.setFont(drawn);
    painter.setPen(ink.text);
    painter.drawText(rect(), Qt::AlignVCenter | Qt::AlignLeft,
                     fontMetrics().elidedText(text(), Qt::ElideRight, width()));
}

WindowButton::WindowButton(const QString& icon, const QString& name, QWidget* parent,
                           ButtonKind kind)
    : Pressable<QPushButton>(parent), kind_(kind) {
    SetImage(icon, name);
    setCursor(Qt::ArrowCursor);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    setAutoDefault(false);
}

void WindowButton::SetImage(const QString& icon, const QString& name) {
    image_ = icon;
    setToolTip(name);
    setAccessibleName(name);
    update();
}

QSize WindowButton::sizeHint() const {
    return {Metric::windowButtonWidth, Metric::windowButtonHeight};
}

void WindowButton::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const look::ButtonInk ink = look::paintButton(painter, rect(), kind_, LookState());
    look::drawIcon(painter, rect(), image_, Metric::iconButton, ink.icon);
}

}  // namespace quorvi
