// The tour's stops at the tools of the phone: what each of their pages shows while it loads, when
// there is nothing, and when there is no link.
#include "pages/cleaner/CleanerPage.h"
#include "pages/tasks/TaskPage.h"
// The tour's stops at the tools of the phone.
#include "pages/phonesettings/PhoneSettingsPage.h"
#include "tour/PageStops.h"

namespace quorvi {

std::vector<TourStop> ToolsStops() {
    std::vector<TourStop> stops;
    for (const ViewState& state : ViewStates()) {
        stops.push_back(PageStop<CCleanerPage>("cleaner", state));
        stops.push_back(PageStop<CTaskPage>("tasks", state));
        stops.push_back(PageStop<CPhoneSettingsPage>("phone-settings", state));
    }
    return stops;
}

}  // namespace quorvi
