// A frame of the phone's screen as a picture that Qt can draw.
#pragma once

#include <QImage>
#include <optional>

#include "pages/screen/FrameReducer.h"
#include "pages/screen/Rotation.h"
#include "pages/screen/ScreenFrame.h"

namespace quorvi {

// What has been captured, and how it is turned.
struct ScreenPicture {
    ScreenFrame frame;
    Rotation rotation = Rotation::none;
    QImage image;    // turned
    QImage reduced;  // turned too, for painting where it has room enough; null where there is none
};

// Turning a picture touches each of its pixels: on a worker. One that is not turned lies over the
// frame's own bytes, which live as long as it or a copy of it does.
[[nodiscard]] ScreenPicture PictureOf(ScreenFrame frame, Rotation rotation,
                                      std::optional<ReducedFrame> reduced = std::nullopt);

}  // namespace quorvi
