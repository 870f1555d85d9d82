#include "pages/tasks/TaskListCtrl.h"

#include <array>

#include "base/Format.h"
#include "pages/kit/AppIcon.h"
#include "ui/kit/QtText.h"

namespace quorvi {

using look::Color;

namespace {

enum Column {
    columnIcon,
    columnName,
    columnSystem,
    columnCpu,
    columnMemory,
    columnPid,
    columnDetails,
    columnTick
};

constexpr std::u8string_view kDetails = u8"详细";

// The links of the details lead nowhere: kept on purpose, the column stands as it always has
// (TaskPage.AClickOnTheDetailsChangesNothing).
constexpr std::array<ListColumn, 8> kColumns{{
    {.caption = u8"图标", .width = 70, .kind = CellKind::picture, .holds = u8"图标"},
    {.caption = u8"应用名称", .width = 250, .kind = CellKind::twoLines, .name = true},
    {u8"系统自带", 80, CellKind::icon},
    {u8"CPU 使用率", 80},
    {u8"内存占用", 90, CellKind::twoSmallLines, CellAlign::left},
    {u8"PID", 60},
    {.caption = kDetails, .width = 60, .kind = CellKind::link, .dead = true},
    {u8"选择", 44, CellKind::check},
}};

Cell SystemCell(bool isSystem) {
    return isSystem ? Cell{.text = ToQString(u8"是"),
                           .icon = QStringLiteral("success"),
                           .iconSide = look::Metric::iconTab}
                    : Cell{.text = ToQString(u8"否"),
                           .icon = QStringLiteral("dash"),
                           .iconInk = Color::ink2};
}

}  // namespace

TaskListCtrl::TaskListCtrl(QWidget* parent)
    : PhoneListCtrl(kColumns, look::Metric::rowTall, parent) {}

Cell TaskListCtrl::CellOf(const TaskRecord& row, int column) const {
    switch (column) {
        case columnName:
            return {.text = ToShownQString(row.name), .second = ToShownQString(row.package)};
        case columnSystem:
            return SystemCell(row.isSystem);
        case columnCpu:
            return {.text = ToQString(CpuShareText(row.cpu)), .ink = Color::blue};
        case columnMemory:
            return {.text = ToQString(FormatByteSize(row.memory)),
                    .second = ToQString(ImportanceText(row.importance))};
        case columnPid:
            return {.text = QString::number(static_cast<std::int32_t>(row.pid))};
        case columnDetails:
            return {.text = ToQString(kDetails), .ink = Color::blue};
        default:
            return {};
    }
}

RowPicture TaskListCtrl::PictureOf(const TaskRecord& row) const {
    return AppIconOf(row.icon);
}

}  // namespace quorvi
