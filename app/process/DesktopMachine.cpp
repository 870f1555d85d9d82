#include "app/process/DesktopMachine.h"

#include <QFile>
#include <utility>

#include "agent/Wire.h"
#include "app/process/ProcessEnd.h"
#include "base/Clock.h"
#include "base/Places.h"
#include "desktop/DesktopFolder.h"
#include "desktop/DesktopIntegration.h"

namespace quorvi {
namespace {

std::shared_ptr<DesktopIntegration> UserDesktop() {
    QFile icon(QStringLiteral(":/icons/logo.svg"));
    static_cast<void>(icon.open(QIODevice::ReadOnly));
    const Places places = ThePlaces();
    return std::make_shared<FreedesktopIntegration>(places, DesktopFolder(places),
                                                    icon.readAll().toStdString());
}

}  // namespace

DesktopMachine::DesktopMachine(RunningInstance& instance, std::filesystem::path settings)
    : instance_(instance), settings_(std::move(settings)) {}

MachineParts DesktopMachine::Parts() {
    return {
        .settings = settings_,
        .tray = tray_,
        .notifier = notifier_,
        .sounds = sounds_,
        .instance = instance_,
        .clock = SystemClock(),
        .desktop = UserDesktop(),
        .agent = AgentPort,
        .taskDatabase = [] { return ThePlaces().TaskDatabase(); },
        .watchUsb = [this](UsbWatch::Listener listener) { usb_.Start(std::move(listener)); },
        .trackDevices =
            [this](DeviceTracker::Listener listener) { tracker_.Start(std::move(listener)); },
        .endProcess = [] { EndProcess(0); },
    };
}

}  // namespace quorvi
