#include "app/process/PhoneSuiteApp.h"

#include <QApplication>
#include <cstring>
#include <memory>
#include <string>
#include <vector>

#include "app/process/DesktopMachine.h"
#include "app/process/EndSignals.h"
#include "app/process/FirstPaint.h"
#include "app/process/InterfaceScale.h"
#include "app/process/Preparation.h"
#include "app/process/ProcessEnd.h"
#include "app/process/StartOptions.h"
#include "app/process/Suite.h"
#include "app/window/MainDlg.h"
#include "base/LookChoice.h"
#include "base/Places.h"
#include "base/SettingsFile.h"
#include "base/Version.h"
#include "log/EventLog.h"
#include "ui/html/HtmlEngine.h"
#include "ui/kit/ApplyLook.h"

namespace quorvi {
namespace {

// What the window is shown by.
LogWord PlatformWord() {
    const QString name = QGuiApplication::platformName();
    return name == QLatin1String("xcb")         ? LogWord("x11")
           : name == QLatin1String("wayland")   ? LogWord("wayland")
           : name == QLatin1String("offscreen") ? LogWord("offscreen")
                                                : LogWord("other");
}

}  // namespace

CPhoneSuiteApp::CPhoneSuiteApp(int& argc, char** argv) : argc_(argc), argv_(argv) {}

int CPhoneSuiteApp::Run() {
    PrepareQt();
    if (argc_ == 2 && std::strcmp(argv_[1], kApologyOption) == 0) {
        const SettingsFile settings;
        const InterfaceScale scale(settings);
        QApplication application(argc_, argv_);
        ApplyLook(application);
        ApplyLookChoice(ChosenLook(settings));
        StartLog("quorvi", ThePlaces().LogFile());
        LogEvent("crash");
        ShowApology();
        return 0;
    }
    InstallApology();
    return RunWindow();
}

int CPhoneSuiteApp::RunWindow() {
    const bool hidden =
        StartsHidden(CommandText(std::vector<std::string>(argv_ + 1, argv_ + argc_)));

    // Made once and never torn down: the process ends under workers that still use them.
    auto& application = *[this] {
        const InterfaceScale scale{SettingsFile()};
        return new QApplication(argc_, argv_);
    }();
    auto instance = std::make_unique<LocalSocketInstance>();
    if (instance->ShowOther()) {
        return 0;
    }
    PrepareApplication(application);
    StartLog("quorvi", ThePlaces().LogFile());
    LogEvent("start", {{"version", LogValue::Version(ProductVersion())},
                       {"qt", LogValue::Version(qVersion())},
                       {"platform", PlatformWord()},
                       {"hidden", LogValue::Flag(hidden)}});
    auto& machine = *new DesktopMachine(*instance.release());
    auto& suite = *new Suite(machine.Parts());
    ListenForEndSignals([&suite] { suite.Window().EndDialog(); });
    // The browser engine takes longer to load than all else; the window does not wait for it.
    TheHtmlEngine().Hold();
    AfterFirstPaint(suite.Window(), [] { TheHtmlEngine().Release(); });
    suite.Start(hidden);
    EndProcess(QApplication::exec());
}

}  // namespace quorvi
