// How wide the columns of a list are: as it is told, or as its user drags them.
#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "ui/list/ListColumns.h"

namespace quorvi {

// The column of names, and in a list without one the last that is shown, takes what the others
// leave, so that the columns always fill the list and none stands outside it; in a list that is too
// narrow for the widths that are told it gives up to half of its own. A border between two
// columns moves that column and one on its other side; only columns of text move. Widths are in
// logical pixels. A value; any thread.
class ColumnWidths {
  public:
    // `columns` outlives it.
    explicit ColumnWidths(std::span<const ListColumn> columns);

    // The width of each column in a list that has so much room; 0 for a hidden one. Where what the
    // user wants does not fit, it gives way.
    [[nodiscard]] std::vector<int> Laid(int room) const;
    // The column that the border behind this one makes wider; -1 where it moves none.
    [[nodiscard]] int MovedBy(int border) const;
    // The border behind a column is dragged by so many pixels to the right, from where the columns
    // were `laid`. It follows as far as the columns can give way.
    void Drag(int border, const std::vector<int>& laid, int by);
    // A column is as wide as it is told to be.
    void Restore(int column);
    void RestoreAll();
    [[nodiscard]] bool AreTold() const;

    // What is to be kept of them; empty when all are as they are told.
    [[nodiscard]] std::string Text() const;
    // Takes what Text gave over; false, and nothing is changed, where it is none of this list's.
    bool Read(std::string_view text);

  private:
    [[nodiscard]] int Count() const { return static_cast<int>(columns_.size()); }
    [[nodiscard]] int Told(int column) const;
    [[nodiscard]] int Least(int column) const;
    [[nodiscard]] bool Moves(int column) const;
    // The columns on the side of a border that is away from the one that takes the rest, the
    // nearest first.
    [[nodiscard]] std::vector<int> Beyond(int border) const;

    std::span<const ListColumn> columns_;
    int rest_ = -1;           // the column that takes the rest
    std::vector<int> given_;  // what each other one shall have
};

}  // namespace quorvi
