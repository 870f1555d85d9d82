#include "app/window/LinkDisplay.h"

#include <utility>

#include "app/platform/Sounds.h"
#include "app/window/Balloons.h"
#include "app/window/ProductName.h"
#include "app/window/StatusStrip.h"
#include "link/LinkAdvice.h"
#include "ui/kit/QtText.h"

namespace quorvi {
namespace {

constexpr int kTimer1Ms = 50;

}  // namespace

LinkDisplay::LinkDisplay(Parts parts) : parts_(std::move(parts)) {
    timer1_.setSingleShot(true);
    timer1_.setInterval(kTimer1Ms);
    connect(&timer1_, &QTimer::timeout, this, [this] { parts_.refreshDashboard(); });
}

void LinkDisplay::ShowBanner(const QString& text, BannerState state) {
    parts_.status.SetBanner(text, state);
}

BannerState LinkDisplay::Banner() const {
    return parts_.status.Banner();
}

void LinkDisplay::ConnectPhone(bool delay) {
    presence_.OnLinkStarted();
    parts_.connectPhone(delay);
}

void LinkDisplay::LinkUp() {
    presence_.OnLinkUp(parts_.serial());
    timer1_.start();
    parts_.sounds.Play(Sound::linkUp);
}

void LinkDisplay::LinkEnded() {
    hasEnded_ = true;
    Follow(presence_.OnLinkEnded());
}

void LinkDisplay::OnUsb(const UsbEvent& event) {
    Follow(presence_.OnUsb(event));
}

void LinkDisplay::OnDevices(const TrackedDevices& devices) {
    const LinkTrouble trouble = TroubleOf(devices);
    if (trouble != parts_.trouble.Get()) {
        parts_.status.SetBannerTip(ToQString(AdviceOn(trouble).tip));
        parts_.trouble.Set(trouble);
    }
    Follow(presence_.OnDevices(devices));
}

void LinkDisplay::Follow(const PhonePresence::Events& events) {
    for (const PresenceEvent event : events) {
        switch (event) {
            case PresenceEvent::arrival:
                OnUsbArrival();
                break;
            case PresenceEvent::cableRemoval:
                OnUsbRemoval();
                break;
            case PresenceEvent::wirelessRemoval:
                TellRemoval(ToQString(u8"Android设备已经断开无线连接"));
                break;
            case PresenceEvent::connect:
                ConnectPhone(false);
                break;
        }
    }
}

void LinkDisplay::OnUsbArrival() {
    parts_.balloons.Show(ToQString(kProductName),
                         ToQString(u8"检测到Android设备，正在尝试连接..."));
    ConnectPhone(true);
}

void LinkDisplay::OnUsbRemoval() {
    TellRemoval(ToQString(u8"Android设备已经断开USB连接"));
}

void LinkDisplay::TellRemoval(const QString& balloon) {
    ShowBanner(ToQString(u8"【提示】检测到一个设备断开"), BannerState::working);
    parts_.balloons.Show(ToQString(kProductName), balloon);
    parts_.sounds.Play(Sound::removal);
}

}  // namespace quorvi
