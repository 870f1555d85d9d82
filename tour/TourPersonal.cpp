// The tour's stops at the pages of the user's own records: their dialogs, their menu, and what
// each of them shows while it loads, when there is nothing, and when there is no link.
#include "base/Text.h"
#include "pages/alarms/AlarmEditDlg.h"
#include "pages/alarms/AlarmPage.h"
#include "pages/bookmarks/BookmarkEditDlg.h"
#include "pages/bookmarks/BookmarkPage.h"
#include "pages/bookmarks/BookmarkSyncDlg.h"
#include "pages/calls/CallLogPage.h"
#include "pages/contacts/ContactEditDlg.h"
#include "pages/contacts/ContactGroupDlg.h"
#include "pages/contacts/ContactPage.h"
#include "pages/contacts/GroupEditDlg.h"
#include "pages/files/FilePage.h"
#include "pages/kit/PageNumbers.h"
#include "pages/messages/SmsComposeDlg.h"
#include "pages/messages/SmsPage.h"
#include "tour/PageStops.h"
#include "ui/kit/ControlNumber.h"

namespace quorvi {
namespace {

constexpr int kContactList = 1067;
constexpr int kBookmarkList = 1074;
// Of the simulated phone.
constexpr std::uint32_t kContact = 1;
constexpr std::uint32_t kConversation = 12;
constexpr std::uint32_t kAlarm = 1;
constexpr std::uint32_t kBookmark = 1;

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

// A stop at a folder of the simulated phone, on a file page that was visited before.
TourStop AtFolder(std::string name, std::u8string_view path) {
    return {.name = std::move(name), .open = [path](CMainDlg& window) {
                GoTo(window, kFilesPage);
                auto* page = qobject_cast<CFilePage*>(window.PageOfDialog(kFilesPage.dialog));
                if (page != nullptr) {
                    PostToWindow(page, [page, path] { page->ShowDirectory(Ansi(path)); });
                }
            }};
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

SkinDialog* MakeAlarmEditor(CMainDlg& window, AgentAddress agent) {
    AlarmForm form;
    form.hourEntry = 5;
    form.minuteEntry = 20;
    form.days = 0x15;
    form.enabled = true;
    form.vibrate = true;
    form.label = Ansi(u8"晨跑");
    return new CAlarmEditDlg(window, kAlarm, form, &window, agent);
}

SkinDialog* MakeBookmarkEditor(CMainDlg& window, AgentAddress agent) {
    return new CBookmarkEditDlg(
        window, kBookmark,
        {Ansi(u8"天气预报 - 无锡"), "http://m.weather.example/101190201.html", "214"}, &window,
        agent);
}

SkinDialog* MakeSync(CMainDlg& window, AgentAddress /*agent*/) {
    return new CBookmarkSyncDlg(&window);
}

SkinDialog* MakeQuestion(CMainDlg& window, AgentAddress /*agent*/) {
    return CBookmarkPage::NewQuestion("ftp://files.example/pub/", &window);
}

void OpenBookmarkMenu(CMainDlg& window) {
    GoTo(window, kBookmarksPage);
    PostToWindow(&window, [&window] {
        auto& list =
            *FindControl<CSkinListCtrl>(window.PageOfDialog(kBookmarksPage.dialog), kBookmarkList);
        list.SelectRow(1);
        Q_EMIT list.menuAsked(1, list.viewport()->mapToGlobal(list.CellRect(1, 1).center()));
    });
}

void OpenContactMenu(CContactPage& page) {
    auto& list = *FindControl<CContactListCtrl>(&page, kContactList);
    list.SetTicked(2, true);
    Q_EMIT list.menuAsked(list.CurrentRow(),
                          list.viewport()->mapToGlobal(list.CellRect(1, 1).center()));
}

}  // namespace

std::vector<TourStop> PersonalStops() {
    std::vector<TourStop> stops = {
        AtContacts("dialog-contact-update", [](CContactPage& page) { page.EditSelected(); }),
        AtContacts("dialog-contact-delete", [](CContactPage& page) { page.DeleteSelected(); }),
        AtContacts("menu-contacts", &OpenContactMenu),
        AtFolder("files-card", u8"/sdcard"),
        AtFolder("files-empty-folder", u8"/sdcard/空文件夹"),
        DialogStop("dialog-group-add", kContactsPage, kOfThePhone,
                   [](CMainDlg& window, AgentAddress agent) {
                       return new CGroupEditDlg(window, &window, agent);
                   }),
        DialogStop("dialog-composer", kMessagesPage, kOfThePhone, &MakeComposer),
        CommandStop("dialog-alarm-add", kAlarmsPage, CAlarmPage::commandAdd),
        DialogStop("dialog-alarm-update", kAlarmsPage, kOfThePhone, &MakeAlarmEditor),
        CommandStop("dialog-bookmark-add", kBookmarksPage, CBookmarkPage::commandAdd),
        DialogStop("dialog-bookmark-update", kBookmarksPage, kOfThePhone, &MakeBookmarkEditor),
        DialogStop("dialog-bookmark-sync", kBookmarksPage, kOfThePhone, &MakeSync),
        DialogStop("dialog-bookmark-visit", kBookmarksPage, kOfThePhone, &MakeQuestion),
        {.name = "menu-bookmarks", .open = &OpenBookmarkMenu},
    };
    for (const ViewState& state : ViewStates()) {
        stops.push_back(PageStop<CContactPage>("contacts", state));
        stops.push_back(PageStop<CSmsPage>("sms", state));
        stops.push_back(PageStop<CCallLogPage>("calls", state));
        stops.push_back(PageStop<CAlarmPage>("alarms", state));
        stops.push_back(PageStop<CBookmarkPage>("bookmarks", state));
        stops.push_back(PageStop<CFilePage>("files", state));
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
