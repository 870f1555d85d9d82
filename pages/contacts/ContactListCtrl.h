// The list of the contacts page, which is sorted by the heads of its columns.
#pragma once

#include "pages/contacts/ContactOrder.h"
#include "pages/kit/PhoneListCtrl.h"

namespace quorvi {

class CContactListCtrl : public PhoneListCtrl<ContactListRow> {
    Q_OBJECT
  public:
    explicit CContactListCtrl(QWidget* parent = nullptr);

    // Puts a list that was read in the place of what stands there, in the order that is chosen.
    void Show(RankedContacts list);

  protected:
    [[nodiscard]] Cell CellOf(const ContactListRow& row, int column) const override;
    [[nodiscard]] RowPicture PictureOf(const ContactListRow& row) const override;
};

}  // namespace quorvi
