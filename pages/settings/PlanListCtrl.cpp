#include "pages/settings/PlanListCtrl.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <utility>

#include "pages/settings/PlanCounter.h"
#include "ui/kit/QtText.h"

namespace quorvi {

using look::Metric;

namespace {

enum Column { columnResult, columnKind, columnName, columnWhy };

constexpr std::array<ListColumn, 4> kColumns{{
    {u8"结果", Metric::planResult, CellKind::iconText, CellAlign::left},
    {u8"类型", Metric::planKind, CellKind::text, CellAlign::left},
    {u8"名称", Metric::planName, CellKind::text, CellAlign::left},
    {.caption = u8"说明", .width = Metric::planWhy, .align = CellAlign::left, .name = true},
}};

bool IsSent(const PlanRow& row) {
    return row.action == RestoreAction::add || row.action == RestoreAction::change;
}

}  // namespace

PlanListCtrl::PlanListCtrl(QWidget* parent)
    : RecordListCtrl(kColumns, Metric::rowCompact, parent) {}

void PlanListCtrl::ShowPlan(std::vector<PlanRow> rows) {
    plan_ = std::move(rows);
    done_ = 0;
    ShowOnly(only_);
}

void PlanListCtrl::ShowOnly(std::optional<RestoreAction> action) {
    only_ = action;
    std::vector<PlanRow> shown;
    std::ranges::copy_if(plan_, std::back_inserter(shown),
                         [&](const PlanRow& row) { return !action || row.action == *action; });
    SetRecords(std::move(shown));
}

void PlanListCtrl::ShowDone(std::size_t done) {
    done_ = done;
    const auto next = std::ranges::find_if(
        Records(), [&](const PlanRow& row) { return IsSent(row) && row.order == done; });
    SelectRow(next == Records().end() ? -1
                                      : static_cast<int>(std::distance(Records().begin(), next)));
    viewport()->update();
}

Cell PlanListCtrl::CellOf(const PlanRow& row, int column) const {
    switch (column) {
        case columnResult: {
            const ActionMark& mark = MarkOf(row.action);
            return {.text = ToQString(ActionName(row.action, IsSent(row) && row.order < done_)),
                    .icon = mark.icon.toString(),
                    .iconInk = mark.ink,
                    .iconSide = Metric::iconField};
        }
        case columnKind:
            return {.text = ToQString(row.kind)};
        case columnName:
            return {.text = ToShownQString(row.what)};
        default:
            return {.text = ToShownQString(row.why)};
    }
}

}  // namespace quorvi
