// The contacts page: all contacts in a list, and beside it all that is known of the selected one.
#pragma once

#include <QTimer>
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "pages/contacts/ContactForm.h"
#include "pages/contacts/ContactGroupDlg.h"
#include "pages/contacts/ContactListCtrl.h"
#include "pages/kit/FileTransfers.h"
#include "pages/kit/ListRoad.h"
#include "pages/kit/OfEachPhone.h"
#include "pages/kit/PageNumbers.h"
#include "pages/kit/Services.h"
#include "ui/html/HtmlCtrl.h"
#include "ui/page/Page.h"
#include "ui/page/PageLoad.h"

namespace quorvi {

class HtmlFrame;

// Page 10, dialog 132, key 1 in PageLoadState. Nothing is kept on the PC: after every change the
// whole list is fetched again. Two workers at most, one for the list and one for the detail; a
// call of either while it runs is dropped. A detail that ends on another contact than the one that
// is selected by then, or during which the list was filled anew, is followed by another.
class CContactPage : public Page, private HtmlListener {
    Q_OBJECT
  public:
    static constexpr const PageNumbers& kNumbers = kContactsPage;
    enum Command { commandRefresh, commandAdd, commandGroups, commandDelete };

    CContactPage(PageHost& host, const Services& services, QWidget* parent = nullptr);

    // Fetches the list and, once it is there, the detail of its first contact.
    void RefreshContacts() { road_.Refresh(); }
    // Fetches the contact that PageSelection names, and shows it.
    void RefreshDetail() { FetchDetail(); }

    void Load() override { RefreshContacts(); }
    // Message::takeNumber.
    void OnMessage(Message message, int first, int second) override;

    // Opens the editor.
    void AddContact();
    // Opens it for a new contact with a number, which is ANSI.
    void AddNumber(const std::string& number);
    void EditSelected();
    // Asks, deletes, and fetches the list again.
    void DeleteTicked();
    void DeleteSelected();
    // Of the ticked ones, or else the selected one.
    void DeleteChosen() { Delete(list_->ChosenRows()); }

  private:
    void RunCommand(int index) override;
    void OnAppCmd(const std::string&) override {}  // the view holds no links of the page's own
    void SelectFirst();
    void Select(int row);
    [[nodiscard]] std::uint32_t SelectedContact() const;
    // False while one runs.
    bool FetchDetail();
    void OpenMenu(const QPoint& at);
    void OpenGroups();
    void ExportTicked();
    void EndEditor(int result);
    void Delete(const std::vector<int>& rows);

    AgentAddress agent_;
    PageLoad detailLoad_{*this};
    // What did not get to one phone: it stands in the next editor of that contact or group.
    struct Unsaved {
        std::map<std::uint32_t, ContactForm> contacts;  // by id
        UnsavedGroups groups;
    };
    OfEachPhone<Unsaved> unsaved_;
    bool fillMissed_ = false;                // a fill's detail was dropped, since one was running
    std::optional<ContactForm> unsavedNew_;  // a new contact that did not get to any phone
    std::map<std::string, ContactForm> unsavedNumbers_;  // and those for a number
    WaitingNumbers toAdd_;
    bool selecting_ = false;  // the page itself moves the selection
    QTimer detailTimer_;      // timer 0: the detail after a fill
    CContactListCtrl* list_;
    ListRoad road_;
    FileTransfers transfers_;
    CHtmlCtrlFix* view_;
    HtmlFrame* frame_;
};

}  // namespace quorvi
