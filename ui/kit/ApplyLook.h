// Gives the application the suite's look.
#pragma once

class QApplication;

namespace quorvi {

// Sets the suite's style, font and palette, makes the focus ring, tells assistive tools of the
// controls, and asks the desktop whether it wants more contrast or less motion. Called once, before
// the first window is made.
void ApplyLook(QApplication& application);

}  // namespace quorvi
