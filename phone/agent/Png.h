// PNG files, written by hand: the phone's pictures that no file holds.
#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <string_view>

#include "agent/Wire.h"

namespace quorvi::phone {

// A file's start: its signature and the header of a picture with 8 bits a channel and alpha.
[[nodiscard]] Bytes PngStart(std::uint32_t width, std::uint32_t height);

// Adds one chunk, `type` being its four letters.
void AddPngChunk(Bytes& file, std::string_view type, std::span<const std::byte> data);

struct PngColour {
    std::uint8_t red, green, blue, alpha;
};

// The colours that the points of a picture may have.
using PngPalette = std::array<PngColour, 16>;

// The whole file of a picture of `width` by `height` points, half a byte each, not compressed; at
// most 65,535 bytes with one more for each line. A point is the number of its colour, and `width`
// is even.
[[nodiscard]] Bytes PngFile(std::uint32_t width, std::uint32_t height, const PngPalette& palette,
                            std::span<const std::uint8_t> points);

}  // namespace quorvi::phone
