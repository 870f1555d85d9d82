#include "pages/screen/FrameHeader.h"

namespace quorvi {
namespace {

constexpr std::size_t kWordBytes = 4;
constexpr std::uint32_t kVersionWithColourSpace = 2;

// The word with this index.
std::uint32_t WordAt(std::span<const std::byte> bytes, std::size_t index) {
    std::uint32_t word = 0;
    for (std::size_t i = kWordBytes; i-- > 0;) {
        word = word << 8 | std::to_integer<std::uint32_t>(bytes[index * kWordBytes + i]);
    }
    return word;
}

bool IsSide(std::uint32_t side) {
    return side >= 1 && side <= kMaxScreenSide;
}

}  // namespace

PixelLayout LayoutOf(std::uint32_t bits) {
    switch (bits) {
        case 32:
            return PixelLayout::bgrx32;
        case 24:
            return PixelLayout::bgr24;
        default:
            return PixelLayout::rgb565;
    }
}

std::size_t FrameShapeBytes(std::uint32_t version) {
    return (version == kVersionWithColourSpace ? 5 : 4) * kWordBytes;
}

std::uint32_t ReadFrameVersion(std::span<const std::byte, kFrameVersionBytes> bytes) {
    return WordAt(bytes, 0);
}

FrameShape ReadFrameShape(std::uint32_t version, std::span<const std::byte> bytes) {
    if (bytes.size() < FrameShapeBytes(version)) {
        return {};
    }
    const std::size_t behindBits = version == kVersionWithColourSpace ? 2 : 1;
    return {.bits = WordAt(bytes, 0),
            .size = WordAt(bytes, behindBits),
            .width = WordAt(bytes, behindBits + 1),
            .height = WordAt(bytes, behindBits + 2)};
}

bool IsPossible(const FrameShape& shape) {
    return IsSide(shape.width) && IsSide(shape.height) &&
           shape.size ==
               std::uint64_t{shape.width} * shape.height * BytesPerPixel(LayoutOf(shape.bits));
}

bool NeedsSwap(std::span<const std::byte, kFrameChannelBytes> redAndBlue) {
    const std::uint32_t redOffset = WordAt(redAndBlue, 0);
    const std::uint32_t redLength = WordAt(redAndBlue, 1);
    const std::uint32_t blueOffset = WordAt(redAndBlue, 2);
    return redOffset == 0 && redLength == 8 && blueOffset == 16;
}

}  // namespace quorvi
