// PNG files, written by hand: the phone's pictures that no file holds.
#pragma once

#include <cstdint>
#include <span>
#include <string_view>

#include "agent/Wire.h"

namespace quorvi::phone {

// A file's start: its signature and the header of a picture with 8 bits a channel and alpha.
[[nodiscard]] Bytes PngStart(std::uint32_t width, std::uint32_t height);

// Adds one chunk, `type` being its four letters.
void AddPngChunk(Bytes& file, std::string_view type, std::span<const std::byte> data);

// The whole file of a picture of `width` by `height` points, four bytes each (red, green, blue,
// alpha), not compressed; at most 65,535 bytes with one more for each line.
[[nodiscard]] Bytes PngFile(std::uint32_t width, std::uint32_t height,
                            std::span<const std::byte> points);

}  // namespace quorvi::phone
