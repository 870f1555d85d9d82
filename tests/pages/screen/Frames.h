// Frames out of bytes, for tests.
#pragma once

#include <algorithm>
#include <initializer_list>
#include <memory>
#include <vector>

#include "pages/screen/ScreenFrame.h"

namespace quorvi {

// A frame of these bytes; there must be as many as its pixels have.
inline ScreenFrame FrameOf(int width, int height, PixelLayout layout,
                           const std::vector<int>& values) {
    const auto bytes = std::make_shared<FrameBytes>(static_cast<std::uint32_t>(values.size()));
    std::transform(values.begin(), values.end(), bytes->Room().begin(),
                   [](int value) { return static_cast<std::byte>(value); });
    bytes->Commit(values.size());
    return {.width = width, .height = height, .layout = layout, .bytes = bytes};
}

}  // namespace quorvi
