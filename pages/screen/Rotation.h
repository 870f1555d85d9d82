// How the picture of the screen is turned.
#pragma once

#include <array>
#include <string_view>

namespace quorvi {

// The indexes of the rotation list.
enum class Rotation : int { none = 0, right90 = 1, left90 = 2, half = 3 };

// The captions of that list.
inline constexpr std::array<std::u8string_view, 4> kRotationCaptions{
    u8"[ 无旋转 ]", u8"右旋转90度", u8"左旋转90度", u8"180 度旋转"};

// The rotation of an index; of one that is out of range, none.
[[nodiscard]] constexpr Rotation RotationOf(int index) {
    return index >= 0 && index < static_cast<int>(kRotationCaptions.size())
               ? static_cast<Rotation>(index)
               : Rotation::none;
}

// True if width and height change places.
[[nodiscard]] constexpr bool SwapsSides(Rotation rotation) {
    return rotation == Rotation::right90 || rotation == Rotation::left90;
}

}  // namespace quorvi
