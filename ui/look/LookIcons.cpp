// The icons: drawings in one colour, named by what they show, rendered at the device's scale.
#include <QFile>
#include <QHash>
#include <QPainter>
#include <QSvgRenderer>
#include <algorithm>
#include <cmath>
#include <tuple>

#include "ui/look/Look.h"

// The resources of a static library have to be registered by a call, and the macro for it works
// only outside any namespace.
static void RegisterIcons() {
    Q_INIT_RESOURCE(icons);
}

namespace quorvi::look {
namespace {

struct Key {
    QString name;
    QSize size;
    QRgb rgb;
    qreal dpr;
    Theme theme;  // light where the drawing is in one colour

    friend bool operator==(const Key& a, const Key& b) {
        return a.rgb == b.rgb && a.theme == b.theme && a.size == b.size &&
               qFuzzyCompare(a.dpr, b.dpr) && a.name == b.name;
    }
    friend size_t qHash(const Key& key, size_t seed = 0) {
        return qHashMulti(seed, key.name, key.size.width(), key.size.height(), key.rgb,
                          static_cast<int>(key.theme));
    }
};

// The most icons kept. A few hundred are in use at one time; a full cache is emptied.
constexpr qsizetype kCacheLimit = 1024;

QHash<Key, QPixmap>& Cache() {
    static QHash<Key, QPixmap> cache;
    return cache;
}

QByteArray Drawing(QStringView name) {
    static const bool registered = [] {
        RegisterIcons();
        return true;
    }();
    Q_UNUSED(registered);
    QFile file(QStringLiteral(":/icons/%1.svg").arg(name));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QPixmap Render(const QByteArray& drawing, QSize size, qreal dpr) {
    QSvgRenderer renderer(drawing);
    if (!renderer.isValid()) {
        return {};
    }
    renderer.setAspectRatioMode(Qt::KeepAspectRatio);
    const QSizeF device = QSizeF(size) * dpr;
    QPixmap pixmap(static_cast<int>(std::lround(device.width())),
                   static_cast<int>(std::lround(device.height())));
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    renderer.render(&painter, QRectF(QPointF(0, 0), QSizeF(pixmap.size())));
    painter.end();
    pixmap.setDevicePixelRatio(dpr);
    return pixmap;
}

// Icons are drawn for 16 to 24, with a stroke that is too heavy where one is shown as a picture.
void ThinStroke(QByteArray& drawing) {
    drawing.replace("stroke-width=\"1.75\"", "stroke-width=\"1.25\"");
}

// What a value of a drawing is drawn with.
unsigned ValueIn(Theme theme, QStringView name, unsigned value) {
    for (const PictureColor& row : kPictureColors) {
        if (row.values[0] == value && name.startsWith(QLatin1StringView(row.drawing))) {
            return row.values[static_cast<std::size_t>(theme)];
        }
    }
    return value;
}

// Puts the theme's values in the place of a drawing's own, which are those of light.
void DrawIn(Theme theme, QStringView name, QByteArray& drawing) {
    constexpr int kDigits = 6;
    constexpr int kHex = 16;
    for (qsizetype at = drawing.indexOf('#'); at >= 0; at = drawing.indexOf('#', at + 1)) {
        bool isColor = false;
        const unsigned value = drawing.mid(at + 1, kDigits).toUInt(&isColor, kHex);
        if (isColor) {
            const QByteArray digits = QByteArray::number(ValueIn(theme, name, value), kHex);
            drawing.replace(at + 1, kDigits, digits.rightJustified(kDigits, '0'));
        }
    }
}

bool IsUnchanged(QStringView name) {
    return std::any_of(
        kUnchangedPictures.begin(), kUnchangedPictures.end(),
        [name](std::string_view start) { return name.startsWith(QLatin1StringView(start)); });
}

// `theme`: which values a drawing of many colours gets.
QPixmap Cached(QStringView name, QSize size, const QColor& color, qreal dpr, Theme theme,
               bool thin = false) {
    const Key key{name.toString(), size, color.rgba(), dpr, theme};
    if (const auto found = Cache().constFind(key); found != Cache().constEnd()) {
        return *found;
    }
    QByteArray drawing = Drawing(name);
    drawing.replace("currentColor", color.name().toLatin1());
    if (thin) {
        ThinStroke(drawing);
    }
    if (theme != Theme::light) {
        DrawIn(theme, name, drawing);
    }
    const QPixmap made = drawing.isEmpty() ? QPixmap() : Render(drawing, size, dpr);
    if (Cache().size() >= kCacheLimit) {
        Cache().clear();
    }
    Cache().insert(key, made);
    return made;
}

}  // namespace

QPixmap icon(QStringView name, int px, const QColor& color, qreal dpr) {
    return Cached(name, QSize(px, px), color, dpr, Theme::light, px >= Metric::weatherIcon);
}

QPixmap icon(QStringView name, int px, Color color, qreal dpr) {
    return icon(name, px, look::color(color), dpr);
}

QPixmap picture(QStringView name, QSize size, qreal dpr) {
    return Cached(name, size, look::color(Color::ink2), dpr,
                  IsUnchanged(name) ? Theme::light : CurrentTheme());
}

void drawCentred(QPainter& painter, const QRectF& rect, const QPixmap& pixmap) {
    QRectF target(QPointF(), pixmap.deviceIndependentSize());
    target.moveCenter(rect.center());
    // Only the corner is snapped: the size is already whole device pixels.
    target.moveTopLeft(snapped(painter, target).topLeft());
    painter.drawPixmap(target.topLeft(), pixmap);
}

void drawIcon(QPainter& painter, const QRectF& rect, QStringView name, int px,
              const QColor& color) {
    const QPixmap pixmap = icon(name, px, color, scaleOf(painter));
    if (!pixmap.isNull()) {
        drawCentred(painter, rect, pixmap);
    }
}

}  // namespace quorvi::look
