// Round corners for a framed view whose contents fill it to the edge.
#pragma once

class QFrame;

namespace quorvi {

// Lays four small patches over the corners of `frame`, in the ground of the widget below it, with
// the frame's line carried round. (A mask, which knows only whole pixels, would leave the corners
// ragged.)
class RoundCorners {
  public:
    static void Attach(QFrame& frame);
};

}  // namespace quorvi
