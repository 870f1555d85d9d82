#include "app/process/Suite.h"

#include <ctime>
#include <utility>

#include "backup/DeletedItems.h"
#include "base/LookChoice.h"
#include "base/Places.h"
#include "pages/devices/DeviceManagerDlg.h"
#include "ui/kit/ApplyLook.h"
#include "ui/look/Look.h"
#include "ui/page/Job.h"

namespace quorvi {
namespace {

constexpr std::string_view kContrast = "contrast";

// Before the window is made, so that it is made in the look that the user has chosen.
MachineParts Dressed(MachineParts machine) {
    ApplyLookChoice(ChosenLook(machine.settings));
    if (machine.settings.ReadNumber(kSettingsKey, kContrast) == 1U) {
        look::SetReadableInks(true);
    }
    return machine;
}

}  // namespace

Suite::Suite(MachineParts machine, PageMakers makers)
    : machine_(Dressed(std::move(machine))),
      installer_(machine_.link),
      taskStore_(std::make_shared<TaskStore>(machine_.taskDatabase)),
      window_(WindowParts(std::move(makers))),
      face_(window_),
      link_(device_, face_, machine_.clock, installer_, machine_.agent, machine_.link) {}

void Suite::Start(bool hidden) {
    window_.SetStartHidden(hidden);
    window_.OnInitDialog();
    if (!hidden) {
        window_.show();
    }
    // What was kept of deletes long ago; the window needs nothing of it.
    RunJob(
        &window_,
        [] {
            DeletedItems(ThePlaces().DeletedItems()).ForgetOld(std::time(nullptr));
            return true;
        },
        [](bool) {});
}

MainParts Suite::WindowParts(PageMakers makers) {
    return {
        .settings = machine_.settings,
        .tray = machine_.tray,
        .notifier = machine_.notifier,
        .sounds = machine_.sounds,
        .instance = machine_.instance,
        .services = {.agent = machine_.agent,
                     .attribution = MakeNumberAttribution(),
                     .device = device_,
                     .desktop = machine_.desktop,
                     .installer = installer_,
                     .deployment = machine_.deployment,
                     .taskStore = taskStore_,
                     .taskQueue =
                         TaskQueue(taskStore_, installer_, [this] { return device_.Serial(); })},
        .makers = std::move(makers),
        .siteAddress = QString::fromStdString(machine_.deployment.siteRoot),
        .connectPhone = [this](bool delay) { link_.ConnectPhone(delay); },
        .watchUsb = [this] { WatchPhones(); },
        .openDeviceManager =
            [this](QWidget* parent, const QString& title, std::function<void()> done) {
                OpenDeviceManager(parent, title, std::move(done));
            },
        .endProcess = machine_.endProcess,
    };
}

// Both tell on threads of their own.
void Suite::WatchPhones() {
    machine_.watchUsb([this](const UsbEvent& event) {
        PostToWindow(&window_, [this, event] { window_.Link().OnUsb(event); });
    });
    if (machine_.trackDevices) {
        machine_.trackDevices([this](const TrackedDevices& devices) {
            PostToWindow(&window_, [this, devices] { window_.Link().OnDevices(devices); });
        });
    }
}

// A choice that is asked for while the dialog is open is made in that one: a phone that was
// connected in it may be what raised the question.
void Suite::OpenDeviceManager(QWidget* parent, const QString& title, std::function<void()> done) {
    if (manager_ && manager_->isVisible()) {
        QObject::connect(manager_, &QDialog::finished, &window_,
                         [done = std::move(done)] { done(); });
        manager_->Refresh();
        return;
    }
    manager_ = new CDeviceManagerDlg(
        device_, [this](const QString& text) { window_.SetStatus(text); }, title, parent,
        machine_.link, &machine_.settings);
    manager_->Open([done = std::move(done)](int) { done(); });
}

}  // namespace quorvi
