// The pictures that contacts have.
#pragma once

#include <cstddef>
#include <string_view>

#include "phone/Channel.h"

namespace quorvi::phone {

// The file of that name in phone/photos ("hiker.jpg"); nothing when there is none.
[[nodiscard]] SharedBytes PhotoFile(std::string_view name);

// A small JPEG file of exactly so many bytes, at least those of the picture itself: behind its end,
// where decoders look no further, stands `number` over and over, so that no two are alike.
[[nodiscard]] Bytes PaddedPhoto(std::size_t bytes, std::uint32_t number);

// A PNG file whose header states that size and behind which no picture comes.
[[nodiscard]] Bytes HeaderOnlyPng(std::uint32_t width, std::uint32_t height);

}  // namespace quorvi::phone
