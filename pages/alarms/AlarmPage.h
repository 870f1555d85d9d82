// The alarm page: the alarms of the phone's clock, to be looked at, added, changed and deleted.
#pragma once

#include <vector>

#include "pages/alarms/AlarmForm.h"
#include "pages/alarms/AlarmListCtrl.h"
#include "pages/kit/FormEditor.h"
#include "pages/kit/ListRoad.h"
#include "pages/kit/PageNumbers.h"
#include "pages/kit/Services.h"
#include "ui/page/Page.h"

namespace quorvi {

// Page 13, dialog 403, key 4 in PageLoadState. The list stands in the order that the agent gives
// it. One worker at most; a refresh while it runs is dropped.
class CAlarmPage : public Page {
    Q_OBJECT
  public:
    static constexpr const PageNumbers& kNumbers = kAlarmsPage;
    enum Command { commandRefresh, commandAdd, commandEdit, commandDelete };

    CAlarmPage(PageHost& host, const Services& services, QWidget* parent = nullptr);

    void RefreshAlarms() { road_.Refresh(); }

    void Load() override { RefreshAlarms(); }

    // Open the editor; once it has ended with Accepted the list is fetched again. The second one
    // does nothing before a row was selected.
    void AddAlarm();
    void EditSelected();
    // Asks, deletes, and fetches the list again, whether the phone was reached or not.
    void DeleteTicked();
    // The same with the ticked ones, or else the selected one.
    void DeleteChosen() { Delete(list_->ChosenRows()); }

  private:
    void RunCommand(int index) override;
    void Select(int row);
    void Delete(const std::vector<int>& rows);

    AgentAddress agent_;
    CAlarmListCtrl* list_;
    ListRoad road_;
    // The alarm that was selected last, as its row showed it then. A refresh leaves it as it is,
    // and the editor begins with it: kept on purpose (test
    // AlarmPage.TheEditorShowsTheAlarmOfTheLastClickAfterARefreshToo).
    AlarmRow selected_;
    UnsavedForms<AlarmForm> unsaved_;
};

}  // namespace quorvi
