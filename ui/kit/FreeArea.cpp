#include "ui/kit/FreeArea.h"

#include <QGuiApplication>
#include <QScreen>
#include <algorithm>
#include <cstdint>

namespace quorvi {
namespace {

std::int64_t SharedPixels(const QRect& a, const QRect& b) {
    const QRect shared = a.intersected(b);
    return shared.isEmpty() ? 0 : std::int64_t{shared.width()} * shared.height();
}

}  // namespace

QList<QRect> FreeAreas() {
    QList<QRect> areas;
    const QScreen* primary = QGuiApplication::primaryScreen();
    const QList<QScreen*> screens = QGuiApplication::screens();
    for (const QScreen* screen : screens) {
        areas.insert(screen == primary ? 0 : areas.size(), screen->availableGeometry());
    }
    return areas;
}

QRect AreaFor(const QRect& place, const QList<QRect>& areas) {
    const auto most = std::ranges::max_element(
        areas, {}, [&](const QRect& area) { return SharedPixels(area, place); });
    return most == areas.end() ? place : *most;
}

QRect BroughtInto(const QRect& place, const QRect& area) {
    const QSize size = place.size().boundedTo(area.size());
    const auto between = [](int value, int least, int most) {
        return std::max(least, std::min(value, most));
    };
    return {QPoint(between(place.left(), area.left(), area.left() + area.width() - size.width()),
                   between(place.top(), area.top(), area.top() + area.height() - size.height())),
            size};
}

}  // namespace quorvi
