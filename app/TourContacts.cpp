// The tour's stops at the contacts page: its dialogs, its menu, and the states of its list.
#include "app/MainDlg.h"
#include "app/Tour.h"
#include "pages/personal/ContactPage.h"
#include "ui/ControlNumber.h"
#include "ui/QtText.h"

namespace quorvi {
namespace {

constexpr int kTab = 1;
constexpr int kPage = 10;
constexpr int kDialog = 132;
constexpr int kList = 1067;

// Of a load that has come a third of its way. Bytes.
constexpr std::uint64_t kHave = 3'600'000;
constexpr std::uint64_t kTotal = 11'200'000;

// A stop that goes to the page and does something there.
template <typename Open>
TourStop At(std::string name, Open open) {
    return {std::move(name), [open](CMainDlg& window) {
                window.Post(Message::goToPage, kTab, kPage);
                auto* page = qobject_cast<CContactPage*>(window.PageOfDialog(kDialog));
                if (page != nullptr) {
                    PostToWindow(page, [open, page] { open(*page); });
                }
            }};
}

CContactListCtrl& ListOf(const CContactPage& page) {
    return *FindControl<CContactListCtrl>(&page, kList);
}

TourStop StateStop(std::string name, ListState state) {
    return At(std::move(name), [state](CContactPage& page) {
        CContactListCtrl& list = ListOf(page);
        list.Clear();
        list.SetState(state);
        list.SetLoadProgress(kHave, kTotal);
    });
}

}  // namespace

std::vector<TourStop> ContactStops() {
    return {
        At("dialog-contact-update", [](CContactPage& page) { page.EditSelected(); }),
        At("dialog-contact-delete", [](CContactPage& page) { page.DeleteSelected(); }),
        At("menu-contacts",
           [](CContactPage& page) {
               CContactListCtrl& list = ListOf(page);
               Q_EMIT list.menuAsked(list.CurrentRow(),
                                     list.viewport()->mapToGlobal(list.CellRect(1, 1).center()));
           }),
        StateStop("contacts-loading", ListState::loading),
        StateStop("contacts-empty", ListState::idle),
        StateStop("contacts-failed", ListState::failed),
    };
}

}  // namespace quorvi
