// The title of a contact group, to be given or changed.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

#include "agent/AgentAddress.h"
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
    // Renames one; `title` is ANSI and stands in the field at first.
    CGroupEditDlg(PageHost& host, std::uint32_t groupId, std::string_view title, QWidget* parent,
                  AgentAddress agent);

  private:
    void BuildControls();
    void Save();

    PageHost& host_;
    std::optional<std::uint32_t> groupId_;  // nothing: adds
    AgentAddress agent_;
    CSkinEdit* title_ = nullptr;
    CSkinButton* ok_ = nullptr;
};

}  // namespace quorvi
