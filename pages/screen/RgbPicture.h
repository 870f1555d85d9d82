// A picture as its encoders take it, and the way there from a frame.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "pages/screen/Rotation.h"
#include "pages/screen/ScreenFrame.h"

namespace quorvi {

// Red, green and blue of each pixel, one byte each, line by line from the top without a gap.
struct RgbPicture {
    static constexpr std::size_t kPixelBytes = 3;

    int width = 0;
    int height = 0;
    std::vector<std::uint8_t> bytes;

    [[nodiscard]] std::size_t Stride() const {
        return kPixelBytes * static_cast<std::size_t>(width);
    }
    [[nodiscard]] std::span<const std::uint8_t> Line(int y) const {
        return std::span(bytes).subspan(static_cast<std::size_t>(y) * Stride(), Stride());
    }
};

// The picture of a frame, turned. Five and six bits of a colour are spread over all eight, so that
// white stays white. Takes memory for all of the picture. Any thread.
[[nodiscard]] RgbPicture TurnedPicture(const ScreenFrame& frame, Rotation rotation);

}  // namespace quorvi
