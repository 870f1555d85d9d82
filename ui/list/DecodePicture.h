// Image files out of records, as pictures of the size in which a row shows them.
#pragma once

#include <QImage>
#include <cstddef>
#include <string_view>

namespace quorvi {

// Longest side of a picture that is decoded, in pixels of the file.
inline constexpr int kMostPictureSide = 2048;
// Longest image file, in bytes.
inline constexpr std::size_t kMostPictureBytes = 262'244;

// Decodes an image file that a phone sent to a square of `pixels` device pixels; null when it
// cannot be. What is no picture of a known format, or claims a size beyond kMostPictureSide, costs
// no more than a look at its header.
[[nodiscard]] QImage DecodePicture(std::string_view bytes, int pixels, bool rounded,
                                   qreal cornerRadius);

}  // namespace quorvi
