// The tour's stops at the tools of the phone: what each of their pages shows while it loads, when
// there is nothing, and when there is no link.
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

}  // namespace

std::vector<TourStop> ToolsStops() {
    std::vector<TourStop> stops = {AutoStartOpened()};
    for (const ViewState& state : ViewStates()) {
        stops.push_back(PageStop<CCleanerPage>("cleaner", state));
        stops.push_back(PageStop<CTaskPage>("tasks", state));
        stops.push_back(PageStop<CPhoneSettingsPage>("phone-settings", state));
        stops.push_back(PageStop<CAutoStartPage>("autostart", state));
    }
    return stops;
}

}  // namespace quorvi
