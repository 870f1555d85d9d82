// The list of the bookmark page.
#pragma once

#include "pages/bookmarks/BookmarkList.h"
#include "pages/kit/PhoneListCtrl.h"

namespace quorvi {

// Its one link opens a bookmark on the PC; a row without an address has none.
class CBookmarkListCtrl : public PhoneListCtrl<BookmarkRow> {
    Q_OBJECT
  public:
    explicit CBookmarkListCtrl(QWidget* parent = nullptr);

  protected:
    [[nodiscard]] Cell CellOf(const BookmarkRow& row, int column) const override;
    [[nodiscard]] RowPicture PictureOf(const BookmarkRow& row) const override;
};

}  // namespace quorvi
