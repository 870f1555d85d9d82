// The group dialog: the phone's contact groups, to be added, renamed and deleted.
#pragma once

#include <optional>

#include "agent/AgentAddress.h"
#include "pages/contacts/ContactGroups.h"
#include "pages/kit/ListRoad.h"
#include "ui/kit/SkinDialog.h"
#include "ui/page/Page.h"

namespace quorvi {

class ContactGroupListCtrl;

// Dialog 679. Loads the groups as it is made, and again after each change. Its list has neither a
// menu nor an action on a double click. The window's thread.
class CContactGroupDlg : public SkinDialog {
    Q_OBJECT
  public:
    explicit CContactGroupDlg(PageHost& host, QWidget* parent, AgentAddress agent);

    // Fetches the groups; dropped while a load runs.
    void Refresh();

  private:
    void BuildControls();
    void Add();
    void Rename();
    void DeleteTicked();
    void RunEditor(SkinDialog* editor);

    PageHost& host_;
    AgentAddress agent_;
    ContactGroupListCtrl* list_ = nullptr;
    std::optional<ListRoad> road_;  // once the list is there
};

}  // namespace quorvi
