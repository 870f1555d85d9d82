// Tick boxes, radio marks and switches.
#include <QPainter>
#include <QPainterPath>
#include <algorithm>
#include <cmath>

#include "ui/look/Look.h"

namespace quorvi::look {
namespace {

using Stage = ButtonState::Stage;
using enum Color;

struct Mark {
    Color fill;
    Color line;
};

// Elements: normal, hovered, pressed, disabled.
constexpr std::array<Mark, 4> kOff{
    {{surface, ink3}, {rowLight, plum6}, {rowHover, plum7}, {fieldOff, line2}}};
constexpr std::array<Mark, 4> kOn{
    {{plum6, plum6}, {plum5, plum5}, {plum7, plum7}, {scroll, scroll}}};
constexpr std::array<Color, 4> kTrackOff{ink3, trackHot, ink2, line2};
constexpr std::array<Color, 4> kTrackOn{plum6, plum5, plum7, plumOff};

std::size_t StateIndex(ButtonState state) {
    return state.enabled ? static_cast<std::size_t>(state.stage) : 3;
}

// The tick's corners on a box of 16 by 16, and its stroke.
constexpr qreal kBox = Metric::tick;
constexpr std::array<std::pair<qreal, qreal>, 3> kTickPoints{
    {{3.6, 8.1}, {6.7, 11.2}, {12.4, 5.0}}};
constexpr qreal kTickStroke = 2.0;
constexpr qreal kMixedHalf = 4.0;

}  // namespace

void paintTick(QPainter& painter, const QRectF& rect, Tick tick, ButtonState state) {
    const std::size_t index = StateIndex(state);
    const Mark& mark = tick == Tick::off ? kOff[index] : kOn[index];
    const QRectF box = snapped(painter, rect);
    const qreal unit = box.width() / kBox;
    plate(painter, box, Metric::radiusTick, color(mark.fill), color(mark.line));
    if (tick == Tick::off) {
        return;
    }
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    QPen pen(color(onAccent), kTickStroke * unit, Qt::SolidLine, Qt::FlatCap, Qt::MiterJoin);
    painter.setBrush(Qt::NoBrush);
    if (tick == Tick::on) {
        QPainterPath path;
        const auto at = [&](std::size_t i) {
            return box.topLeft() +
                   QPointF(kTickPoints[i].first * unit, kTickPoints[i].second * unit);
        };
        path.moveTo(at(0));
        path.lineTo(at(1));
        path.lineTo(at(2));
        painter.setPen(pen);
        painter.drawPath(path);
    } else {
        pen.setCapStyle(Qt::RoundCap);
        painter.setPen(pen);
        const QPointF reach(kMixedHalf * unit - kTickStroke * unit / 2, 0);
        painter.drawLine(box.center() - reach, box.center() + reach);
    }
    painter.restore();
}

void paintRadio(QPainter& painter, const QRectF& rect, bool on, ButtonState state) {
    const std::size_t index = StateIndex(state);
    const QRectF box = snapped(painter, rect);
    const qreal radius = box.width() / 2;
    if (!on) {
        plate(painter, box, radius, color(kOff[index].fill), color(kOff[index].line));
        return;
    }
    plate(painter, box, radius, color(surface), color(kOn[index].line), Metric::radioDotInset);
}

void paintToggle(QPainter& painter, const QRectF& rect, bool on, qreal position,
                 ButtonState state) {
    const std::size_t index = StateIndex(state);
    const QRectF track = snapped(painter, rect);
    plate(painter, track, track.height() / 2, color(on ? kTrackOn[index] : kTrackOff[index]),
          Qt::transparent);
    const bool pressed = state.enabled && state.stage == Stage::pressed;
    const qreal width = pressed ? Metric::knobPressed : Metric::knob;
    const qreal travel = track.width() - 2 * Metric::knobInset - width;
    const QRectF knob(track.left() + Metric::knobInset + travel * std::clamp(position, 0.0, 1.0),
                      track.center().y() - Metric::knob / 2.0, width, Metric::knob);
    plate(painter, knob.translated(0, Metric::hairline), Metric::knob / 2.0,
          look::color(Color::knobShadow), Qt::transparent);
    plate(painter, knob, Metric::knob / 2.0, color(onAccent), Qt::transparent);
}

}  // namespace quorvi::look
