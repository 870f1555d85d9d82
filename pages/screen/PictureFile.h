// Saves a picture of the phone's screen.
#pragma once

#include <filesystem>
#include <string>

#include "pages/screen/Rotation.h"
#include "pages/screen/SaveFormats.h"
#include "pages/screen/ScreenFrame.h"

namespace quorvi {

struct SaveResult {
    bool saved = false;
    std::string reason;  // why not, in words for the user, without a full stop. ANSI
};

// Writes the picture, turned, to a file, in place of one that is there. JPEG honours the quality,
// 1 to 100; it is taken for each format. JPEG and PNG name the suite's site as the camera's model.
// The file is written whole or not at all; its folder must be there. Takes as long as the picture
// is large and the disk is slow: on a worker.
[[nodiscard]] SaveResult SavePicture(const ScreenFrame& frame, Rotation rotation,
                                     const std::filesystem::path& file, SaveFormat format,
                                     int quality);

}  // namespace quorvi
