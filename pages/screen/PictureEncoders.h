// A picture as the bytes of a file, one function a format. Without memory enough they give nothing;
// each takes as long as the picture is large: on a worker.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "pages/screen/RgbPicture.h"

namespace quorvi {

// Qualities that JPEG knows: 100 keeps each pixel's own colour, below it neighbours share theirs.
inline constexpr int kBestQuality = 100;

// Longest side that these formats can state.
inline constexpr int kMaxPictureSide = 65'500;

// `exif` stands in a segment of its own; see ModelProperty.
[[nodiscard]] std::optional<std::string> EncodeJpeg(const RgbPicture& picture, int quality,
                                                    std::string_view exif);
[[nodiscard]] std::optional<std::string> EncodePng(const RgbPicture& picture,
                                                   std::string_view exif);
// In 256 colours: see OctreeQuantizer.
[[nodiscard]] std::optional<std::string> EncodeGif(const RgbPicture& picture);
// 24 bits a pixel.
[[nodiscard]] std::optional<std::string> EncodeBmp(const RgbPicture& picture);

}  // namespace quorvi
