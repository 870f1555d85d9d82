// The words in front of the pixels of adb's framebuffer service, as the phone sends them.
//
// All are little-endian, of 32 bits: the version; bits a pixel; in version 2 the colour space; the
// bytes of the frame, the width and the height in pixels; then offset and length, in bits, of red,
// blue, green and alpha within a pixel. A client that has read the height asks for the rest with
// one byte, for which old phones wait before they send the pixels.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

namespace quorvi {

inline constexpr std::size_t kFrameVersionBytes = 4;
inline constexpr std::size_t kFrameChannelBytes = 16;  // of red and blue; of green and alpha

// Longest side of a screen, in pixels. What claims to be longer is no screen.
inline constexpr std::uint32_t kMaxScreenSide = 32'767;

// Where the colours lie in a pixel. Lines follow each other without a gap, from the top.
enum class PixelLayout {
    rgb565,  // 2 bytes, a little-endian word: red in the 5 highest bits, green in 6, blue in 5
    bgr24,   // 3 bytes: blue, green, red
    bgrx32,  // 4 bytes: blue, green, red, one that says nothing
};

[[nodiscard]] constexpr std::uint32_t BytesPerPixel(PixelLayout layout) {
    return layout == PixelLayout::bgrx32 ? 4 : layout == PixelLayout::bgr24 ? 3 : 2;
}

// 32 and 24 bits are what they say; 16 and every other number count as RGB 565.
[[nodiscard]] PixelLayout LayoutOf(std::uint32_t bits);

// What the phone claims that its frame is.
struct FrameShape {
    std::uint32_t bits = 0;  // a pixel
    std::uint32_t size = 0;  // bytes of the frame
    std::uint32_t width = 0;
    std::uint32_t height = 0;
};

// Bytes of the shape behind a version word: 16, and in version 2 one word more.
[[nodiscard]] std::size_t FrameShapeBytes(std::uint32_t version);

[[nodiscard]] std::uint32_t ReadFrameVersion(std::span<const std::byte, kFrameVersionBytes> bytes);

// The shape in FrameShapeBytes(version) bytes; of fewer bytes, one that is not possible.
[[nodiscard]] FrameShape ReadFrameShape(std::uint32_t version, std::span<const std::byte> bytes);

// True if each side has 1 to kMaxScreenSide pixels and the size is just that of the pixels.
[[nodiscard]] bool IsPossible(const FrameShape& shape);

// True if red and blue have to change places: red of 8 bits at 0 and blue at 16. The bytes are
// the words of red and blue.
[[nodiscard]] bool NeedsSwap(std::span<const std::byte, kFrameChannelBytes> redAndBlue);

}  // namespace quorvi
