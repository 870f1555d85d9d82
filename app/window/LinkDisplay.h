// What the window shows of the link to the phone and of the USB cable.
#pragma once

#include <QObject>
#include <QString>
#include <QTimer>
#include <functional>

#include "link/LinkFace.h"

namespace quorvi {

class Balloons;
class Sounds;
class StatusStrip;

// The banner, and the balloon, the sound and the refresh of the dashboard that go with it. The
// banner's text is the only record of the link's state. The window's thread.
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
    };

    explicit LinkDisplay(Parts parts);

    void ShowBanner(const QString& text, BannerState state);
    [[nodiscard]] BannerState Banner() const;

    // The link stands: its sound is played, and timer 1 refreshes the dashboard, once.
    void LinkUp();
    // A link procedure has come to its end, well or not.
    void LinkEnded() { hasEnded_ = true; }
    // Whether one has since the start.
    [[nodiscard]] bool HasEnded() const { return hasEnded_; }

    // A phone in adb mode was plugged in: tells so, and starts the link procedure with its delay.
    void OnUsbArrival();
    // One was pulled: tells so. Nothing else changes: the serial and the forward stay, and no page
    // is cleared.
    void OnUsbRemoval();

  private:
    Parts parts_;
    QTimer timer1_;
    bool hasEnded_ = false;
};

}  // namespace quorvi
