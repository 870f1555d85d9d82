// The list of the cleaner's page.
#pragma once

#include <string>
#include <vector>

#include "pages/cleaner/CleanList.h"
#include "pages/kit/PhoneListCtrl.h"

namespace quorvi {

// Its rows come ticked.
class CleanListCtrl : public PhoneListCtrl<CleanItem> {
    Q_OBJECT
  public:
    explicit CleanListCtrl(QWidget* parent = nullptr);

    // Puts a list that was read in the place of what stands there. The row without an item, behind
    // the mark, is the one that is not ticked.
    void ShowTicked(CleanList list);

    // What the ticks say: of the fixed rows, and of the applications behind them.
    [[nodiscard]] FixedCleanFlags TickedFixedItems() const;
    [[nodiscard]] std::vector<std::string> TickedPackages() const;

  protected:
    [[nodiscard]] Cell CellOf(const CleanItem& row, int column) const override;
    [[nodiscard]] RowPicture PictureOf(const CleanItem& row) const override;
};

}  // namespace quorvi
