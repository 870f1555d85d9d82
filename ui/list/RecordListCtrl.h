// A list that owns its records by value.
#pragma once

#include <utility>
#include <vector>

#include "ui/list/SkinListCtrl.h"

namespace quorvi {

// The base of each page's own list: row i is element i of the vector. A page's class says how a
// record is written into the columns (CellOf) and which picture it has (PictureOf).
template <typename Record>
class RecordListCtrl : public CSkinListCtrl {
  public:
    using CSkinListCtrl::CSkinListCtrl;

    // Makes room for records that are appended one by one.
    void Reserve(std::size_t count) { records_.reserve(count); }

    // Shows these records in place of all others, unticked, nothing selected.
    void SetRecords(std::vector<Record> records) {
        records_ = std::move(records);
        ResetRows(static_cast<int>(records_.size()));
    }
    void Append(Record record) {
        records_.push_back(std::move(record));
        AppendRows(1);
    }
    void Clear() { SetRecords({}); }
    void Remove(int row) {
        records_.erase(records_.begin() + row);
        RemoveRow(row);
    }
    // Changes a record and shows it.
    template <typename Change>
    void Edit(int row, Change change) {
        change(records_[static_cast<std::size_t>(row)]);
        RowChanged(row);
    }

    [[nodiscard]] const std::vector<Record>& Records() const { return records_; }
    [[nodiscard]] const Record& At(int row) const {
        return records_[static_cast<std::size_t>(row)];
    }
    // The record of the selected row, or null.
    [[nodiscard]] const Record* Current() const {
        return CurrentRow() < 0 ? nullptr : &At(CurrentRow());
    }

    [[nodiscard]] Cell CellAt(int row, int column) const override {
        return CellOf(At(row), column);
    }
    [[nodiscard]] RowPicture PictureAt(int row) const final { return PictureOf(At(row)); }

  protected:
    [[nodiscard]] virtual Cell CellOf(const Record& record, int column) const = 0;
    [[nodiscard]] virtual RowPicture PictureOf(const Record& /*record*/) const { return {}; }

  private:
    std::vector<Record> records_;
};

}  // namespace quorvi
