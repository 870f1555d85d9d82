// Tells when an Android phone in adb mode is plugged in or pulled.
//
// Such a phone has a USB interface of class ff, subclass 42, protocol 01. A phone whose adb is off,
// or which udev does not list, is not seen here; it can still be linked to at program start and
// from the device manager.
#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "base/os/StoppableThread.h"

namespace quorvi {

// Whether the device of this path (udev's, as "/sys/devices/…/1-2") is there and is an Android
// phone in adb mode. Any thread.
[[nodiscard]] bool IsAdbUsbDevice(std::string_view devicePath);

struct UsbEvent {
    enum class Kind { arrival, removal };

    Kind kind = Kind::arrival;
    std::string devicePath;
    // As the device tells it, which is how adb names the phone; empty where it tells none.
    std::string serial = {};
};

class UsbWatch {
  public:
    // Called on the watch's own thread, once a device and event, with Android phones in adb mode
    // only. It posts what it hears and does not stop the watch.
    using Listener = std::function<void(const UsbEvent& event)>;

    // Watches from now on; phones that are there already raise no arrival, but their removal is
    // told. False where the system has no udev to ask: nothing will be heard then.
    bool Start(Listener listener);

    // Ends the watch at once. The listener is not called any more when it returns.
    void Stop() { thread_.Stop(); }

  private:
    class Monitor;

    StoppableThread thread_;
};

}  // namespace quorvi
