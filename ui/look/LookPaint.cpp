// The strokes and plates from which every control is painted.
#include <QPainter>
#include <QPainterPath>
#include <algorithm>
#include <cmath>

#include "ui/look/Look.h"

namespace quorvi::look {
namespace {

using Stage = ButtonState::Stage;

// What one state of a button is painted with.
struct Paint {
    Color fill;
    Color line;
    Color text;
    Color icon;
};

// How one kind of button is painted: normal, hovered, pressed, disabled.
struct ButtonPaints {
    ButtonKind kind;
    std::array<Paint, 4> states;
};

using enum Color;
constexpr std::array<ButtonPaints, static_cast<std::size_t>(ButtonKind::count)> kKinds = {{
    {ButtonKind::plain,
     {{{surface, line2, ink, plum6},
       {rowHover, rowBorder, plum7, plum6},
       {rowSelected, rowBorder, plum7, plum6},
       {fieldOff, line, inkOff, inkOff}}}},
    {ButtonKind::primary,
     {{{plum6, plum6, onAccent, onAccent},
       {plum5, plum5, onAccent, onAccent},
       {plum7, plum7, onAccent, onAccent},
       {line2, line2, ink2, ink2}}}},
    {ButtonKind::erase,
     {{{red, red, onAccent, onAccent},
       {red5, red5, onAccent, onAccent},
       {red7, red7, onAccent, onAccent},
       {redOff, redOff, ink2, ink2}}}},
    {ButtonKind::flat,
     {{{surface, flatLine, ink, ink2},
       {flatFill, flatHot, ink, ink2},
       {flatFill, flatPress, ink, ink2},
       {fieldOff, flatLine, inkOff, inkOff}}}},
    {ButtonKind::link,
     {{{surface, surface, plum7, plum7},
       {surface, surface, plum5, plum5},
       {surface, surface, plum7, plum7},
       {surface, surface, inkOff, inkOff}}}},
    {ButtonKind::window,
     {{{chrome1, chrome1, ink2, ink2},
       {rowHover, rowHover, plum7, plum7},
       {rowSelected, rowSelected, plum7, plum7},
       {chrome1, chrome1, inkOff, inkOff}}}},
    {ButtonKind::windowClose,
     {{{chrome1, chrome1, ink2, ink2},
       {red5, red5, onAccent, onAccent},
       {red7, red7, onAccent, onAccent},
       {chrome1, chrome1, inkOff, inkOff}}}},
}};

std::size_t StateIndex(ButtonState state) {
    return state.enabled ? static_cast<std::size_t>(state.stage) : 3;
}

void FillRounded(QPainter& painter, const QRectF& rect, qreal radius, const QBrush& brush) {
    painter.setPen(Qt::NoPen);
    painter.setBrush(brush);
    painter.drawRoundedRect(rect, radius, radius);
}

class Saved {
  public:
    explicit Saved(QPainter& painter) : painter_(painter) {
        painter_.save();
        painter_.setRenderHint(QPainter::Antialiasing);
    }
    ~Saved() { painter_.restore(); }
    Saved(const Saved&) = delete;
    Saved& operator=(const Saved&) = delete;

  private:
    QPainter& painter_;
};

void Line(QPainter& painter, const QRectF& edge, const QColor& color) {
    painter.fillRect(edge, color);
}

}  // namespace

qreal scaleOf(const QPainter& painter) {
    return painter.device() != nullptr ? painter.device()->devicePixelRatioF() : 1.0;
}

qreal hairline(const QPainter& painter) {
    const qreal scale = scaleOf(painter);
    return std::max<qreal>(1.0, std::round(scale)) / scale;
}

QRectF snapped(const QPainter& painter, const QRectF& rect) {
    const QTransform& device = painter.deviceTransform();
    if (device.type() > QTransform::TxScale) {
        return rect;
    }
    const QRectF mapped = device.mapRect(rect);
    const QPointF from(std::round(mapped.left()), std::round(mapped.top()));
    const QPointF to(std::round(mapped.right()), std::round(mapped.bottom()));
    return device.inverted().mapRect(QRectF(from, to));
}

void plate(QPainter& painter, const QRectF& rect, qreal radius, const QColor& fill,
           const QColor& line, int lineWidth) {
    const Saved saved(painter);
    const QRectF outer = snapped(painter, rect);
    if (line.alpha() != 0 && line != fill) {
        const qreal width =
            lineWidth == Metric::hairline ? hairline(painter) : static_cast<qreal>(lineWidth);
        const QRectF inner = outer.adjusted(width, width, -width, -width);
        QPainterPath ring;
        ring.setFillRule(Qt::OddEvenFill);
        ring.addRoundedRect(outer, radius, radius);
        const qreal innerRadius = std::max<qreal>(0, radius - width);
        ring.addRoundedRect(inner, innerRadius, innerRadius);
        if (fill.alpha() != 0) {
            // The fill reaches under the middle of the line, so that no seam shows between them.
            const qreal half = width / 2;
            FillRounded(painter, outer.adjusted(half, half, -half, -half),
                        std::max<qreal>(0, radius - half), fill);
        }
        painter.setPen(Qt::NoPen);
        painter.setBrush(line);
        painter.drawPath(ring);
    } else {
        FillRounded(painter, outer, radius, fill);
    }
}

void fill(QPainter& painter, const QRectF& rect, const QColor& color) {
    Line(painter, snapped(painter, rect), color);
}

void topLine(QPainter& painter, const QRectF& rect, const QColor& color) {
    QRectF edge = snapped(painter, rect);
    edge.setHeight(hairline(painter));
    Line(painter, edge, color);
}

void bottomLine(QPainter& painter, const QRectF& rect, const QColor& color) {
    QRectF edge = snapped(painter, rect);
    edge.setTop(edge.bottom() - hairline(painter));
    Line(painter, edge, color);
}

void leftLine(QPainter& painter, const QRectF& rect, const QColor& color) {
    QRectF edge = snapped(painter, rect);
    edge.setWidth(hairline(painter));
    Line(painter, edge, color);
}

void innerRing(QPainter& painter, const QRectF& rect, qreal radius) {
    plate(painter, rect, radius, Qt::transparent, color(ring), Metric::ringWidth);
}

void outerRing(QPainter& painter, const QRectF& rect, qreal radius) {
    constexpr qreal gap = Metric::ringGap;
    constexpr qreal all = Metric::ringGap + Metric::ringWidth;
    plate(painter, rect.adjusted(-gap, -gap, gap, gap), radius + gap, Qt::transparent,
          color(surface), Metric::ringGap);
    plate(painter, rect.adjusted(-all, -all, all, all), radius + all, Qt::transparent, color(ring),
          Metric::ringWidth);
}

ButtonInk paintButton(QPainter& painter, const QRectF& rect, ButtonKind kind, ButtonState state) {
    const Paint& paint = kKinds[static_cast<std::size_t>(kind)].states[StateIndex(state)];
    switch (kind) {
        case ButtonKind::link:
            break;
        case ButtonKind::window:
        case ButtonKind::windowClose:
            if (state.enabled && state.stage != Stage::normal) {
                fill(painter, rect, color(paint.fill));
            }
            if (state.focused) {
                innerRing(painter, rect);
            }
            break;
        case ButtonKind::flat:
            plate(painter, rect, Metric::radius, color(paint.fill), color(paint.line));
            if (state.enabled && state.stage == Stage::normal) {
                // At rest the foot is darker than the other edges.
                bottomLine(painter, rect.adjusted(Metric::radius, 0, -Metric::radius, 0),
                           color(flatLine2));
            }
            break;
        default:
            plate(painter, rect, Metric::radius, color(paint.fill), color(paint.line));
            break;
    }
    return {color(paint.text), color(paint.icon),
            kind == ButtonKind::link && state.enabled && state.stage == Stage::hover};
}

void paintField(QPainter& painter, const QRectF& rect, ButtonState state, bool bad) {
    Color outline = fieldLine;
    int width = Metric::hairline;
    if (!state.enabled) {
        outline = line2;
    } else if (bad || state.focused) {
        outline = bad ? red : ring;
        width = Metric::fieldFocusLine;
    } else if (state.stage != Stage::normal) {
        outline = ink2;
    }
    plate(painter, rect, Metric::radius, color(state.enabled ? field : fieldOff), color(outline),
          width);
}

void paintProgress(QPainter& painter, const QRectF& rect, int percent) {
    const Saved saved(painter);
    const QRectF groove = snapped(painter, rect);
    const qreal radius = groove.height() / 2;
    const int shown = std::clamp(percent, 0, 100);
    QPainterPath pill;
    pill.addRoundedRect(groove, radius, radius);
    painter.fillPath(pill, color(Color::groove));
    if (shown > 0) {
        QRectF bar = groove;
        bar.setWidth(groove.width() * shown / 100.0);
        QLinearGradient gradient(groove.topLeft(), groove.bottomLeft());
        gradient.setColorAt(0, color(bar1));
        gradient.setColorAt(1, color(bar2));
        // Clipped to the groove, so that a bar narrower than its own rounding stays inside.
        QPainterPath shape;
        shape.addRoundedRect(bar, radius, radius);
        painter.fillPath(shape.intersected(pill), gradient);
    }
    painter.setFont(font(Size::s11));
    painter.setPen(color(ink));
    painter.drawText(groove, Qt::AlignCenter, QStringLiteral("%1 %").arg(shown));
}

}  // namespace quorvi::look
