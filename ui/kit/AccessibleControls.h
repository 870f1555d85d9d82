// What assistive tools are told of the kit's controls where Qt's own answer falls short.
#pragma once

namespace quorvi {

// From now on a check box, switch or radio button that an assistive tool flips does what a click
// does, its page being told included; and a combo box is called by its name, and not by the entry
// that it shows; a button that leads nowhere is a text, and nothing to press. Called once, before
// the first window is made. The window's thread.
void InstallAccessibleControls();

}  // namespace quorvi
