// The tour's stops at the applications and the tools of the phone: their menu, their questions, and
// what each of their pages shows while it loads, when there is nothing, and when there is no link.
#include "base/os/TcpListener.h"
#include "pages/apps/AppPage.h"
#include "pages/autostart/AutoStartPage.h"
#include "pages/cleaner/CleanerPage.h"
#include "pages/phonesettings/PhoneSettingsPage.h"
#include "pages/screen/ScreenOptions.h"
#include "pages/screen/ScreenshotPage.h"
#include "pages/tasks/TaskPage.h"
#include "tour/PageStops.h"
#include "ui/kit/ControlNumber.h"
#include "ui/kit/QtText.h"
#include "ui/kit/SkinFields.h"

namespace quorvi {
namespace {

// Events with their applications open, and a page that is long.
TourStop AutoStartOpened() {
    return CommandStop("autostart-opened", kAutoStartPage, CAutoStartPage::commandExpandAll);
}

// A stop that goes to the applications, on a page that was visited before, and does something with
// the list there.
template <typename Open>
TourStop AtApps(std::string name, Open open) {
    return {.name = std::move(name), .open = [open](CMainDlg& window) {
                GoTo(window, kAppsPage);
                PostToWindow(&window, [&window, open] {
                    auto& page = *window.PageOfDialog(kAppsPage.dialog);
                    open(page, *page.findChild<AppListCtrl*>());
                });
            }};
}

void OpenAppMenu(Page& /*page*/, AppListCtrl& list) {
    list.SelectRow(2);
    Q_EMIT list.menuAsked(2, list.viewport()->mapToGlobal(list.CellRect(2, 3).center()));
}

void AskToUninstall(Page& page, AppListCtrl& list) {
    list.SetTicked(1, true);
    list.SetTicked(2, true);
    page.OnCommand(CAppPage::commandUninstall);
}

// The picture turned: another rotation captures anew.
TourStop ScreenTurned() {
    return {.name = "screen-turned",
            .open =
                [](CMainDlg& window) {
                    GoTo(window, kScreenshotPage);
                    PostToWindow(&window, [&window] {
                        FindControl<CSkinCombo>(window.ShownPage(), ScreenOptions::kRotation)
                            ->setCurrentIndex(static_cast<int>(Rotation::right90));
                    });
                },
            .leave =
                [](CMainDlg& window) {
                    FindControl<CSkinCombo>(window.PageOfDialog(kScreenshotPage.dialog),
                                            ScreenOptions::kRotation)
                        ->setCurrentIndex(static_cast<int>(Rotation::none));
                }};
}

// What a capture page shows instead of a picture, and the port at which it looks for adb.
struct ScreenState {
    std::string_view name;
    std::uint16_t adbPort;
    bool loads = true;
    bool endless = false;
};

std::array<ScreenState, 3> ScreenStates() {
    // Takes connections and says nothing.
    static const auto* const silent = new TcpListener(TcpListener::On(0));
    constexpr std::uint16_t kNobodysPort = 1;
    return {{{.name = "screen-loading", .adbPort = silent->Port(), .endless = true},
             {.name = "screen-empty", .adbPort = kNobodysPort, .loads = false},
             {.name = "screen-failed", .adbPort = kNobodysPort}}};
}

// A second capture page over the window's own.
TourStop ScreenStop(const ScreenState& state) {
    auto shown = std::make_shared<QPointer<Page>>();
    return {.name = std::string(state.name),
            .open =
                [shown, state](CMainDlg& window) {
                    GoTo(window, kScreenshotPage);
                    PostToWindow(&window, [shown, state, &window] {
                        Page* own = window.PageOfDialog(kScreenshotPage.dialog);
                        *shown = new CScreenshotPage(window, window.PageServices(),
                                                     {.adb = AdbHostClient(state.adbPort)}, own);
                        (*shown)->setAutoFillBackground(true);
                        (*shown)->resize(own->size());
                        (*shown)->show();
                        if (state.loads) {
                            (*shown)->Load();
                        }
                    });
                },
            .leave =
                [shown](CMainDlg& window) {
                    delete shown->data();
                    window.SetStatus(ToQString(u8"就绪"));
                    window.LoadState().Set(kScreenshotPage.loadKey, PageLoadState::kEnded);
                },
            .endless = state.endless};
}

}  // namespace

std::vector<TourStop> ToolsStops() {
    std::vector<TourStop> stops = {
        AutoStartOpened(),
        FindStop("autostart-find", kAutoStartPage, u8"tianq"),
        AtApps("menu-apps", &OpenAppMenu),
        CommandStop("dialog-apps-nothing-checked", kAppsPage, CAppPage::commandUninstall),
        AtApps("dialog-apps-uninstall", &AskToUninstall),
    };
    for (const ViewState& state : ViewStates()) {
        stops.push_back(PageStop<CAppPage>("apps", state));
        stops.push_back(PageStop<CCleanerPage>("cleaner", state));
        stops.push_back(PageStop<CTaskPage>("tasks", state));
        stops.push_back(PageStop<CPhoneSettingsPage>("phone-settings", state));
        stops.push_back(PageStop<CAutoStartPage>("autostart", state));
    }
    for (const ScreenState& state : ScreenStates()) {
        stops.push_back(ScreenStop(state));
    }
    stops.push_back(ScreenTurned());
    stops.push_back(
        CommandStop("dialog-screen-save", kScreenshotPage, CScreenshotPage::commandSave));
    stops.push_back(
        CommandStop("dialog-screen-folder", kScreenshotPage, CScreenshotPage::commandChooseFolder));
    return stops;
}

}  // namespace quorvi
