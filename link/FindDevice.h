// Finds out which phone the suite works with.
#pragma once

#include <functional>
#include <string_view>

#include "link/DeviceContext.h"
#include "link/LinkEnvironment.h"

namespace quorvi {

// The numbers are the codes of the table of banner texts.
enum class FindDeviceResult {
    found = 0,       // a serial is in DeviceContext
    noPipe = 1,      // the pipe could not be made
    noAdb = 2,       // adb could not start
    noDevice = 3,    // no phone in the list
    noneChosen = 4,  // several phones, none chosen
};

// Lets the user choose a phone under a title (ANSI), puts the choice into DeviceContext and returns
// when done.
using DeviceChooser = std::function<void(std::string_view title)>;

// Runs `adb devices`. The one phone that is there goes to DeviceContext; of several the chooser
// decides, with the serial cleared first. Lines count, not serials: two phones of the same serial
// are two. Blocks: on a worker.
[[nodiscard]] FindDeviceResult FindDevice(DeviceContext& device, const DeviceChooser& choose,
                                          const LinkEnvironment& environment = {});

}  // namespace quorvi
