// The group dialog: the phone's contact groups, to be added, renamed and deleted.
#pragma once

#include <QString>
#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <utility>
#include <vector>

#include "agent/AgentAddress.h"
#include "pages/contacts/ContactGroups.h"
#include "pages/kit/ListRoad.h"
#include "ui/kit/SkinDialog.h"
#include "ui/page/Page.h"

namespace quorvi {

class ContactGroupListCtrl;
class CGroupEditDlg;

// Titles that the user has told to save and the phone has not acknowledged.
struct UnsavedGroups {
    std::optional<QString> added;
    std::map<std::uint32_t, QString> renamed;  // by the group's id
};

// Dialog 679. Loads the groups as it is made, and again after each change. Its list has neither a
// menu nor an action on a double click; F5, Ctrl+N and Delete do what its buttons do, Delete with
// nothing ticked for the selected group. The window's thread.
class CContactGroupDlg : public SkinDialog {
    Q_OBJECT
  public:
    explicit CContactGroupDlg(PageHost& host, QWidget* parent, AgentAddress agent);

    // What did not get to the phone: it stands in the next editor, of this dialog or, handed on by
    // its opener, of a later one.
    void Resume(UnsavedGroups unsaved) { unsaved_ = std::move(unsaved); }
    [[nodiscard]] const UnsavedGroups& Unsaved() const { return unsaved_; }

    // Fetches the groups; dropped while a load runs.
    void Refresh();

  private:
    void BuildControls();
    void Add();
    void Rename();
    void DeleteTicked();
    void Delete(const std::vector<int>& rows);
    // Opens an editor, and keeps what it could not save.
    void RunEditor(CGroupEditDlg* editor, std::function<void(const QString& title)> keep);

    PageHost& host_;
    AgentAddress agent_;
    UnsavedGroups unsaved_;
    ContactGroupListCtrl* list_ = nullptr;
    std::optional<ListRoad> road_;  // once the list is there
};

}  // namespace quorvi
