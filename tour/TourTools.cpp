// The tour's stops at the applications and the tools of the phone: their menu, their questions, and
// what each of their pages shows while it loads, when there is nothing, and when there is no link.
#include "pages/apps/AppPage.h"
#include "pages/autostart/AutoStartPage.h"
#include "pages/cleaner/CleanerPage.h"
#include "pages/phonesettings/PhoneSettingsPage.h"
#include "pages/tasks/TaskPage.h"
#include "tour/PageStops.h"

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

}  // namespace

std::vector<TourStop> ToolsStops() {
    std::vector<TourStop> stops = {
        AutoStartOpened(),
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
    return stops;
}

}  // namespace quorvi
