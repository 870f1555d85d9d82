#include "tour/PageStops.h"

#include "tour/TourAgent.h"
#include "ui/kit/FindBar.h"
#include "ui/kit/QtText.h"

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

void LookFor(QWidget& where, std::u8string_view typed) {
    auto& bar = *where.findChild<FindBar*>();
    Q_EMIT bar.openAsked();
    bar.SetText(ToQString(typed));
}

void LookForNothing(QWidget& where) {
    Q_EMIT where.findChild<FindBar*>()->closeAsked();
}

TourStop FindStop(std::string_view name, const PageNumbers& page, std::u8string_view typed) {
    return {
        .name = std::string(name),
        .open =
            [page, typed](CMainDlg& window) {
                GoTo(window, page);
                PostToWindow(&window, [page, typed, &window] {
                    LookFor(*window.PageOfDialog(page.dialog), typed);
                });
            },
        .leave = [page](CMainDlg& window) { LookForNothing(*window.PageOfDialog(page.dialog)); }};
}

TourStop CommandStop(std::string_view name, const PageNumbers& page, int command) {
    return {.name = std::string(name), .open = [page, command](CMainDlg& window) {
                GoTo(window, page);
                window.Post(Message::commandButton, 0, command);
            }};
}

}  // namespace quorvi
