// Gives the application the suite's look.
#pragma once

#include "base/LookChoice.h"

class QApplication;

namespace quorvi {

// Sets the suite's style, font and palette, makes the focus ring, tells assistive tools of the
// controls, and asks the desktop whether it wants more contrast, dark or less motion. Called once,
// before the first window is made.
void ApplyLook(QApplication& application);

// Draws everything in the theme of the user's choice from now on. The window's thread.
void ApplyLookChoice(LookChoice choice);

}  // namespace quorvi
