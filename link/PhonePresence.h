// Which phones are there, put together from the USB events and from adb's list, and what follows
// from each change. Both tell of the same phone, one a little before the other: each arrival and
// each removal is told once, by whoever saw it first.
//
//   for (const PresenceEvent event : presence.OnDevices(devices)) tell(event);
//
// What is told of an arrival, and the link procedure behind it, are the same whoever saw it. Beyond
// that the link is brought up for a phone that was there already and can be used only now, because
// its user has allowed this computer or because adb has just found it.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "link/FindDevice.h"
#include "link/TrackedDevices.h"
#include "link/UsbWatch.h"

namespace quorvi {

enum class PresenceEvent {
    arrival,          // a phone came: tell so, and start the link procedure with its delay
    cableRemoval,     // one on a cable went: tell so
    wirelessRemoval,  // one in the network went: tell so
    connect,          // one that was there can be used now: start the link procedure, no delay
};

// Why no phone can be used although one is there.
enum class LinkTrouble { none, unauthorized, noPermissions, offline };

// Of several troubles the one that its user is nearest to mending; none where any phone is ready.
[[nodiscard]] LinkTrouble TroubleOf(const TrackedDevices& devices);

// Used on one thread.
class PhonePresence {
  public:
    using Events = std::vector<PresenceEvent>;

    [[nodiscard]] Events OnUsb(const UsbEvent& event);
    // adb's list, whole. Phones of the first one raise no arrival: they were there before.
    [[nodiscard]] Events OnDevices(const TrackedDevices& devices);

    // How the link procedure goes on, so that none is started beside it and none in vain.
    void OnLinkStarted();
    void OnSearched(FindDeviceResult result);
    void OnLinkUp(std::string serial) { linked_ = std::move(serial); }
    [[nodiscard]] Events OnLinkEnded();

  private:
    struct Phone {
        std::string serial{};      // empty: a cable whose phone tells none
        std::string devicePath{};  // empty: no USB event has told of it
        bool onCable = false;      // a USB event told of its arrival, and none of its removal
        bool listed = false;       // by adb
        bool told = false;         // that it is there
        DeviceState state = DeviceState::other;
    };

    [[nodiscard]] Phone& OfEvent(const UsbEvent& event);
    [[nodiscard]] Phone& OfSerial(const std::string& serial);
    void OnGone(Phone& phone, Events& events);
    void OnListed(Phone& phone, DeviceState state, bool isFirst, Events& events);
    void OnReady(bool isFirst, Events& events);
    void Forget();
    void LoseLink(const Phone& phone);

    std::vector<Phone> phones_;
    // Phones on a cable whose removal was told when adb's list lost them, for the USB event behind.
    std::vector<std::string> gone_;
    bool hasList_ = false;
    bool running_ = false;                      // the link procedure
    std::optional<FindDeviceResult> searched_;  // by the procedure that ran last
    bool wanted_ = false;                       // a phone is ready that no search has seen yet
    std::string linked_;                        // empty: the link does not stand
};

}  // namespace quorvi
