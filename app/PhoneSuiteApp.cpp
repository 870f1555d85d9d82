#include "app/PhoneSuiteApp.h"

#include <QApplication>
#include <cstring>
#include <string>
#include <vector>

#include "app/BusNotifier.h"
#include "app/CommandLine.h"
#include "app/DesktopTray.h"
#include "app/EffectSounds.h"
#include "app/EndSignals.h"
#include "app/MainDlg.h"
#include "app/ProcessEnd.h"
#include "app/QtSettingsStore.h"
#include "app/RunningInstance.h"
#include "app/Tour.h"
#include "app/WindowLinkFace.h"
#include "base/Deployment.h"
#include "link/PhoneLink.h"
#include "ui/HtmlSite.h"
#include "ui/Look.h"

namespace quorvi {
namespace {

// With a folder behind it: the program writes its pictures there and ends.
constexpr const char* kTourOption = "--tour";
constexpr std::string_view kContrast = "contrast";

void PrepareQt() {
    QCoreApplication::setOrganizationName(QStringLiteral("Quorvi"));
    QCoreApplication::setApplicationName(QStringLiteral("Quorvi"));
    PrepareHtmlViews();
}

}  // namespace

CPhoneSuiteApp::CPhoneSuiteApp(int& argc, char** argv) : argc_(argc), argv_(argv) {}

int CPhoneSuiteApp::Run() {
    PrepareQt();
    if (argc_ == 2 && std::strcmp(argv_[1], kApologyOption) == 0) {
        QApplication application(argc_, argv_);
        look::Apply(application);
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

    // What the window stands on is made once and never torn down: the process ends under workers
    // that still use it.
    auto& application = *new QApplication(argc_, argv_);
    QApplication::setQuitOnLastWindowClosed(false);
    auto& instance = *new LocalSocketInstance;
    if (instance.ShowOther()) {
        return 0;
    }
    SetCodePage(TheDeployment().codePage);
    auto& settings = *new QtSettingsStore;
    look::Apply(application);
    if (settings.ReadNumber(kSettingsKey, kContrast) == 1U) {
        look::SetReadableInks(true);
    }

    auto& device = *new DeviceContext;
    PhoneLink* link = nullptr;
    auto& window = *new CMainDlg({
        .settings = settings,
        .tray = *new DesktopTray,
        .notifier = *new BusNotifier,
        .sounds = *new EffectSounds,
        .instance = instance,
        .pages = {.device = device},
        .makers = ThePageMakers(),
        .siteAddress = QString::fromStdString(TheDeployment().siteRoot),
        .connectPhone = [&link](bool delay) { link->ConnectPhone(delay); },
        .watchUsb = [] {},
        .openDeviceManager = [](QWidget*, const QString&, std::function<void()> done) { done(); },
        .endProcess =
            [&settings] {
                settings.Flush();
                EndProcess(0);
            },
    });
    link = new PhoneLink(device, *new WindowLinkFace(window), SystemClock());
    ListenForEndSignals([&window] { window.EndDialog(); });
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
