// The call log page: the calls kept on the phone, to be looked at and deleted.
#pragma once

#include <vector>

#include "pages/calls/CallLogListCtrl.h"
#include "pages/kit/FileTransfers.h"
#include "pages/kit/ListRoad.h"
#include "pages/kit/NumberMenu.h"
#include "pages/kit/PageNumbers.h"
#include "pages/kit/Services.h"
#include "ui/page/Page.h"

namespace quorvi {

// Page 12, dialog 368, key 3 in PageLoadState. The list stands in the order that the agent gives
// it, until the next refresh. One worker at most; a refresh while it runs is dropped.
class CCallLogPage : public Page {
    Q_OBJECT
  public:
    static constexpr const PageNumbers& kNumbers = kCallsPage;
    enum Command { commandRefresh, commandDelete, commandDeleteAll };

    CCallLogPage(PageHost& host, const Services& services, QWidget* parent = nullptr);

    void RefreshCallLog() { road_.Refresh(); }

    void Load() override { RefreshCallLog(); }

    // Ask, delete, and fetch the list again, whether the phone was reached or not. Deleting all
    // asks and is sent even while the list is empty.
    void DeleteTicked();
    // Of the ticked ones, or else the selected one.
    void DeleteChosen() { Delete(list_->ChosenRows()); }
    void DeleteAll();

  private:
    void RunCommand(int index) override;
    void Delete(const std::vector<int>& rows);
    void OpenMenu(int row, const QPoint& at);

    CCallLogListCtrl* list_;
    ListRoad road_;
    FileTransfers transfers_;
    NumberMenu numbers_;
};

}  // namespace quorvi
