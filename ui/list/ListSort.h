// Sorting a list by a click on a column's head.
#pragma once

#include <QObject>
#include <QString>
#include <vector>

#include "find/RowOrder.h"

namespace quorvi {

class CSkinListCtrl;
class CSkinMenu;

// What the list's columns may be sorted by is told by their `sorts` (ListColumn). A first click on
// such a head sorts upwards, a second one downwards, a third one leaves the rows as they came; the
// order stays when other rows come. Ticks, the selection and what is found stay with their rows.
// The window's thread.
class ListSort : public QObject {
    Q_OBJECT
  public:
    explicit ListSort(CSkinListCtrl& list);

    // The ranks of the rows that have just come, for each key; a row behind them has none.
    void SetRanks(std::vector<std::vector<RowRank>> ranks);

    // What the list is sorted by; -1 for the order in which the rows came.
    [[nodiscard]] int Key() const { return key_; }
    [[nodiscard]] bool IsDescending() const { return descending_; }
    void Sort(int key, bool descending);
    // Sorts as a click on a head with this key does.
    void Click(int key);

    // Appends a submenu with all orders, of which the present one is ticked.
    void AddOrders(CSkinMenu& menu);
    // Appends the orders themselves.
    void AddOrdersTo(CSkinMenu& menu);
    // How a column sorts the list, in words; empty where it does not.
    [[nodiscard]] QString WordsOf(int column) const;

  Q_SIGNALS:
    void sorted();

  private:
    void Apply();

    CSkinListCtrl& list_;
    std::vector<std::vector<RowRank>> ranks_;
    int key_ = -1;
    bool descending_ = false;
};

}  // namespace quorvi
