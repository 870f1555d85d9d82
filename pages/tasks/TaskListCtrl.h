// The list of the task manager's page.
#pragma once

#include "pages/kit/PhoneListCtrl.h"
#include "pages/tasks/TaskList.h"

namespace quorvi {

class TaskListCtrl : public PhoneListCtrl<TaskRecord> {
    Q_OBJECT
  public:
    explicit TaskListCtrl(QWidget* parent = nullptr);

  protected:
    [[nodiscard]] Cell CellOf(const TaskRecord& row, int column) const override;
    [[nodiscard]] RowPicture PictureOf(const TaskRecord& row) const override;
};

}  // namespace quorvi
