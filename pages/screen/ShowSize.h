// The size at which the picture of the screen is drawn.
#pragma once

#include "pages/screen/Rotation.h"

namespace quorvi {

struct ShowSize {
    int width = 210;  // before the first capture
    int height = 310;

    friend bool operator==(const ShowSize&, const ShowSize&) = default;
};

// That of a capture, by the one before it. Once the page is `ready` the picture is 300 wide, before
// that as wide as it was; the height follows the screen's proportions, computed in double precision
// and cut off; then the sides change places where the rotation asks for it. A screen without a side
// leaves what is.
[[nodiscard]] ShowSize ShowSizeOf(const ShowSize& before, bool ready, int screenWidth,
                                  int screenHeight, Rotation rotation);

}  // namespace quorvi
