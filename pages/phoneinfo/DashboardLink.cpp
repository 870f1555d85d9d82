#include "pages/phoneinfo/DashboardLink.h"

#include "base/Text.h"

namespace quorvi {
namespace {

struct LinkRow {
    std::string_view link;
    DashboardAction action;
};

constexpr LinkRow kLinks[] = {
    {"refresh", DashboardAction::refresh},         {"device", DashboardAction::deviceManager},
    {"appstore", DashboardAction::appStore},       {"screenshot", DashboardAction::screenshot},
    {"advanced", DashboardAction::capture},        {"os", DashboardAction::systemInformation},
    {"space", DashboardAction::systemInformation}, {"battery", DashboardAction::systemInformation},
    {"gps", DashboardAction::phoneSettings},       {"bluetooth", DashboardAction::phoneSettings},
    {"gravity", DashboardAction::phoneSettings},   {"wifi", DashboardAction::phoneSettings},
};

}  // namespace

DashboardAction DashboardActionOf(std::string_view link) {
    for (const LinkRow& row : kLinks) {
        if (EqualsNoCase(row.link, link)) {
            return row.action;
        }
    }
    return DashboardAction::storeItem;
}

}  // namespace quorvi
