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

    // What `part` (a member, say) gives of each of these rows, in their order.
    template <typename Part>
    [[nodiscard]] auto OfRows(const std::vector<int>& rows, Part part, MarkedRow marked) const {
        std::vector<std::remove_cvref_t<std::invoke_result_t<Part, const Row&>>> parts;
        for (const int row : rows) {
            if (marked == MarkedRow::counts || RecordAt(row) != nullptr) {
                parts.push_back(std::invoke(part, this->At(row)));
            }
        }
        return parts;
    }
    // The same of the ticked rows.
    template <typename Part>
    [[nodiscard]] auto OfTickedRows(Part part, MarkedRow marked) const {
        return OfRows(this->TickedRows(), std::move(part), marked);
    }

    // The records of these rows, and of the ticked ones, in their order.
    [[nodiscard]] std::vector<Row> RecordsOf(const std::vector<int>& rows) const {
        return OfRows(rows, std::identity{}, MarkedRow::leftOut);
    }
    [[nodiscard]] std::vector<Row> TickedRecords() const { return RecordsOf(this->TickedRows()); }

    // What these rows are called; that of the marked row is empty.
    [[nodiscard]] QStringList NamesOf(const std::vector<int>& rows, MarkedRow marked) const {
        QStringList names;
        for (const int row : rows) {
            if (marked == MarkedRow::counts || RecordAt(row) != nullptr) {
                names.append(this->NameOf(row));
            }
        }
        return names;
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
