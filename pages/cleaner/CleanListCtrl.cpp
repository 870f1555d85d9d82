#include "pages/cleaner/CleanListCtrl.h"

#include <array>
#include <utility>

#include "pages/kit/AppIcon.h"
#include "ui/kit/QtText.h"

namespace quorvi {

using look::Color;

namespace {

// Rows that are expected.
constexpr std::size_t kRoom = 20;

enum Column { columnIcon, columnItem, columnPeriod, columnRisk, columnSize, columnTick };

constexpr std::array<ListColumn, 6> kColumns{{
    {.caption = u8"类型", .width = 60, .kind = CellKind::picture, .holds = u8"图标"},
    {.caption = u8"清理项目和说明", .width = 330, .kind = CellKind::twoLines, .name = true},
    {u8"推荐周期", 100},
    {u8"风险提示", 90},
    {u8"数量或大小", 90, CellKind::text, CellAlign::left},
    {u8"选择", 54, CellKind::check, CellAlign::left},
}};

// The pictures of the fixed items, in the order of their table.
constexpr std::array<std::u16string_view, kFixedCleanRows> kPlates{u"search", u"clock", u"store"};

}  // namespace

CleanListCtrl::CleanListCtrl(QWidget* parent)
    : PhoneListCtrl(kColumns, look::Metric::rowTall, parent) {
    Reserve(kRoom);
}

void CleanListCtrl::ShowTicked(CleanList list) {
    Show(std::move(list));
    for (int row = 0; RecordAt(row) != nullptr; ++row) {
        SetTicked(row, true);
    }
}

FixedCleanFlags CleanListCtrl::TickedFixedItems() const {
    FixedCleanFlags flags{};
    for (std::size_t i = 0; i < flags.size(); ++i) {
        flags[i] = IsTicked(static_cast<int>(i));
    }
    return flags;
}

std::vector<std::string> CleanListCtrl::TickedPackages() const {
    std::vector<std::string> packages;
    for (const int row : TickedRows()) {
        const CleanItem* item = RecordAt(row);
        if (item != nullptr && item->fixed == nullptr) {
            packages.push_back(item->description);
        }
    }
    return packages;
}

Cell CleanListCtrl::CellOf(const CleanItem& row, int column) const {
    switch (column) {
        case columnItem:
            return {.text = ToShownQString(row.name), .second = ToShownQString(row.description)};
        case columnPeriod:
            return {.text = ToQString(CleanPeriodText(row)), .ink = Color::blue};
        case columnRisk:
            return {.text = ToQString(CleanRiskText(row))};
        case columnSize:
            return {.text = ToQString(CleanSizeText(row))};
        default:
            return {};
    }
}

RowPicture CleanListCtrl::PictureOf(const CleanItem& row) const {
    if (row.fixed != nullptr) {
        return {.plate = kPlates[static_cast<std::size_t>(row.fixed - kFixedCleanItems.data())]};
    }
    return AppIconOf(row.icon);
}

}  // namespace quorvi
