#include "link/PhonePresence.h"

#include <algorithm>
#include <utility>

namespace quorvi {
namespace {

// In the order in which they are explained.
constexpr std::pair<DeviceState, LinkTrouble> kTroubles[] = {
    {DeviceState::unauthorized, LinkTrouble::unauthorized},
    {DeviceState::noPermissions, LinkTrouble::noPermissions},
    {DeviceState::offline, LinkTrouble::offline},
};

bool AnyIn(const TrackedDevices& devices, DeviceState state) {
    return std::ranges::any_of(
        devices, [state](const TrackedDevice& device) { return device.state == state; });
}

// Of several phones of one serial the one that can be used counts.
const TrackedDevice* Find(const TrackedDevices& devices, std::string_view serial) {
    const TrackedDevice* found = nullptr;
    for (const TrackedDevice& device : devices) {
        if (device.serial == serial && (found == nullptr || device.state == DeviceState::ready)) {
            found = &device;
        }
    }
    return found;
}

}  // namespace

LinkTrouble TroubleOf(const TrackedDevices& devices) {
    if (AnyIn(devices, DeviceState::ready)) {
        return LinkTrouble::none;
    }
    for (const auto& [state, trouble] : kTroubles) {
        if (AnyIn(devices, state)) {
            return trouble;
        }
    }
    return LinkTrouble::none;
}

// The phone of a USB event: by its path, or else its serial. A phone that tells no serial is the
// one on a cable that only adb has told of so far, if there is one.
PhonePresence::Phone& PhonePresence::OfEvent(const UsbEvent& event) {
    auto found = std::ranges::find(phones_, event.devicePath, &Phone::devicePath);
    if (found == phones_.end()) {
        found = std::ranges::find_if(phones_, [&](const Phone& phone) {
            return phone.devicePath.empty() && !IsWirelessSerial(phone.serial) &&
                   (event.serial.empty() || phone.serial == event.serial);
        });
    }
    if (found == phones_.end()) {
        found = phones_.insert(phones_.end(), Phone{.serial = event.serial});
    }
    return *found;
}

// The phone of a line of the list: by its serial, or else one on a cable that told none.
PhonePresence::Phone& PhonePresence::OfSerial(const std::string& serial) {
    auto found = std::ranges::find(phones_, serial, &Phone::serial);
    if (found == phones_.end() && !IsWirelessSerial(serial)) {
        found = std::ranges::find_if(
            phones_, [](const Phone& phone) { return phone.serial.empty() && phone.onCable; });
    }
    if (found == phones_.end()) {
        found = phones_.insert(phones_.end(), Phone{});
    }
    found->serial = serial;
    return *found;
}

void PhonePresence::Forget() {
    std::erase_if(phones_, [](const Phone& phone) { return !phone.onCable && !phone.listed; });
}

void PhonePresence::LoseLink(const Phone& phone) {
    if (phone.serial == linked_) {
        linked_.clear();
    }
}

PhonePresence::Events PhonePresence::OnUsb(const UsbEvent& event) {
    Events events;
    Phone& phone = OfEvent(event);
    const bool goneByAdb = std::erase(gone_, event.serial) > 0;
    if (event.kind == UsbEvent::Kind::arrival) {
        phone.onCable = true;
        phone.devicePath = event.devicePath;
        if (!std::exchange(phone.told, true)) {
            events.push_back(PresenceEvent::arrival);
        }
        return events;
    }
    // A phone of which nobody has told was there before both began to watch, or adb's list was
    // quicker to lose it.
    const bool isNew = !phone.onCable && !phone.listed;
    phone.onCable = false;
    phone.devicePath.clear();
    if (std::exchange(phone.told, false) || (isNew && !goneByAdb)) {
        events.push_back(PresenceEvent::cableRemoval);
    }
    LoseLink(phone);
    Forget();
    return events;
}

PhonePresence::Events PhonePresence::OnDevices(const TrackedDevices& devices) {
    Events events;
    const bool isFirst = !std::exchange(hasList_, true);
    for (Phone& phone : phones_) {
        if (phone.listed && Find(devices, phone.serial) == nullptr) {
            OnGone(phone, events);
        }
    }
    Forget();
    for (const TrackedDevice& device : devices) {
        OnListed(OfSerial(device.serial), Find(devices, device.serial)->state, isFirst, events);
    }
    return events;
}

// A phone that a USB event has told of is there until one tells that it went.
void PhonePresence::OnGone(Phone& phone, Events& events) {
    phone.listed = false;
    phone.state = DeviceState::other;
    LoseLink(phone);
    if (phone.onCable || !std::exchange(phone.told, false)) {
        return;
    }
    if (IsWirelessSerial(phone.serial)) {
        events.push_back(PresenceEvent::wirelessRemoval);
        return;
    }
    events.push_back(PresenceEvent::cableRemoval);
    if (gone_.size() == kMostTrackedDevices) {
        gone_.erase(gone_.begin());
    }
    gone_.push_back(phone.serial);
}

void PhonePresence::OnListed(Phone& phone, DeviceState state, bool isFirst, Events& events) {
    const bool isNew = !std::exchange(phone.listed, true);
    const bool arrives = isNew && !std::exchange(phone.told, true) && !isFirst;
    if (arrives) {
        std::erase(gone_, phone.serial);
        events.push_back(PresenceEvent::arrival);
    }
    const bool wasReady = std::exchange(phone.state, state) == DeviceState::ready;
    if (state != DeviceState::ready) {
        LoseLink(phone);
    } else if (!wasReady && !arrives) {
        OnReady(isFirst, events);
    }
}

void PhonePresence::OnReady(bool isFirst, Events& events) {
    const bool searchFailed = searched_ == FindDeviceResult::noDevice;
    // A phone of the first list was there when the program's first search ran. What that search
    // found needs no second one.
    if (!linked_.empty() || (isFirst && searched_ && !searchFailed)) {
        return;
    }
    wanted_ = true;
    if (!running_ && searched_ && std::ranges::count(events, PresenceEvent::connect) == 0) {
        events.push_back(PresenceEvent::connect);
    }
}

void PhonePresence::OnLinkStarted() {
    running_ = true;
    searched_.reset();
    linked_.clear();
}

// Only a search that found no phone is made once more, for one that became ready meanwhile. Other
// failures are for the user to mend.
void PhonePresence::OnSearched(FindDeviceResult result) {
    searched_ = result;
    if (result != FindDeviceResult::noDevice) {
        wanted_ = false;
    }
}

PhonePresence::Events PhonePresence::OnLinkEnded() {
    running_ = false;
    if (!searched_) {
        searched_ = FindDeviceResult::noPipe;
    }
    const bool again = std::exchange(wanted_, false) && linked_.empty();
    return again ? Events{PresenceEvent::connect} : Events{};
}

}  // namespace quorvi
