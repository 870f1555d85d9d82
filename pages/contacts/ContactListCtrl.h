// The list of the contacts page.
#pragma once

#include "pages/contacts/ContactList.h"
#include "pages/kit/PhoneListCtrl.h"

namespace quorvi {

class CContactListCtrl : public PhoneListCtrl<ContactListRow> {
    Q_OBJECT
  public:
    explicit CContactListCtrl(QWidget* parent = nullptr);

  protected:
    [[nodiscard]] Cell CellOf(const ContactListRow& row, int column) const override;
    [[nodiscard]] RowPicture PictureOf(const ContactListRow& row) const override;
};

}  // namespace quorvi
