// What the phone's screen shows.
#pragma once

#include "agent/Request.h"
#include "phone/Channel.h"
#include "phone/ScreenForm.h"

namespace quorvi::phone {

// The answer of adb's framebuffer service: a header, and the pixels from the top left, line by
// line.
//
// The header's little-endian words: version, bits a pixel, in version 2 the colour space, bytes of
// the frame, width, height, then offset and length of red, blue, green, alpha. 32 bits: red, green,
// blue, unused; 24 bits: without the unused one; both also from blue to red. All else is 16 bits
// long: red in the five highest, green in six, blue in five.
struct ScreenPicture {
    SharedBytes header;
    SharedBytes pixels;
};

// Draws the screen. The fault's claims stand in the header; the pixels are as they should be.
[[nodiscard]] ScreenPicture DrawFramebuffer(const ScreenForm& form, int battery);

// A screen that is drawn once for each form.
class Screen {
  public:
    Screen(const ScreenForm& form, int battery) : form_(form), battery_(battery) {}

    [[nodiscard]] const ScreenForm& Form() const { return form_; }
    void SetForm(const ScreenForm& form);
    [[nodiscard]] const ScreenPicture& Shown();

  private:
    ScreenForm form_;
    int battery_;
    ScreenPicture picture_;  // empty until it is asked for
};

}  // namespace quorvi::phone
