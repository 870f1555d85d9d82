#include "ui/kit/SkinChecks.h"

#include <QPainter>
#include <algorithm>

#include "ui/kit/QtText.h"

namespace quorvi {
namespace {

using look::Color;
using look::Metric;
using look::Size;

constexpr std::u8string_view kOnText = u8"已启用";
constexpr std::u8string_view kOffText = u8"已禁用";

QRectF MarkRect(const QWidget& widget) {
    return {0, (widget.height() - Metric::tick) / 2.0, Metric::tick, Metric::tick};
}

QSize MarkSize(const QAbstractButton& button) {
    const int text =
        button.text().isEmpty()
            ? 0
            : Metric::tickGap + button.fontMetrics().horizontalAdvance(button.text()) + 1;
    return {Metric::tick + text, Metric::hitHeight};
}

void PaintCaption(QPainter& painter, const QAbstractButton& button, Color off = Color::inkOff) {
    painter.setFont(button.font());
    painter.setPen(look::color(button.isEnabled() ? Color::ink : off));
    const QRect area = button.rect().adjusted(Metric::tick + Metric::tickGap, 0, 0, 0);
    painter.drawText(area, Qt::AlignVCenter | Qt::AlignLeft,
                     button.fontMetrics().elidedText(button.text(), Qt::ElideRight, area.width()));
}

}  // namespace

CSkinCheck::CSkinCheck(const QString& text, QWidget* parent) : Pressable<QCheckBox>(parent) {
    setText(text);
    setFont(look::font(Size::s13));
    setSizePolicy(QSizePolicy::Minimum, QSizePolicy::Fixed);
}

void CSkinCheck::ShowFact(int value) {
    fact_ = true;
    SetCheck(value);
    setEnabled(false);
}

QSize CSkinCheck::sizeHint() const {
    return MarkSize(*this);
}

QRectF CSkinCheck::RingRect() const {
    return MarkRect(*this);
}

void CSkinCheck::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const look::Tick tick = checkState() == Qt::PartiallyChecked ? look::Tick::mixed
                            : isChecked()                        ? look::Tick::on
                                                                 : look::Tick::off;
    look::paintTick(painter, MarkRect(*this), tick, LookState());
    PaintCaption(painter, *this, fact_ ? Color::ink2 : Color::inkOff);
}

SkinRadio::SkinRadio(const QString& text, QWidget* parent) : Pressable<QRadioButton>(parent) {
    setText(text);
    setFont(look::font(Size::s13));
    setSizePolicy(QSizePolicy::Minimum, QSizePolicy::Fixed);
}

QSize SkinRadio::sizeHint() const {
    return MarkSize(*this);
}

QRectF SkinRadio::RingRect() const {
    return MarkRect(*this);
}

void SkinRadio::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    look::paintRadio(painter, MarkRect(*this), isChecked(), LookState());
    PaintCaption(painter, *this);
}

CSkinToggle::CSkinToggle(QWidget* parent) : Pressable<QCheckBox>(parent) {
    setFont(look::font(Size::s12));
    setText(ToQString(kOffText));
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    travel_.setDuration(Metric::motionSwitch);
    travel_.setEasingCurve(QEasingCurve::OutCubic);
    connect(&travel_, &QVariantAnimation::valueChanged, this, [this](const QVariant& value) {
        position_ = value.toReal();
        update();
    });
    connect(this, &QCheckBox::toggled, this, &CSkinToggle::OnToggled);
}

void CSkinToggle::OnToggled(bool on) {
    setText(ToQString(on ? kOnText : kOffText));
    travel_.stop();
    const qreal end = on ? 1 : 0;
    if (look::LessMotion() || !isVisible()) {
        position_ = end;
        update();
        return;
    }
    travel_.setStartValue(position_);
    travel_.setEndValue(end);
    travel_.start();
}

QSize CSkinToggle::sizeHint() const {
    const int text = std::max(fontMetrics().horizontalAdvance(ToQString(kOnText)),
                              fontMetrics().horizontalAdvance(ToQString(kOffText)));
    return {std::max(Metric::toggleMinWidth, Metric::toggleText + text), Metric::hitHeight};
}

QRectF CSkinToggle::RingRect() const {
    return {0, (height() - Metric::toggleHeight) / 2.0, Metric::toggleWidth, Metric::toggleHeight};
}

void CSkinToggle::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    look::paintToggle(painter, RingRect(), isChecked(), position_, LookState());
    painter.setFont(font());
    const Color words = !isEnabled() ? Color::inkOff : isChecked() ? Color::plum7 : Color::ink2;
    painter.setPen(look::color(words));
    painter.drawText(rect().adjusted(Metric::toggleText, 0, 0, 0), Qt::AlignVCenter | Qt::AlignLeft,
                     text());
}

}  // namespace quorvi
