// Stops at a page or a dialog in each of its states: full, loading, empty, failed.
#pragma once

#include <array>
#include <memory>
#include <string>
#include <string_view>

#include "agent/AgentAddress.h"
#include "agent/Wire.h"
#include "app/window/MainDlg.h"
#include "pages/kit/PageNumbers.h"
#include "tour/Tour.h"
#include "ui/page/Job.h"

namespace quorvi {

// What a view shows instead of its contents, by the end of the picture's name, and the agent with
// which it does.
struct ViewState {
    std::string_view suffix;
    AgentAddress agent;
    bool endless = false;
};

// With what the simulated phone has.
inline constexpr ViewState kOfThePhone{"", AgentPort};
// Loading, empty, failed. Their agents are made at the first call and live as long as the process.
[[nodiscard]] std::array<ViewState, 3> ViewStates();

// Has the window show the page.
void GoTo(CMainDlg& window, const PageNumbers& page);

// Opens the find bar of a page or a dialog, and types there; and closes it again.
void LookFor(QWidget& where, std::u8string_view typed);
void LookForNothing(QWidget& where);
// A page that was visited before, with something looked for on it.
[[nodiscard]] TourStop FindStop(std::string_view name, const PageNumbers& page,
                                std::u8string_view typed);

// What a command button of a page opens, on a page that was visited before.
[[nodiscard]] TourStop CommandStop(std::string_view name, const PageNumbers& page, int command);

// A second page over the window's own, with another agent; gone when its picture is taken.
template <typename P>
TourStop PageStop(std::string_view name, const ViewState& state) {
    auto shown = std::make_shared<QPointer<Page>>();
    return {.name = std::string(name).append(state.suffix),
            .open =
                [=, agent = state.agent](CMainDlg& window) {
                    GoTo(window, P::kNumbers);
                    PostToWindow(&window, [=, &window] {
                        Page* own = window.PageOfDialog(P::kNumbers.dialog);
                        Services services = window.PageServices();
                        services.agent = agent;
                        *shown = new P(window, services, own);
                        (*shown)->setAutoFillBackground(true);
                        (*shown)->resize(own->size());
                        (*shown)->show();
                        (*shown)->Load();
                    });
                },
            .leave =
                [shown](CMainDlg& window) {
                    delete shown->data();
                    window.LoadState().Set(P::kNumbers.loadKey, PageLoadState::kEnded);
                },
            .endless = state.endless};
}

// `Make` gives a dialog of its own on the port of an agent.
template <typename Make>
TourStop DialogStop(std::string_view name, const PageNumbers& page, const ViewState& state,
                    Make make) {
    return {.name = std::string(name).append(state.suffix),
            .open =
                [=, agent = state.agent](CMainDlg& window) {
                    GoTo(window, page);
                    make(window, agent)->Open();
                },
            .endless = state.endless};
}

}  // namespace quorvi
