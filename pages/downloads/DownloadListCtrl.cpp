#include "pages/downloads/DownloadListCtrl.h"

#include <algorithm>
#include <array>
#include <utility>

#include "ui/kit/QtText.h"

namespace quorvi {

using look::Color;

namespace {

enum Column { columnIcon, columnName, columnType, columnProgress, columnState, columnTick };

constexpr std::array<ListColumn, 6> kColumns{{
    {.caption = u8"图标", .width = 52, .kind = CellKind::plate, .holds = u8"图标"},
    {.caption = u8"名称和创建时间",
     .width = 186,
     .kind = CellKind::twoLines,
     .align = CellAlign::left,
     .name = true},
    {u8"类型", 52},
    {u8"进度和文件大小", 150, CellKind::progress},
    {u8"状态", 72},
    {u8"选择", 44, CellKind::check},
}};

// Element = TaskType; any other type has the last one.
constexpr std::array<QStringView, 7> kTypeIcons{
    u"file-app", u"music", u"ringtones", u"videos", u"books", u"live-wallpaper", u"file",
};

QString IconOf(TaskType type) {
    const auto place = static_cast<std::size_t>(type);
    return kTypeIcons.at(std::min(place, kTypeIcons.size() - 1)).toString();
}

Color InkOf(TaskState state) {
    switch (state) {
        case TaskState::downloading:
        case TaskState::installing:
            return Color::blue;
        case TaskState::failed:
        case TaskState::installFailed:
            return Color::red;
        case TaskState::done:
            return Color::green;
        default:
            return Color::ink;
    }
}

}  // namespace

DownloadListCtrl::DownloadListCtrl(QWidget* parent)
    : RecordListCtrl(kColumns, look::Metric::rowTall, parent) {}

void DownloadListCtrl::Show(std::vector<DownloadRow> rows) {
    const DownloadRow* selected = Current();
    const std::int32_t task = selected == nullptr ? kNoTask : selected->task.id;
    const int top = verticalScrollBar()->value();
    SetRedraw(false);
    SetRecords(std::move(rows));
    SelectRow(RowOf(task));
    verticalScrollBar()->setValue(top);
    SetRedraw(true);
}

int DownloadListCtrl::RowOf(std::int32_t task) const {
    const auto& rows = Records();
    const auto found =
        std::ranges::find(rows, task, [](const DownloadRow& row) { return row.task.id; });
    return found == rows.end() ? -1 : static_cast<int>(found - rows.begin());
}

std::vector<std::int32_t> DownloadListCtrl::TasksOf(const std::vector<int>& rows) const {
    std::vector<std::int32_t> tasks;
    for (const int row : rows) {
        tasks.push_back(At(row).task.id);
    }
    return tasks;
}

Cell DownloadListCtrl::CellOf(const DownloadRow& row, int column) const {
    switch (column) {
        case columnIcon:
            return {.icon = IconOf(row.task.type)};
        case columnName:
            return {.text = ToShownQString(row.task.title),
                    .second = ToShownQString(row.task.datetime)};
        case columnType:
            return {.text = ToQString(TypeCaption(row.task.type))};
        case columnProgress:
            return {.text = ToQString(ProgressText(row)), .value = row.percent};
        case columnState:
            return {.text = ToQString(StateCaption(row.task.state)),
                    .ink = InkOf(row.task.state),
                    .note = ToQString(row.note)};
        default:
            return {};
    }
}

}  // namespace quorvi
