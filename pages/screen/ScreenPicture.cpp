#include "pages/screen/ScreenPicture.h"

#include <QTransform>
#include <memory>
#include <utility>

namespace quorvi {
namespace {

// The words of a pixel come in little-endian order, as this machine has them.
static_assert(Q_BYTE_ORDER == Q_LITTLE_ENDIAN);

QImage::Format FormatOf(PixelLayout layout) {
    switch (layout) {
        case PixelLayout::bgrx32:
            return QImage::Format_RGB32;
        case PixelLayout::bgr24:
            return QImage::Format_BGR888;
        case PixelLayout::rgb565:
            break;
    }
    return QImage::Format_RGB16;
}

qreal DegreesOf(Rotation rotation) {
    switch (rotation) {
        case Rotation::right90:
            return 90;
        case Rotation::left90:
            return 270;
        case Rotation::half:
            return 180;
        case Rotation::none:
            break;
    }
    return 0;
}

// Over the frame's bytes: its last copy lets them go.
QImage ImageOver(const ScreenFrame& frame) {
    using Bytes = std::shared_ptr<const FrameBytes>;
    return QImage(
        reinterpret_cast<const uchar*>(frame.bytes->Bytes().data()), frame.width, frame.height,
        static_cast<qsizetype>(frame.Stride()), FormatOf(frame.layout),
        [](void* bytes) { delete static_cast<Bytes*>(bytes); }, new Bytes(frame.bytes));
}

// Over the pixels, which live as long as it or a copy of it does.
QImage ImageOf(ReducedFrame frame) {
    auto* const owned = new ReducedFrame(std::move(frame));
    return QImage(
        reinterpret_cast<const uchar*>(owned->pixels.data()), owned->width, owned->height,
        QImage::Format_RGB32, [](void* pixels) { delete static_cast<ReducedFrame*>(pixels); },
        owned);
}

QImage Turned(QImage image, Rotation rotation) {
    return rotation == Rotation::none ? image
                                      : image.transformed(QTransform().rotate(DegreesOf(rotation)));
}

}  // namespace

ScreenPicture PictureOf(ScreenFrame frame, Rotation rotation, std::optional<ReducedFrame> reduced) {
    QImage image = Turned(ImageOver(frame), rotation);
    QImage small = reduced ? Turned(ImageOf(*std::move(reduced)), rotation) : QImage();
    return {std::move(frame), rotation, std::move(image), std::move(small)};
}

}  // namespace quorvi
