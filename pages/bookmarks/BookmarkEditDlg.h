// The bookmark editor: adds a bookmark to the phone's browser, or changes one.
#pragma once

#include <cstdint>
#include <optional>

#include "agent/AgentAddress.h"
#include "pages/bookmarks/BookmarkForm.h"
#include "ui/kit/FieldTexts.h"
#include "ui/kit/SkinDialog.h"
#include "ui/page/Page.h"

namespace quorvi {

class CSkinCombo;
class CSkinEdit;

// Dialog 553. 确定 sends what is filled in, whatever it is, and ends with Accepted whatever
// happens, a close meanwhile included; a failed connect shows in the status. The window's thread.
class CBookmarkEditDlg : public SkinDialog {
    Q_OBJECT
  public:
    // Add mode.
    CBookmarkEditDlg(PageHost& host, QWidget* parent, AgentAddress agent);
    // Update mode: changes the bookmark of that id, and begins with these fields.
    CBookmarkEditDlg(PageHost& host, std::uint32_t id, const BookmarkForm& form, QWidget* parent,
                     AgentAddress agent);

    // The fields as they are filled in. A text that the user has not changed is the one that was
    // set.
    [[nodiscard]] BookmarkForm Form() const;

    // Puts a form back that did not get to the phone from an earlier dialog.
    void Resume(const BookmarkForm& form);
    // The form that the user has told to save and the phone has not acknowledged.
    [[nodiscard]] const std::optional<BookmarkForm>& Unsaved() const { return unsaved_; }

  private:
    void BuildControls();
    CSkinEdit* Edit(int number, std::u8string_view name);
    void SetForm(const BookmarkForm& form);
    void Begin(const BookmarkForm& form);
    void ShowNotice();
    void Save();

    PageHost& host_;
    std::optional<std::uint32_t> id_;  // of the bookmark to change; nothing: adds
    AgentAddress agent_;
    BookmarkForm begun_;  // as the fields stood before the user changed them
    std::optional<BookmarkForm> unsaved_;
    bool resumed_ = false;
    FieldTexts texts_;

    CSkinEdit* title_ = nullptr;
    CSkinEdit* url_ = nullptr;
    CSkinCombo* store_ = nullptr;
    CSkinEdit* visits_ = nullptr;
    CSkinButton* ok_ = nullptr;
    CSkinStateLabel* state_ = nullptr;
};

}  // namespace quorvi
