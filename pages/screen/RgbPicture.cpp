#include "pages/screen/RgbPicture.h"

#include <utility>

namespace quorvi {
namespace {

// The place of a frame's first pixel in the turned picture, and the way from there to its
// neighbours; all in pixels.
struct Walk {
    std::ptrdiff_t first;
    std::ptrdiff_t right;
    std::ptrdiff_t down;
};

Walk WalkOf(Rotation rotation, std::ptrdiff_t width, std::ptrdiff_t height) {
    switch (rotation) {
        case Rotation::right90:
            return {height - 1, height, -1};
        case Rotation::left90:
            return {(width - 1) * height, -height, 1};
        case Rotation::half:
            return {width * height - 1, -1, -width};
        case Rotation::none:
            break;
    }
    return {0, 1, width};
}

std::uint8_t Spread5(unsigned value) {
    return static_cast<std::uint8_t>(value << 3 | value >> 2);
}
std::uint8_t Spread6(unsigned value) {
    return static_cast<std::uint8_t>(value << 2 | value >> 4);
}

template <PixelLayout Layout>
void PutPixel(const std::byte* from, std::uint8_t* to) {
    if constexpr (Layout == PixelLayout::rgb565) {
        const unsigned word =
            std::to_integer<unsigned>(from[0]) | std::to_integer<unsigned>(from[1]) << 8;
        to[0] = Spread5(word >> 11);
        to[1] = Spread6(word >> 5 & 0x3F);
        to[2] = Spread5(word & 0x1F);
    } else {
        to[0] = std::to_integer<std::uint8_t>(from[2]);
        to[1] = std::to_integer<std::uint8_t>(from[1]);
        to[2] = std::to_integer<std::uint8_t>(from[0]);
    }
}

template <PixelLayout Layout>
void PutAll(const ScreenFrame& frame, const Walk& walk, std::uint8_t* to) {
    for (int y = 0; y < frame.height; ++y) {
        const std::byte* from = frame.Line(y).data();
        std::ptrdiff_t place = walk.first + y * walk.down;
        for (int x = 0; x < frame.width; ++x) {
            PutPixel<Layout>(from, to + place * std::ptrdiff_t{RgbPicture::kPixelBytes});
            from += BytesPerPixel(Layout);
            place += walk.right;
        }
    }
}

}  // namespace

RgbPicture TurnedPicture(const ScreenFrame& frame, Rotation rotation) {
    RgbPicture picture;
    picture.width = frame.width;
    picture.height = frame.height;
    picture.bytes.resize(picture.Stride() * static_cast<std::size_t>(frame.height));
    if (SwapsSides(rotation)) {
        std::swap(picture.width, picture.height);
    }
    const Walk walk = WalkOf(rotation, frame.width, frame.height);
    switch (frame.layout) {
        case PixelLayout::rgb565:
            PutAll<PixelLayout::rgb565>(frame, walk, picture.bytes.data());
            break;
        case PixelLayout::bgr24:
            PutAll<PixelLayout::bgr24>(frame, walk, picture.bytes.data());
            break;
        case PixelLayout::bgrx32:
            PutAll<PixelLayout::bgrx32>(frame, walk, picture.bytes.data());
            break;
    }
    return picture;
}

}  // namespace quorvi
