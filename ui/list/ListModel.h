// The list's rows as Qt's views and assistive tools see them.
#pragma once

#include <QAbstractTableModel>
#include <optional>
#include <vector>

namespace quorvi {

class CSkinListCtrl;

// Answers from the list's own CellAt; keeps nothing but the number of rows, which of them are shown
// and in which order. An index of the model is a place on the screen: where rows are left out or in
// another order, the row of the list that stands there is another one.
class ListModel : public QAbstractTableModel {
    Q_OBJECT
  public:
    explicit ListModel(CSkinListCtrl& list);

    // The list's rows, shown or not.
    [[nodiscard]] int Rows() const { return rows_; }
    [[nodiscard]] int Places() const;
    // The row that stands at a place; -1 for none.
    [[nodiscard]] int RowAt(int place) const;
    // The place of a row; -1 where it is not shown.
    [[nodiscard]] int PlaceOf(int row) const;
    // Shows these rows alone, which are told in ascending order; all rows for none.
    void Show(std::optional<std::vector<int>> rows);
    // Shows the rows in this order, which names each of them once; as they came for none.
    void Order(std::optional<std::vector<int>> rows);

    // All rows are shown behind it, as they came.
    void Reset(int rows);
    // While not all rows are shown, the new ones are not.
    void Append(int count);
    void Remove(int row);
    void Changed(int row);

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation,
                                      int role) const override;
    [[nodiscard]] Qt::ItemFlags flags(const QModelIndex& index) const override;
    // The tick of a row, as a click in its cell flips it.
    bool setData(const QModelIndex& index, const QVariant& value, int role) override;
    // Looks in the column of names, whichever `start` is in: the view asks here for the row that
    // begins with what was typed.
    [[nodiscard]] QModelIndexList match(const QModelIndex& start, int role, const QVariant& value,
                                        int hits, Qt::MatchFlags flags) const override;

  private:
    void Place();
    [[nodiscard]] QString Lines(int row, int column) const;
    [[nodiscard]] QString Words(int row, int column) const;
    [[nodiscard]] QString HeadWords(int column) const;

    CSkinListCtrl& list_;
    int rows_ = 0;
    std::optional<std::vector<int>> shown_;   // ascending; none: all
    std::optional<std::vector<int>> order_;   // none: as they came
    std::optional<std::vector<int>> places_;  // the row at each place; none: row i at place i
    std::vector<int> placeOf_;  // the place of each row, or -1; while places_ is there
};

}  // namespace quorvi
