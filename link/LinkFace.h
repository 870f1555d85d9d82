// What the link procedure tells and asks whoever shows it to the user: the window, or the command
// line.
#pragma once

#include <string>
#include <string_view>

#include "link/FindDevice.h"

namespace quorvi {

// The states of the ConnectionBanner: blue, red, green.
enum class BannerState { working = 0, error = 1, success = 2 };

// Called on the link's own threads, never on the window's. Texts are ANSI. The banner's text is the
// only record of the link's state.
class LinkFace {
  public:
    virtual ~LinkFace() = default;

    virtual void ShowBanner(std::string text, BannerState state) = 0;

    // Several phones are there and the serial in DeviceContext is cleared: lets the user choose one
    // under this title, puts the choice into DeviceContext and returns when done. Blocks.
    virtual void ChooseDevice(std::string_view title) = 0;

    // The search for a phone is over; a failed one shows its banner next.
    virtual void Searched(FindDeviceResult /*result*/) {}

    // The link stands: timer 1 (the dashboard refreshes) and sound 656.
    virtual void LinkUp() = 0;

    // The procedure that a ConnectPhone started is over, in whatever way, after its last banner;
    // the retry behind an install is part of it.
    virtual void LinkEnded() {}
};

}  // namespace quorvi
