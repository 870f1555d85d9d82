#include "link/UsbWatch.h"

#include <libudev.h>
#include <poll.h>

#include <array>
#include <map>
#include <memory>
#include <set>
#include <utility>

#include "base/Text.h"

namespace quorvi {
namespace {

struct Unref {
    void operator()(udev* context) const { udev_unref(context); }
    void operator()(udev_device* device) const { udev_device_unref(device); }
    void operator()(udev_enumerate* enumeration) const { udev_enumerate_unref(enumeration); }
    void operator()(udev_monitor* monitor) const { udev_monitor_unref(monitor); }
};
template <typename T>
using Udev = std::unique_ptr<T, Unref>;

constexpr const char* kSubsystem = "usb";
constexpr std::string_view kInterfaceType = "usb_interface";
constexpr std::string_view kDeviceType = "usb_device";

// How the kernel writes the adb interface in an event: class, subclass and protocol in decimal.
constexpr std::string_view kAdbInterface = "255/66/1";

// And in the attributes of an interface.
struct Attribute {
    const char* name;
    std::string_view value;
};
constexpr std::array<Attribute, 3> kAdbAttributes{{
    {"bInterfaceClass", "ff"},
    {"bInterfaceSubClass", "42"},
    {"bInterfaceProtocol", "01"},
}};

std::string_view OrEmpty(const char* text) {
    return text == nullptr ? std::string_view() : std::string_view(text);
}

bool IsAdbInterface(udev_device* interface) {
    if (OrEmpty(udev_device_get_property_value(interface, "INTERFACE")) == kAdbInterface) {
        return true;
    }
    for (const Attribute& attribute : kAdbAttributes) {
        const char* const value = udev_device_get_sysattr_value(interface, attribute.name);
        if (!EqualsNoCase(Trim(OrEmpty(value)), attribute.value)) {
            return false;
        }
    }
    return true;
}

// The path of the device that an interface is part of: the directory above. Worked out from the
// text, since at a removal there is nothing left to ask.
std::string DeviceOf(std::string_view interfacePath) {
    return std::string(interfacePath.substr(0, interfacePath.rfind('/')));
}

// The paths of all devices with an adb interface that are there, or of those below `parent`.
std::set<std::string> AdbDevices(udev* context, udev_device* parent) {
    std::set<std::string> found;
    const Udev<udev_enumerate> interfaces(udev_enumerate_new(context));
    udev_enumerate_add_match_subsystem(interfaces.get(), kSubsystem);
    if (parent != nullptr) {
        udev_enumerate_add_match_parent(interfaces.get(), parent);
    }
    udev_enumerate_scan_devices(interfaces.get());
    udev_list_entry* entry = nullptr;
    udev_list_entry_foreach(entry, udev_enumerate_get_list_entry(interfaces.get())) {
        const char* const path = udev_list_entry_get_name(entry);
        const Udev<udev_device> interface(udev_device_new_from_syspath(context, path));
        if (interface && IsAdbInterface(interface.get())) {
            found.insert(DeviceOf(path));
        }
    }
    return found;
}

// The serial of a device that is there; empty where it tells none.
std::string SerialOf(udev* context, const std::string& devicePath) {
    const Udev<udev_device> device(udev_device_new_from_syspath(context, devicePath.c_str()));
    const char* const serial =
        device ? udev_device_get_sysattr_value(device.get(), "serial") : nullptr;
    return std::string(Trim(OrEmpty(serial)));
}

bool HasAdbInterface(udev* context, udev_device* device) {
    return AdbDevices(context, device).contains(udev_device_get_syspath(device));
}

}  // namespace

bool IsAdbUsbDevice(std::string_view devicePath) {
    const Udev<udev> context(udev_new());
    if (!context) {
        return false;
    }
    const Udev<udev_device> device(
        udev_device_new_from_syspath(context.get(), std::string(devicePath).c_str()));
    return device && HasAdbInterface(context.get(), device.get());
}

class UsbWatch::Monitor {
  public:
    explicit Monitor(Listener listener) : listener_(std::move(listener)) {}

    // False where the system has no udev to ask.
    [[nodiscard]] bool Open();
    // Until it is stopped.
    void Run(const StopSignal& stop);

  private:
    void OnEvent(udev_device* device);
    void OnAdded(udev_device* device, bool isInterface);
    void OnRemoved(udev_device* device, bool isInterface);

    Listener listener_;
    Udev<udev> context_;
    Udev<udev_monitor> monitor_;
    // The serials of what was seen at the arrivals, by path: at a removal nothing tells them any
    // more.
    std::map<std::string, std::string> phones_;
};

bool UsbWatch::Monitor::Open() {
    context_.reset(udev_new());
    if (!context_) {
        return false;
    }
    monitor_.reset(udev_monitor_new_from_netlink(context_.get(), "udev"));
    if (!monitor_ ||
        udev_monitor_filter_add_match_subsystem_devtype(monitor_.get(), kSubsystem, nullptr) < 0 ||
        udev_monitor_enable_receiving(monitor_.get()) < 0) {
        return false;
    }
    // Asked behind the start of the watch, so that no phone falls between the two.
    for (const std::string& path : AdbDevices(context_.get(), nullptr)) {
        phones_.emplace(path, SerialOf(context_.get(), path));
    }
    return true;
}

void UsbWatch::Monitor::Run(const StopSignal& stop) {
    for (;;) {
        std::array<pollfd, 2> waits{
            {{udev_monitor_get_fd(monitor_.get()), POLLIN, 0}, {stop.Descriptor(), POLLIN, 0}}};
        const int ready = poll(waits.data(), waits.size(), -1);
        if (ready > 0 && waits[1].revents != 0) {
            return;
        }
        if (ready > 0 && waits[0].revents != 0) {
            if (const Udev<udev_device> device{udev_monitor_receive_device(monitor_.get())}) {
                OnEvent(device.get());
            } else if ((waits[0].revents & POLLIN) == 0) {
                return;  // the monitor is broken and would wake this thread for ever
            }
        }
    }
}

void UsbWatch::Monitor::OnEvent(udev_device* device) {
    const std::string_view action = OrEmpty(udev_device_get_action(device));
    const std::string_view type = OrEmpty(udev_device_get_devtype(device));
    const bool isInterface = type == kInterfaceType;
    if (!isInterface && type != kDeviceType) {
        return;
    }
    if (action == "add") {
        OnAdded(device, isInterface);
    } else if (action == "remove") {
        OnRemoved(device, isInterface);
    }
}

// A device comes with its interfaces behind it: whichever event shows the adb interface first
// raises the one arrival.
void UsbWatch::Monitor::OnAdded(udev_device* device, bool isInterface) {
    std::string path = udev_device_get_syspath(device);
    if (isInterface) {
        if (!IsAdbInterface(device)) {
            return;
        }
        path = DeviceOf(path);
    } else {
        phones_.erase(path);  // whatever was there before is there no more
        if (!HasAdbInterface(context_.get(), device)) {
            return;
        }
    }
    const auto [phone, isNew] = phones_.emplace(path, SerialOf(context_.get(), path));
    if (isNew) {
        listener_({UsbEvent::Kind::arrival, path, phone->second});
    }
}

// The interfaces go before their device. Attributes are gone by now: what was remembered counts, or
// what the event itself says of the interface.
void UsbWatch::Monitor::OnRemoved(udev_device* device, bool isInterface) {
    std::string path = udev_device_get_syspath(device);
    if (isInterface) {
        path = DeviceOf(path);
        const bool isAdb =
            OrEmpty(udev_device_get_property_value(device, "INTERFACE")) == kAdbInterface;
        if (!isAdb) {
            return;
        }
    } else if (!phones_.contains(path)) {
        return;
    }
    const auto phone = phones_.extract(path);
    listener_({UsbEvent::Kind::removal, path, phone ? phone.mapped() : std::string()});
}

bool UsbWatch::Start(Listener listener) {
    Stop();  // before the next monitor asks what is there
    const auto monitor = std::make_shared<Monitor>(std::move(listener));
    return monitor->Open() &&
           thread_.Start([monitor](const StopSignal& stop) { monitor->Run(stop); });
}

}  // namespace quorvi
