#include "pages/screen/ShowSize.h"

#include <utility>

namespace quorvi {

ShowSize ShowSizeOf(const ShowSize& before, bool ready, int screenWidth, int screenHeight,
                    Rotation rotation) {
    constexpr int kReadyWidth = 300;
    if (screenWidth < 1 || screenHeight < 1) {
        return before;
    }
    ShowSize size = before;
    if (ready) {
        size.width = kReadyWidth;
    }
    size.height = static_cast<int>(static_cast<double>(size.width) / screenWidth * screenHeight);
    if (SwapsSides(rotation)) {
        std::swap(size.width, size.height);
    }
    return size;
}

}  // namespace quorvi
