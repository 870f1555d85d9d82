#include "pages/screen/ScreenFrame.h"

#include <bit>
#include <cstdint>
#include <cstring>

namespace quorvi {

bool FrameBytes::SwapRedBlue() {
    constexpr std::size_t kStep = 4;
    if (received_ % kStep != 0) {
        return false;
    }
    std::byte* const bytes = memory_.Writable().data();
    for (std::size_t at = 0; at < received_; at += kStep) {
        // A whole pixel at a time, which compilers make eight at a time of. The exchanged bytes are
        // the outer and the middle one of three, in either order of a word's bytes.
        std::uint32_t pixel = 0;
        std::memcpy(&pixel, bytes + at, kStep);
        if constexpr (std::endian::native == std::endian::little) {
            pixel = (pixel & 0xFF00FF00U) | (pixel >> 16 & 0xFFU) | (pixel & 0xFFU) << 16;
        } else {
            pixel = (pixel & 0x00FF00FFU) | (pixel >> 16 & 0xFF00U) | (pixel & 0xFF00U) << 16;
        }
        std::memcpy(bytes + at, &pixel, kStep);
    }
    return true;
}

}  // namespace quorvi
