#include "tour/PageStops.h"

#include "tour/TourAgent.h"

namespace quorvi {
namespace {

constexpr std::uint16_t kNobodysPort = 1;

}  // namespace

std::array<ViewState, 3> ViewStates() {
    static auto* const empty = new TourAgent(TourAgent::Manner::hasNothing);
    static auto* const stalled = new TourAgent(TourAgent::Manner::stalls);
    return {{{"-loading", stalled->Port(), true},
             {"-empty", empty->Port()},
             {"-failed", kNobodysPort}}};
}

void GoTo(CMainDlg& window, const PageNumbers& page) {
    window.Post(Message::goToPage, TabOf(page), page.page);
}

TourStop CommandStop(std::string_view name, const PageNumbers& page, int command) {
    return {.name = std::string(name), .open = [page, command](CMainDlg& window) {
                GoTo(window, page);
                window.Post(Message::commandButton, 0, command);
            }};
}

}  // namespace quorvi
