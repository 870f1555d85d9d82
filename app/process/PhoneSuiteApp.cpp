#include "app/process/PhoneSuiteApp.h"

#include <QApplication>
#include <QFile>
#include <QLoggingCategory>
#include <cstring>
#include <string>
#include <vector>

#include "app/platform/BusNotifier.h"
#include "app/platform/DesktopTray.h"
#include "app/platform/EffectSounds.h"
#include "app/process/EndSignals.h"
#include "app/process/ProcessEnd.h"
#include "app/process/RunningInstance.h"
#include "app/process/StartOptions.h"
#include "app/window/MainDlg.h"
#include "app/window/WindowLinkFace.h"
#include "base/Deployment.h"
#include "base/Places.h"
#include "base/SettingsFile.h"
#include "desktop/DesktopFolder.h"
#include "desktop/DesktopIntegration.h"
#include "link/PackageInstaller.h"
#include "link/PhoneLink.h"
#include "link/UsbWatch.h"
#include "pages/devices/DeviceManagerDlg.h"
#include "tour/Tour.h"
#include "ui/html/HtmlSite.h"
#include "ui/kit/ApplyLook.h"
#include "ui/look/Look.h"
#include "ui/page/Job.h"

namespace quorvi {
namespace {

// With a folder behind it: the program writes its pictures there and ends.
constexpr const char* kTourOption = "--tour";
constexpr std::string_view kContrast = "contrast";

void PrepareQt() {
    QCoreApplication::setOrganizationName(QStringLiteral("Quorvi"));
    QCoreApplication::setApplicationName(QStringLiteral("Quorvi"));
    // The engine of the HTML views tells at length how it was started.
    QLoggingCategory::setFilterRules(QStringLiteral("qt.webenginecontext=false"));
    PrepareHtmlViews();
}

std::shared_ptr<DesktopIntegration> UserDesktop() {
    QFile icon(QStringLiteral(":/icons/logo.svg"));
    static_cast<void>(icon.open(QIODevice::ReadOnly));
    const Places places = ThePlaces();
    return std::make_shared<FreedesktopIntegration>(places, DesktopFolder(places),
                                                    icon.readAll().toStdString());
}

// All that the window stands on, and the window. Made once and never torn down: the process ends
// under workers that still use it.
class Suite {
  public:
    explicit Suite(RunningInstance& instance)
        : window_(Parts(instance)),
          face_(window_),
          link_(device_, face_, SystemClock(), installer_) {
        if (settings_.ReadNumber(kSettingsKey, kContrast) == 1U) {
            look::SetReadableInks(true);
        }
        ListenForEndSignals([this] { window_.EndDialog(); });
    }

    [[nodiscard]] CMainDlg& Window() { return window_; }

  private:
    MainParts Parts(RunningInstance& instance) {
        return {
            .settings = settings_,
            .tray = tray_,
            .notifier = notifier_,
            .sounds = sounds_,
            .instance = instance,
            .services = {.agent = AgentPort,
                         .attribution = MakeNumberAttribution(),
                         .device = device_,
                         .desktop = UserDesktop(),
                         .installer = installer_},
            .makers = ThePageMakers(),
            .siteAddress = QString::fromStdString(TheDeployment().siteRoot),
            .connectPhone = [this](bool delay) { link_.ConnectPhone(delay); },
            .watchUsb = [this] { usb_.Start([this](const UsbEvent& event) { OnUsb(event); }); },
            .openDeviceManager =
                [this](QWidget* parent, const QString& title, std::function<void()> done) {
                    OpenDeviceManager(parent, title, std::move(done));
                },
            .endProcess = [] { EndProcess(0); },
        };
    }

    // On the watch's thread.
    void OnUsb(const UsbEvent& event) {
        PostToWindow(&window_, [this, kind = event.kind] {
            if (kind == UsbEvent::Kind::arrival) {
                window_.OnUsbArrival();
            } else {
                window_.OnUsbRemoval();
            }
        });
    }

    void OpenDeviceManager(QWidget* parent, const QString& title, std::function<void()> done) {
        auto* dialog = new CDeviceManagerDlg(
            device_, [this](const QString& text) { window_.SetStatus(text); }, title, parent);
        dialog->Open([done = std::move(done)](int) { done(); });
    }

    SettingsFile settings_;
    DeviceContext device_;
    DesktopTray tray_;
    BusNotifier notifier_;
    EffectSounds sounds_;
    UsbWatch usb_;
    PackageInstaller installer_;
    CMainDlg window_;
    WindowLinkFace face_;
    PhoneLink link_;
};

}  // namespace

CPhoneSuiteApp::CPhoneSuiteApp(int& argc, char** argv) : argc_(argc), argv_(argv) {}

int CPhoneSuiteApp::Run() {
    PrepareQt();
    if (argc_ == 2 && std::strcmp(argv_[1], kApologyOption) == 0) {
        QApplication application(argc_, argv_);
        ApplyLook(application);
        ShowApology();
        return 0;
    }
    if (argc_ == 3 && std::strcmp(argv_[1], kTourOption) == 0) {
        tourFolder_ = QString::fromLocal8Bit(argv_[2]);
    }
    InstallApology();
    return RunWindow();
}

int CPhoneSuiteApp::RunWindow() {
    const bool hidden =
        tourFolder_.isEmpty() &&
        StartsHidden(CommandText(std::vector<std::string>(argv_ + 1, argv_ + argc_)));

    auto& application = *new QApplication(argc_, argv_);
    QApplication::setQuitOnLastWindowClosed(false);
    auto& instance = *new LocalSocketInstance;
    if (instance.ShowOther()) {
        return 0;
    }
    SetCodePage(TheDeployment().codePage);
    ApplyLook(application);
    CMainDlg& window = (new Suite(instance))->Window();
    window.SetStartHidden(hidden);
    window.OnInitDialog();
    if (!hidden) {
        window.show();
    }
    if (!tourFolder_.isEmpty()) {
        auto* tour = new Tour(window, tourFolder_, TheTourStops(),
                              [](int failed) { EndProcess(failed == 0 ? 0 : 1); });
        tour->Start();
    }
    EndProcess(QApplication::exec());
}

}  // namespace quorvi
