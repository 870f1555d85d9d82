// The list of the applications' page.
#pragma once

#include <string>
#include <vector>

#include "pages/apps/AppList.h"
#include "pages/apps/StoreCheck.h"
#include "pages/kit/PhoneListCtrl.h"

namespace quorvi {

// A row whose package has no package's name says that it can't be uninstalled: its tool tip does.
class AppListCtrl : public PhoneListCtrl<AppRecord> {
    Q_OBJECT
  public:
    explicit AppListCtrl(QWidget* parent = nullptr);

    // The packages of all rows, from the top.
    [[nodiscard]] std::vector<std::string> Packages() const;

    // Writes what the site says into the rows of its packages, wherever they stand by now. Which
    // rows are ticked and selected, and what is scrolled to, stays.
    void Merge(const StoreAnswers& answers);

  protected:
    [[nodiscard]] Cell CellOf(const AppRecord& row, int column) const override;
    [[nodiscard]] RowPicture PictureOf(const AppRecord& row) const override;
};

}  // namespace quorvi
