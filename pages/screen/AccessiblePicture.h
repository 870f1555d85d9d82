// What assistive tools are told of the picture of the phone's screen.
#pragma once

#include <QString>

namespace quorvi {

// The action that puts the picture on the clipboard.
[[nodiscard]] QString CopyPictureAction();

// From now on a ScreenCaptureCtrl is a picture that can be copied. Done once for the process,
// however often it is called. The window's thread.
void InstallAccessiblePicture();

}  // namespace quorvi
