// The list of the call log page.
#pragma once

#include <cstdint>
#include <vector>

#include "pages/calls/CallLog.h"
#include "ui/list/RecordListCtrl.h"

namespace quorvi {

class CCallLogListCtrl : public RecordListCtrl<CallLogRow> {
    Q_OBJECT
  public:
    explicit CCallLogListCtrl(QWidget* parent = nullptr);

    // Puts a log that was read in the place of what stands there. One that an absent number ended
    // has one more row, which holds nothing but its id.
    void Show(CallLog log);
    // The ids of the ticked rows in their order, read from the hidden column.
    [[nodiscard]] std::vector<std::uint32_t> TickedIds() const;

  protected:
    [[nodiscard]] Cell CellOf(const CallLogRow& row, int column) const override;
};

}  // namespace quorvi
