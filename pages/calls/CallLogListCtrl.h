// The list of the call log page.
#pragma once

#include <cstdint>
#include <vector>

#include "pages/calls/CallLog.h"
#include "pages/kit/PhoneListCtrl.h"

namespace quorvi {

class CCallLogListCtrl : public PhoneListCtrl<CallLogRow> {
    Q_OBJECT
  public:
    explicit CCallLogListCtrl(QWidget* parent = nullptr);

    // The ids of these rows in their order, read from the hidden column.
    [[nodiscard]] std::vector<std::uint32_t> IdsOf(const std::vector<int>& rows) const;

  protected:
    [[nodiscard]] Cell CellOf(const CallLogRow& row, int column) const override;
    // Its id.
    [[nodiscard]] Cell MarkedCell(const CallLogRow& row, int column) const override;
};

}  // namespace quorvi
