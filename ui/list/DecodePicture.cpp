#include "ui/list/DecodePicture.h"

#include <QBuffer>
#include <QImageReader>
#include <QPainter>
#include <QPainterPath>
#include <algorithm>
#include <array>

namespace quorvi {
namespace {

// The formats that are decoded: those made of pixels, whose header tells the size. Drawings such as
// SVG are left out: they can refer to files, and a short one can be endlessly large.
constexpr std::array<QByteArrayView, 13> kFormats{
    "bmp", "gif", "ico", "jpeg", "pbm", "pgm", "png", "ppm", "tiff", "wbmp", "webp", "xbm", "xpm"};

// The most scans of a JPEG that is decoded. The decoder goes over the whole picture once a scan,
// and a file of a photo's length has room for thousands of empty scans, which would take seconds
// for one row of the list. Real files have about ten.
constexpr int kMostScans = 100;

bool IsKnown(const QByteArray& format) {
    return std::ranges::any_of(kFormats, [&](QByteArrayView each) { return each == format; });
}

bool HasTooManyScans(std::string_view jpeg) {
    constexpr std::string_view kStartOfScan = "\xFF\xDA";
    int scans = 0;
    for (std::size_t at = 0; (at = jpeg.find(kStartOfScan, at)) != std::string_view::npos; ++at) {
        ++scans;
    }
    return scans > kMostScans;
}

// The middle of a picture, as a square.
QImage Middle(const QImage& image) {
    const int side = std::min(image.width(), image.height());
    return image.copy((image.width() - side) / 2, (image.height() - side) / 2, side, side);
}

}  // namespace

QImage DecodePicture(std::string_view bytes, int pixels, bool rounded, qreal cornerRadius) {
    if (bytes.empty() || bytes.size() > kMostPictureBytes) {
        return {};
    }
    QByteArray raw = QByteArray::fromRawData(bytes.data(), static_cast<qsizetype>(bytes.size()));
    QBuffer buffer(&raw);
    buffer.open(QIODevice::ReadOnly);
    const QByteArray format = QImageReader::imageFormat(&buffer);
    if (!IsKnown(format) || (format == "jpeg" && HasTooManyScans(bytes))) {
        return {};
    }
    QImageReader reader(&buffer, format);
    reader.setAutoTransform(true);     // upright, however the camera was held
    const QSize size = reader.size();  // of the header: nothing is decoded yet
    if (!size.isValid() || size.isEmpty() ||
        std::max(size.width(), size.height()) > kMostPictureSide) {
        return {};
    }
    // Twice the size is enough for a smooth last step, and JPEG reads it in a fraction of time.
    const QSize twice = size.scaled(2 * pixels, 2 * pixels,
                                    rounded ? Qt::KeepAspectRatioByExpanding : Qt::KeepAspectRatio);
    if (twice.width() < size.width()) {
        reader.setScaledSize(twice.expandedTo({1, 1}));
    }
    const QImage read = reader.read();
    if (read.isNull()) {
        return {};
    }
    const QImage fitted =
        (rounded ? Middle(read) : read)
            .scaled(pixels, pixels, Qt::KeepAspectRatio, Qt::SmoothTransformation);
    QImage square(pixels, pixels, QImage::Format_ARGB32_Premultiplied);
    square.fill(Qt::transparent);
    QPainter painter(&square);
    if (rounded) {
        painter.setRenderHint(QPainter::Antialiasing);
        QPainterPath path;
        path.addRoundedRect(square.rect(), cornerRadius, cornerRadius);
        painter.fillPath(path, QBrush(fitted));
    } else {
        painter.drawImage((pixels - fitted.width()) / 2, (pixels - fitted.height()) / 2, fitted);
    }
    return square;
}

}  // namespace quorvi
