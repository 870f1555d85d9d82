// The suite put together: the window on its parts, and the link and the USB events that reach it.
#pragma once

#include <QPointer>
#include <filesystem>
#include <functional>
#include <memory>

#include "agent/AgentAddress.h"
#include "app/window/MainDlg.h"
#include "app/window/WindowLinkFace.h"
#include "base/Deployment.h"
#include "download/TaskStore.h"
#include "link/DeviceContext.h"
#include "link/DeviceTracker.h"
#include "link/LinkEnvironment.h"
#include "link/PackageInstaller.h"
#include "link/PhoneLink.h"
#include "link/UsbWatch.h"

namespace quorvi {

class CDeviceManagerDlg;
class Clock;

// What of the suite touches the machine that it runs on: a DesktopMachine, or doubles in tests. All
// outlive the suite.
struct MachineParts {
    SettingsStore& settings;
    Tray& tray;
    Notifier& notifier;
    Sounds& sounds;
    RunningInstance& instance;
    Clock& clock;
    std::shared_ptr<DesktopIntegration> desktop;
    AgentAddress agent;
    LinkEnvironment link = {};
    Deployment deployment = TheDeployment();
    // Where the downloads' table is; asked on a worker, since it looks at the disk.
    std::function<std::filesystem::path()> taskDatabase;
    // Watches for USB events from now on, and tells them on a thread of its own.
    std::function<void(UsbWatch::Listener)> watchUsb;
    // Follows adb's list of phones from now on, and tells it on a thread of its own. None: it is
    // not followed.
    std::function<void(DeviceTracker::Listener)> trackDevices;
    // Ends the process, waiting for nobody.
    std::function<void()> endProcess;
};

// The window's thread. Outlives the workers of the link, so in the program it is never torn down.
class Suite {
  public:
    // `makers`: of the pages; differ from the suite's own in tests only.
    explicit Suite(MachineParts machine, PageMakers makers = ThePageMakers());
    Suite(const Suite&) = delete;
    Suite& operator=(const Suite&) = delete;

    // Brings the window up with all that OnInitDialog starts. `hidden`: it is not shown.
    void Start(bool hidden);

    [[nodiscard]] CMainDlg& Window() { return window_; }

  private:
    [[nodiscard]] MainParts WindowParts(PageMakers makers);
    void WatchPhones();
    void OpenDeviceManager(QWidget* parent, const QString& title, std::function<void()> done);

    MachineParts machine_;
    DeviceContext device_;
    PackageInstaller installer_;
    std::shared_ptr<TaskStore> taskStore_;
    CMainDlg window_;
    WindowLinkFace face_;
    QPointer<CDeviceManagerDlg> manager_;  // the one that is open
    PhoneLink link_;
};

}  // namespace quorvi
