// The task manager's page: the processes that run on the phone, to be looked at and ended.
#pragma once

#include <cstdint>
#include <vector>

#include "pages/kit/ListRoad.h"
#include "pages/kit/PageNumbers.h"
#include "pages/kit/Services.h"
#include "pages/tasks/TaskListCtrl.h"
#include "ui/page/Page.h"

class QLabel;

namespace quorvi {

// Page 45, dialog 424, key 15 in PageLoadState. One worker at most; a refresh while it runs is
// dropped. The free memory is read first, and shown before the list has come.
//
// Control 1180, 释放内存, is never shown and does nothing: it stays for those who look for it.
class CTaskPage : public Page {
    Q_OBJECT
  public:
    static constexpr const PageNumbers& kNumbers = kTasksPage;
    enum Command { commandRefresh, commandEnd };

    CTaskPage(PageHost& host, const Services& services, QWidget* parent = nullptr);

    void Refresh() { road_.Refresh(); }

    void Load() override { Refresh(); }

    // Ends the processes that are ticked, without a question, and refreshes, whether the phone was
    // reached or not. With nothing ticked the request goes out all the same, and names nothing.
    void EndChecked() { End(list_->TickedRows()); }
    // The same with the ticked ones, or else the selected one; without one it does nothing.
    void EndChosen();

  private:
    void RunCommand(int index) override;
    void End(const std::vector<int>& rows);
    void ShowFreeMemory(std::uint32_t bytes);
    [[nodiscard]] QWidget* MakeFoot();

    AgentAddress agent_;
    TaskListCtrl* list_;
    QLabel* freeMemory_;
    ListRoad road_;
};

}  // namespace quorvi
