// The list of what the phone keeps, as it was read from a reply.
#pragma once

#include <functional>
#include <type_traits>
#include <utility>
#include <vector>

#include "pages/kit/ListReply.h"
#include "ui/list/RecordListCtrl.h"

namespace quorvi {

// Whether a tick of the marked row, see below, is one like those of the records.
enum class MarkedRow { counts, leftOut };

// Behind the records of a list that AbsentMark ended stands one more row, the marked row: what was
// read of its record is kept, and it shows nothing. The window's thread.
template <typename Row>
class PhoneListCtrl : public RecordListCtrl<Row> {
  public:
    using RecordListCtrl<Row>::RecordListCtrl;

    // Puts a list that was read in the place of what stands there.
    void Show(ReadList<Row> list) {
        records_ = static_cast<int>(list.rows.size());
        if (list.marked) {
            list.rows.push_back(*std::move(list.marked));
        }
        this->SetRecords(std::move(list.rows));
    }

    // The record of a row; null for no row, and for the marked one.
    [[nodiscard]] const Row* RecordAt(int row) const {
        return row < 0 || row >= records_ || row >= this->RowCount() ? nullptr : &this->At(row);
    }
    [[nodiscard]] const Row* CurrentRecord() const { return RecordAt(this->CurrentRow()); }

    // What `part` (a member, say) gives of each ticked row, in their order.
    template <typename Part>
    [[nodiscard]] auto OfTickedRows(Part part, MarkedRow marked) const {
        std::vector<std::remove_cvref_t<std::invoke_result_t<Part, const Row&>>> parts;
        for (const int row : this->TickedRows()) {
            if (marked == MarkedRow::counts || RecordAt(row) != nullptr) {
                parts.push_back(std::invoke(part, this->At(row)));
            }
        }
        return parts;
    }

    // The records of the ticked rows, in their order.
    [[nodiscard]] std::vector<Row> TickedRecords() const {
        return OfTickedRows(std::identity{}, MarkedRow::leftOut);
    }

    [[nodiscard]] Cell CellAt(int row, int column) const final {
        return RecordAt(row) != nullptr ? this->CellOf(this->At(row), column)
                                        : MarkedCell(this->At(row), column);
    }

  protected:
    // What a hidden column holds of the marked row.
    [[nodiscard]] virtual Cell MarkedCell(const Row& /*row*/, int /*column*/) const { return {}; }

  private:
    int records_ = 0;  // rows with a record: all but the marked one
};

}  // namespace quorvi
