// The list of the contacts page.
#pragma once

#include "pages/contacts/ContactList.h"
#include "ui/list/RecordListCtrl.h"

namespace quorvi {

class CContactListCtrl : public RecordListCtrl<ContactListRow> {
    Q_OBJECT
  public:
    explicit CContactListCtrl(QWidget* parent = nullptr);

    // Puts a list that was read in the place of what stands there.
    void Show(ContactList list);
    // The contact of a row, or null for the empty row behind a list that an absent name ended.
    [[nodiscard]] const ContactListRow* ContactAt(int row) const;

  protected:
    [[nodiscard]] Cell CellOf(const ContactListRow& row, int column) const override;
    [[nodiscard]] RowPicture PictureOf(const ContactListRow& row) const override;

  private:
    // Rows with a contact; one fewer than there are rows when an absent name ended the list.
    int contacts_ = 0;
};

}  // namespace quorvi
