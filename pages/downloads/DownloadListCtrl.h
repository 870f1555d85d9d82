// The list of the download page.
#pragma once

#include <cstdint>
#include <vector>

#include "pages/downloads/DownloadRows.h"
#include "ui/list/RecordListCtrl.h"

namespace quorvi {

class DownloadListCtrl : public RecordListCtrl<DownloadRow> {
    Q_OBJECT
  public:
    explicit DownloadListCtrl(QWidget* parent = nullptr);

    // Shows these rows in place of all others, unticked. The task that was selected stays so where
    // it is among them, and what the user looks at stays in its place.
    void Show(std::vector<DownloadRow> rows);

    // The row of a task, by its number; -1 for none.
    [[nodiscard]] int RowOf(std::int32_t task) const;
    // The numbers of these rows' tasks, in their order.
    [[nodiscard]] std::vector<std::int32_t> TasksOf(const std::vector<int>& rows) const;

  protected:
    [[nodiscard]] Cell CellOf(const DownloadRow& row, int column) const override;
};

}  // namespace quorvi
