#include "pages/apps/AppListCtrl.h"

#include <array>

#include "base/Format.h"
#include "pages/apps/AppActions.h"
#include "pages/kit/AppIcon.h"
#include "ui/kit/QtText.h"

namespace quorvi {

using look::Color;

namespace {

// Rows that are expected.
constexpr std::size_t kRoom = 60;

enum Column {
    columnIcon,
    columnName,
    columnCategory,
    columnRating,
    columnVersion,
    columnHint,
    columnInstalled,
    columnTick
};

constexpr std::array<ListColumn, 8> kColumns{{
    {.caption = u8"图标", .width = 60, .kind = CellKind::picture, .holds = u8"图标"},
    {.caption = u8"应用名称和描述", .width = 180, .kind = CellKind::twoLines, .name = true},
    {u8"分类", 80, CellKind::twoLinesLink},
    {u8"评级", 130, CellKind::rating},
    {u8"版本", 56, CellKind::twoSmallLines, CellAlign::left},
    {u8"提示", 74},
    {u8"安装日期", 120},
    {u8"选择", 40, CellKind::check},
}};

constexpr std::u8string_view kDetails = u8"详细";
constexpr std::u8string_view kNewestText = u8"已最新";
constexpr std::u8string_view kNoPackageName = u8"包名不合规范，不能卸载";

}  // namespace

AppListCtrl::AppListCtrl(QWidget* parent) : PhoneListCtrl(kColumns, look::Metric::rowTall, parent) {
    Reserve(kRoom);
}

std::vector<std::string> AppListCtrl::Packages() const {
    std::vector<std::string> packages;
    packages.reserve(Records().size());
    for (const AppRecord& row : Records()) {
        packages.push_back(row.package);
    }
    return packages;
}

void AppListCtrl::Merge(const StoreAnswers& answers) {
    for (int row = 0; row < RowCount(); ++row) {
        const StoreFacts* facts = FactsOf(answers, At(row).package);
        if (facts != nullptr && *facts != At(row).store) {
            Edit(row, [&](AppRecord& record) { record.store = *facts; });
        }
    }
}

Cell AppListCtrl::CellOf(const AppRecord& row, int column) const {
    switch (column) {
        case columnName:
            return {
                .text = ToShownQString(row.name),
                .second = ToShownQString(row.store.description),
                .note = IsPackageName(row.package) ? QString() : ToQString(kNoPackageName),
            };
        case columnCategory:
            return {.text = ToShownQString(row.store.category),
                    .second = ToQString(kDetails),
                    .secondInk = Color::blue};
        case columnRating:
            return {.value = row.store.rating};
        case columnVersion:
            return {.text = ToShownQString(row.version),
                    .second = ToQString(FormatByteSize(row.size)),
                    .secondInk = Color::red};
        case columnHint:
            return {.text = ToQString(kNewestText),
                    .ink = IsGreenStatus(row.status) ? Color::green : Color::ink};
        case columnInstalled:
            return {.text = ToQString(InstalledText(row.installed))};
        default:
            return {};
    }
}

RowPicture AppListCtrl::PictureOf(const AppRecord& row) const {
    return AppIconOf(row.icon);
}

}  // namespace quorvi
