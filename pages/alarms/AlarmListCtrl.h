// The list of the alarm page.
#pragma once

#include "pages/alarms/AlarmList.h"
#include "pages/kit/PhoneListCtrl.h"

namespace quorvi {

class CAlarmListCtrl : public PhoneListCtrl<AlarmRow> {
    Q_OBJECT
  public:
    explicit CAlarmListCtrl(QWidget* parent = nullptr);

  protected:
    [[nodiscard]] Cell CellOf(const AlarmRow& row, int column) const override;
    // Whether it repeats: read in front of the label.
    [[nodiscard]] Cell MarkedCell(const AlarmRow& row, int column) const override;
};

}  // namespace quorvi
