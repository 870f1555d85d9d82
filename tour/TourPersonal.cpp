// The tour's stops at the pages of the user's own records: their dialogs, their menu, and what
// each of them shows while it loads, when there is nothing, and when there is no link.
#include <QApplication>
#include <QContextMenuEvent>
#include <QFile>
#include <QFileDialog>
#include <QLineEdit>
#include <QTemporaryDir>
#include <memory>

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
#include "pages/kit/FileTransfers.h"
#include "pages/kit/PageNumbers.h"
#include "pages/messages/SmsComposeDlg.h"
#include "pages/messages/SmsPage.h"
#include "tour/PageStops.h"
#include "ui/html/HtmlCtrl.h"
#include "ui/html/HtmlFrame.h"
#include "ui/kit/ControlNumber.h"
#include "ui/kit/SkinDialog.h"
#include "ui/kit/SkinMenu.h"
#include "ui/list/ListSort.h"

namespace quorvi {
namespace {

constexpr int kContactList = 1067;
constexpr int kCallList = 1072;
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

// The list with all that is known of one of them beside it, which comes a moment after the list.
TourStop ContactDetail(std::string name) {
    constexpr int row = 2;
    constexpr int looks = 20;
    auto page = std::make_shared<QPointer<QWidget>>();
    return {.name = std::move(name),
            .open =
                [page](CMainDlg& window) {
                    GoTo(window, kContactsPage);
                    *page = window.PageOfDialog(kContactsPage.dialog);
                },
            .ready =
                [page, left = looks]() mutable {
                    auto& list = *FindControl<CContactListCtrl>(*page, kContactList);
                    if (list.CurrentRow() != row) {
                        list.SelectRow(row);
                        return false;
                    }
                    return --left < 0;
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

void OpenContactMenu(CContactPage& page) {
    auto& list = *FindControl<CContactListCtrl>(&page, kContactList);
    list.SetTicked(2, true);
    Q_EMIT list.menuAsked(list.CurrentRow(),
                          list.viewport()->mapToGlobal(list.CellRect(1, 1).center()));
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

SkinDialog* MakeComposerThatFinds(CMainDlg& window, AgentAddress agent) {
    SkinDialog* composer = MakeComposerForNew(window, agent);
    LookFor(*composer, u8"lyz");
    return composer;
}

SkinDialog* MakeComposerThatFindsAMessage(CMainDlg& window, AgentAddress agent) {
    SkinDialog* composer = MakeComposer(window, agent);
    LookFor(*composer->findChild<HtmlFrame*>(), u8"点");
    return composer;
}

// The menu of a conversation, as the right button opens it.
void OpenMessageMenu(CMainDlg& window) {
    GoTo(window, kMessagesPage);
    PostToWindow(&window, [&window] {
        const auto& view = *window.PageOfDialog(kMessagesPage.dialog)->findChild<CHtmlCtrlBase*>();
        QWidget& keys = *view.focusProxy()->focusProxy();
        const QPoint at = keys.rect().center();
        QContextMenuEvent event(QContextMenuEvent::Mouse, at, keys.mapToGlobal(at));
        QApplication::sendEvent(&keys, &event);
    });
}

// The question of an import of two contacts, behind which the file breaks off.
TourStop ImportQuestion() {
    auto folder = std::make_shared<QTemporaryDir>();
    return {
        .name = "dialog-contacts-import",
        .open =
            [folder](CMainDlg& window) {
                QFile file(folder->filePath(QStringLiteral("contacts.vcf")));
                if (file.open(QIODevice::WriteOnly)) {
                    file.write(
                        "BEGIN:VCARD\r\nVERSION:3.0\r\nFN:Ada\r\nTEL:10010\r\n"
                        "END:VCARD\r\nBEGIN:VCARD\r\nVERSION:3.0\r\nFN:Bo\r\n"
                        "TEL:10011\r\nEND:VCARD\r\nBEGIN:VCARD\r\nFN:C\r\n");
                    file.close();
                }
                GoTo(window, kContactsPage);
                PostToWindow(&window, [&window, name = file.fileName()] {
                    auto* page = window.PageOfDialog(kContactsPage.dialog);
                    OpenContactMenu(static_cast<CContactPage&>(*page));
                    auto* menu = page->findChild<CSkinMenu*>();
                    Q_EMIT menu->commandChosen(FileTransfers::menuImport);
                    menu->close();
                    auto* dialog = window.findChild<QFileDialog*>();
                    dialog->findChild<QLineEdit*>(QStringLiteral("fileNameEdit"))->setText(name);
                    static_cast<QDialog*>(dialog)->accept();
                });
            },
        .ready =
            [] { return qobject_cast<SkinDialog*>(QApplication::activeModalWidget()) != nullptr; }};
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

CContactListCtrl& ContactList(CMainDlg& window) {
    return *FindControl<CContactListCtrl>(window.PageOfDialog(kContactsPage.dialog), kContactList);
}

TourStop DeleteTickedStop() {
    TourStop stop = AtContacts("dialog-contacts-delete", [](CContactPage& page) {
        FindControl<CContactListCtrl>(&page, kContactList)->TickAll(true);
        page.DeleteTicked();
    });
    stop.leave = [](CMainDlg& window) { ContactList(window).TickAll(false); };
    return stop;
}

// Sorted by the name, some of the rows ticked.
void SortContacts(CContactPage& page) {
    auto& list = *FindControl<CContactListCtrl>(&page, kContactList);
    list.Sorting()->Sort(contactsByName, false);
    list.SetTicked(1, true);
    list.SetTicked(2, true);
}

void OpenCallMenu(CMainDlg& window) {
    GoTo(window, kCallsPage);
    PostToWindow(&window, [&window] {
        auto& list = *FindControl<CSkinListCtrl>(window.PageOfDialog(kCallsPage.dialog), kCallList);
        list.SelectRow(1);
        Q_EMIT list.menuAsked(1, list.viewport()->mapToGlobal(list.CellRect(1, 1).center()));
    });
}

}  // namespace

std::vector<TourStop> PersonalStops() {
    std::vector<TourStop> stops = {
        ContactDetail("contacts-detail"),
        AtContacts("dialog-contact-update", [](CContactPage& page) { page.EditSelected(); }),
        AtContacts("dialog-contact-delete", [](CContactPage& page) { page.DeleteSelected(); }),
        FindStop("contacts-find", kContactsPage, u8"l"),
        DeleteTickedStop(),
        AtContacts("menu-contacts", &OpenContactMenu),
        AtContacts("contacts-sorted", &SortContacts),
        {.name = "menu-calls", .open = &OpenCallMenu},
        AtFolder("files-card", u8"/sdcard"),
        AtFolder("files-empty-folder", u8"/sdcard/空文件夹"),
        DialogStop("dialog-group-add", kContactsPage, kOfThePhone,
                   [](CMainDlg& window, AgentAddress agent) {
                       return new CGroupEditDlg(window, &window, agent);
                   }),
        ImportQuestion(),
        FindStop("sms-find", kMessagesPage, u8"l"),
        FindStop("sms-found-nothing", kMessagesPage, u8"xyz"),
        {.name = "menu-sms", .open = &OpenMessageMenu},
        DialogStop("dialog-composer", kMessagesPage, kOfThePhone, &MakeComposer),
        DialogStop("dialog-composer-find", kMessagesPage, kOfThePhone, &MakeComposerThatFinds),
        DialogStop("dialog-composer-find-message", kMessagesPage, kOfThePhone,
                   &MakeComposerThatFindsAMessage),
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
