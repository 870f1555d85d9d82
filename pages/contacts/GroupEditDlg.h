// The title of a contact group, to be given or changed.
#pragma once

#include <cstdint>
#include <optional>

#include "agent/AgentAddress.h"
#include "pages/contacts/ContactGroups.h"
#include "ui/kit/SkinDialog.h"
#include "ui/page/Page.h"

namespace quorvi {

class CSkinEdit;

// Dialog 681. 确定 ends with Accepted whatever happens, a close while it is sent included: nothing
// is sent for an empty title, an unchanged one is sent all the same, and a failed connect shows in
// the status. The window's thread.
class CGroupEditDlg : public SkinDialog {
    Q_OBJECT
  public:
    // Adds a group.
    CGroupEditDlg(PageHost& host, QWidget* parent, AgentAddress agent);
    // Renames one; its title stands in the field at first.
    CGroupEditDlg(PageHost& host, ContactGroup group, QWidget* parent, AgentAddress agent);

    // Puts a title back that did not get to the phone from an earlier dialog.
    void Resume(const QString& title);
    // The title that the user has told to save and the phone has not acknowledged.
    [[nodiscard]] const std::optional<QString>& Unsaved() const { return unsaved_; }

  private:
    void BuildControls();
    void ShowNotice();
    void Save();

    PageHost& host_;
    std::optional<ContactGroup> group_;  // nothing: adds
    AgentAddress agent_;
    QString begun_;  // the title as the user found it
    std::optional<QString> unsaved_;
    bool resumed_ = false;
    CSkinEdit* title_ = nullptr;
    CSkinButton* ok_ = nullptr;
    CSkinStateLabel* notice_ = nullptr;
};

}  // namespace quorvi
