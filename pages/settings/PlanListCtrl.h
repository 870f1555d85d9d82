// The list of what a restore is going to do, and of what it has done.
#pragma once

#include <optional>
#include <vector>

#include "backup/PlanRows.h"
#include "ui/list/RecordListCtrl.h"

namespace quorvi {

class PlanListCtrl : public RecordListCtrl<PlanRow> {
    Q_OBJECT
  public:
    explicit PlanListCtrl(QWidget* parent = nullptr);

    void ShowPlan(std::vector<PlanRow> rows);
    // Shows the rows of one result alone, or all.
    void ShowOnly(std::optional<RestoreAction> action);
    // So many of what is added or changed are done; the row of the next one is selected.
    void ShowDone(std::size_t done);
    [[nodiscard]] const std::vector<PlanRow>& Plan() const { return plan_; }

  protected:
    [[nodiscard]] Cell CellOf(const PlanRow& row, int column) const override;

  private:
    std::vector<PlanRow> plan_;
    std::optional<RestoreAction> only_;
    std::size_t done_ = 0;
};

}  // namespace quorvi
