// The tour's stops at the pages of the user's own records: their dialogs, their menu, and what
// each of them shows while it loads, when there is nothing, and when there is no link.
#include <array>
#include <string_view>

#include "app/window/MainDlg.h"
#include "pages/calls/CallLogPage.h"
#include "pages/contacts/ContactEditDlg.h"
#include "pages/contacts/ContactGroupDlg.h"
#include "pages/contacts/ContactPage.h"
#include "pages/contacts/GroupEditDlg.h"
#include "pages/kit/PageNumbers.h"
#include "pages/messages/SmsComposeDlg.h"
#include "pages/messages/SmsPage.h"
#include "tour/Tour.h"
#include "tour/TourAgent.h"
#include "ui/kit/ControlNumber.h"

namespace quorvi {
namespace {

constexpr int kContactList = 1067;
// Of the simulated phone.
constexpr std::uint32_t kContact = 1;
constexpr std::uint32_t kConversation = 12;
constexpr std::uint16_t kNobodysPort = 1;

// What a view shows instead of its contents, by the end of the picture's name, and the agent with
// which it does.
struct ViewState {
    std::string suffix;
    AgentAddress agent;
    bool endless = false;
};

// The agents are made once and live as long as the process.
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

// A stop that goes to the contacts page and does something there.
template <typename Open>
TourStop AtContacts(std::string name, Open open) {
    return {.name = std::move(name), .open = [open](CMainDlg& window) {
                GoTo(window, kContactsPage);
                auto* page = qobject_cast<CContactPage*>(window.PageOfDialog(kContactsPage.dialog));
                if (page != nullptr) {
                    PostToWindow(page, [open, page] { open(*page); });
                }
            }};
}

// A second page over the window's own, with another agent; gone when its picture is taken.
template <typename P>
TourStop PageStop(std::string_view name, const ViewState& state) {
    auto shown = std::make_shared<QPointer<Page>>();
    return {.name = std::string(name) + state.suffix,
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
    return {.name = std::string(name) + state.suffix,
            .open =
                [=, agent = state.agent](CMainDlg& window) {
                    GoTo(window, page);
                    make(window, agent)->Open();
                },
            .endless = state.endless};
}

SkinDialog* MakeGroups(CMainDlg& window, AgentAddress agent) {
    return new CContactGroupDlg(window, &window, agent);
}

SkinDialog* MakeComposer(CMainDlg& window, AgentAddress agent) {
    return new CSmsComposeDlg(window, kConversation, &window, agent);
}

SkinDialog* MakeComposerForNew(CMainDlg& window, AgentAddress agent) {
    return new CSmsComposeDlg(window, kNoConversation, &window, agent);
}

SkinDialog* MakeContactEditor(CMainDlg& window, AgentAddress agent) {
    return new CContactEditDlg(window, kContact, &window, agent);
}

void OpenContactMenu(CContactPage& page) {
    auto& list = *FindControl<CContactListCtrl>(&page, kContactList);
    Q_EMIT list.menuAsked(list.CurrentRow(),
                          list.viewport()->mapToGlobal(list.CellRect(1, 1).center()));
}

}  // namespace

std::vector<TourStop> PersonalStops() {
    const ViewState ofThePhone{"", AgentPort};
    std::vector<TourStop> stops = {
        AtContacts("dialog-contact-update", [](CContactPage& page) { page.EditSelected(); }),
        AtContacts("dialog-contact-delete", [](CContactPage& page) { page.DeleteSelected(); }),
        AtContacts("menu-contacts", &OpenContactMenu),
        DialogStop("dialog-group-add", kContactsPage, ofThePhone,
                   [](CMainDlg& window, AgentAddress agent) {
                       return new CGroupEditDlg(window, &window, agent);
                   }),
        DialogStop("dialog-composer", kMessagesPage, ofThePhone, &MakeComposer),
    };
    for (const ViewState& state : ViewStates()) {
        stops.push_back(PageStop<CContactPage>("contacts", state));
        stops.push_back(PageStop<CSmsPage>("sms", state));
        stops.push_back(PageStop<CCallLogPage>("calls", state));
        stops.push_back(
            DialogStop("dialog-contact-update", kContactsPage, state, &MakeContactEditor));
        stops.push_back(DialogStop("dialog-groups", kContactsPage, state, &MakeGroups));
        stops.push_back(DialogStop("dialog-composer", kMessagesPage, state, &MakeComposer));
        stops.push_back(
            DialogStop("dialog-composer-new", kMessagesPage, state, &MakeComposerForNew));
    }
    return stops;
}

}  // namespace quorvi
