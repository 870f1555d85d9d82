// What the phone's screen shows.
#pragma once

#include "agent/Request.h"
#include "phone/Profile.h"

namespace quorvi::phone {

// The answer of adb's framebuffer service in its version 1: 13 little-endian words (version 1, bits
// a pixel, bytes of the frame, width, height, then offset and length of red, blue, green, alpha),
// then the pixels from the top left, line by line. 32 bits: red, green, blue, unused; 16 bits: red
// in the five highest, green in six, blue in five.
[[nodiscard]] Bytes DrawFramebuffer(const Profile& profile);

}  // namespace quorvi::phone
