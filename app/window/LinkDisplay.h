// What the window shows of the link to the phone and of the USB cable.
#pragma once

#include <QObject>
#include <QString>
#include <QTimer>
#include <functional>
#include <string>

#include "base/Observed.h"
#include "link/LinkFace.h"
#include "link/PhonePresence.h"

namespace quorvi {

class Balloons;
class Sounds;
class StatusStrip;

// The banner, and the balloon, the sound and the refresh of the dashboard that go with it. The
// banner's text is the only record of the link's state. What comes and goes it hears from the cable
// and from adb, and starts the link procedure for it. The window's thread.
class LinkDisplay : public QObject {
    Q_OBJECT
  public:
    // What it shows things by, and what it starts. All outlive it.
    struct Parts {
        StatusStrip& status;
        Balloons& balloons;
        Sounds& sounds;
        // Starts the link procedure and returns at once; `delay`: wait before, as after an arrival.
        std::function<void(bool delay)> connectPhone;
        std::function<void()> refreshDashboard;
        // Of the phone that was chosen last.
        std::function<std::string()> serial;
        // Why a phone that is there cannot be used; set here.
        Observed<LinkTrouble> trouble;
    };

    explicit LinkDisplay(Parts parts);

    void ShowBanner(const QString& text, BannerState state);
    [[nodiscard]] BannerState Banner() const;

    // Starts the link procedure; every start goes through here.
    void ConnectPhone(bool delay);
    void Searched(FindDeviceResult result) { presence_.OnSearched(result); }
    // The link stands: its sound is played, and timer 1 refreshes the dashboard, once.
    void LinkUp();
    // A link procedure has come to its end, well or not.
    void LinkEnded();
    // Whether one has since the start.
    [[nodiscard]] bool HasEnded() const { return hasEnded_; }

    // What the USB watch and adb's list of phones tell.
    void OnUsb(const UsbEvent& event);
    void OnDevices(const TrackedDevices& devices);

    // A phone in adb mode was plugged in: tells so, and starts the link procedure with its delay.
    void OnUsbArrival();
    // One was pulled: tells so. Nothing else changes: the serial and the forward stay, and no page
    // is cleared.
    void OnUsbRemoval();

  private:
    void Follow(const PhonePresence::Events& events);
    void TellRemoval(const QString& balloon);

    Parts parts_;
    PhonePresence presence_;
    QTimer timer1_;
    bool hasEnded_ = false;
};

}  // namespace quorvi
