#include "app/window/LinkDisplay.h"

#include <utility>

#include "app/platform/Sounds.h"
#include "app/window/Balloons.h"
#include "app/window/ProductName.h"
#include "app/window/StatusStrip.h"
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

void LinkDisplay::LinkUp() {
    timer1_.start();
    parts_.sounds.Play(Sound::linkUp);
}

void LinkDisplay::OnUsbArrival() {
    parts_.balloons.Show(ToQString(kProductName),
                         ToQString(u8"检测到Android设备，正在尝试连接..."));
    parts_.connectPhone(true);
}

void LinkDisplay::OnUsbRemoval() {
    ShowBanner(ToQString(u8"【提示】检测到一个设备断开"), BannerState::working);
    parts_.balloons.Show(ToQString(kProductName), ToQString(u8"Android设备已经断开USB连接"));
    parts_.sounds.Play(Sound::removal);
}

}  // namespace quorvi
