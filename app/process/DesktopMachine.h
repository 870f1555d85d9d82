// The desktop that the program runs on.
#pragma once

#include <filesystem>

#include "app/platform/BusNotifier.h"
#include "app/platform/DesktopTray.h"
#include "app/platform/EffectSounds.h"
#include "app/platform/RunningInstance.h"
#include "app/process/Suite.h"
#include "base/Places.h"
#include "base/SettingsFile.h"
#include "link/DeviceTracker.h"
#include "link/UsbWatch.h"

namespace quorvi {

// Owns what the suite has of the desktop. After the application is made.
class DesktopMachine {
  public:
    // `settings`: their file; another than the user's for who shall not depend on them.
    explicit DesktopMachine(RunningInstance& instance,
                            std::filesystem::path settings = ThePlaces().SettingsFile());

    [[nodiscard]] MachineParts Parts();

  private:
    RunningInstance& instance_;
    SettingsFile settings_;
    DesktopTray tray_;
    BusNotifier notifier_;
    EffectSounds sounds_;
    UsbWatch usb_;
    DeviceTracker tracker_;
};

}  // namespace quorvi
