// What the links of the dashboard do.
#pragma once

#include <string_view>

namespace quorvi {

// First argument of Message::dashboardLink, which the dashboard sends to itself.
enum class DashboardAction : int {
    deviceManager = 0,
    appStore = 1,
    refresh = 2,
    screenshot = 3,  // does nothing, kept on purpose: `capture` takes the picture
    capture = 4,
    systemInformation = 5,
    phoneSettings = 6,
    storeItem = 7,  // any other text: the number at its start is an item of the store
};

// The action of a link by its text, without regard to the case of letters.
[[nodiscard]] DashboardAction DashboardActionOf(std::string_view link);

}  // namespace quorvi
