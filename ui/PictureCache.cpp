#include "ui/PictureCache.h"

#include <QBuffer>
#include <QImageReader>
#include <QPainter>
#include <QPainterPath>
#include <algorithm>
#include <array>
#include <cmath>

#include "ui/Look.h"

namespace quorvi {
namespace {

// Formats that are read: pixels only. A drawing could name files and grow without bound.
constexpr std::array<QByteArrayView, 7> kFormats{"bmp", "gif",  "ico", "jpeg",
                                                 "png", "tiff", "webp"};

bool IsKnown(const QByteArray& format) {
    return std::ranges::any_of(kFormats, [&](QByteArrayView each) { return each == format; });
}

// The part of a picture that fills a square of `side`, and the size to read it at.
QSize ReadSize(QSize size, int side, bool crop) {
    return size.scaled(side, side, crop ? Qt::KeepAspectRatioByExpanding : Qt::KeepAspectRatio)
        .expandedTo({1, 1});
}

}  // namespace

QImage DecodePicture(std::string_view bytes, int pixels, bool rounded, qreal cornerRadius) {
    if (bytes.empty() || bytes.size() > PictureCache::kMaxBytes) {
        return {};
    }
    QByteArray raw = QByteArray::fromRawData(bytes.data(), static_cast<qsizetype>(bytes.size()));
    QBuffer buffer(&raw);
    buffer.open(QIODevice::ReadOnly);
    const QByteArray format = QImageReader::imageFormat(&buffer);
    if (!IsKnown(format)) {
        return {};
    }
    QImageReader reader(&buffer, format);
    const QSize size = reader.size();  // of the header: nothing is decoded yet
    if (!size.isValid() || size.isEmpty() ||
        std::max(size.width(), size.height()) > PictureCache::kMaxSide) {
        return {};
    }
    const QSize scaled = ReadSize(size, pixels, rounded);
    if (scaled.width() < size.width() || scaled.height() < size.height()) {
        // Twice the size is enough for a smooth last step, and JPEG reads it in a fraction of time.
        const QSize twice = scaled * 2;
        if (twice.width() < size.width()) {
            reader.setScaledSize(twice);
        }
    }
    const QImage read = reader.read();
    if (read.isNull()) {
        return {};
    }
    const QImage fitted = read.scaled(scaled, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    QImage square(pixels, pixels, QImage::Format_ARGB32_Premultiplied);
    square.fill(Qt::transparent);
    QPainter painter(&square);
    const QPoint at((pixels - fitted.width()) / 2, (pixels - fitted.height()) / 2);
    if (rounded) {
        painter.setRenderHint(QPainter::Antialiasing);
        QPainterPath path;
        path.addRoundedRect(QRectF(0, 0, pixels, pixels), cornerRadius, cornerRadius);
        QBrush brush(fitted);
        brush.setTransform(QTransform::fromTranslate(at.x(), at.y()));
        painter.fillPath(path, brush);
    } else {
        painter.drawImage(at, fitted);
    }
    return square;
}

PictureCache::PictureCache() : pictures_(kBudget) {}

QPixmap PictureCache::Get(std::uint64_t id, std::string_view bytes, int side, bool rounded,
                          qreal dpr) {
    if (!qFuzzyCompare(dpr_ + 1, dpr + 1)) {
        pictures_.clear();  // the window came to a screen of another scale
        dpr_ = dpr;
    }
    if (const QPixmap* found = pictures_.object(id)) {
        return *found;
    }
    ++decodes_;
    const int pixels = static_cast<int>(std::lround(side * dpr));
    QPixmap made = QPixmap::fromImage(DecodePicture(
        bytes, pixels, rounded,
        static_cast<qreal>(pixels) * look::Metric::radiusPanel / look::Metric::rowPicture));
    made.setDevicePixelRatio(dpr);
    const qsizetype cost = made.isNull() ? 1 : qsizetype{4} * pixels * pixels;
    pictures_.insert(id, new QPixmap(made), cost);
    return made;
}

}  // namespace quorvi
