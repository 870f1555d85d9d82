#include "pages/downloads/DownloadRows.h"

#include <utility>

#include "base/Text.h"

namespace quorvi {

using Kind = QueueEvent::Kind;

namespace {

constexpr std::int32_t kWhole = 100;

}  // namespace

void TaskNotes::Hear(const QueueEvent& event) {
    switch (event.kind) {
        case Kind::failed:
            notes_[event.task.id] = {TaskState::failed, FaultStatus(event.fault, event.task.title)};
            break;
        case Kind::stopped:
            notes_[event.task.id] = {TaskState::downloading, EventStatus(event)};
            break;
        case Kind::installStarted:
            notes_[event.task.id] = {TaskState::installing, Ansi(u8"正在安装到手机")};
            break;
        case Kind::installEnded:
            notes_.erase(event.task.id);
            if (event.install != InstallResult::success) {
                notes_[event.task.id] = {
                    TaskState::installFailed,
                    InstallStatus(event.install, event.phoneChosen, event.task.title)};
            }
            break;
        case Kind::started:
        case Kind::complete:
            notes_.erase(event.task.id);
            break;
        default:
            break;
    }
}

std::string TaskNotes::Of(const CDownloadTask& task) const {
    const auto own = notes_.find(task.id);
    if (own != notes_.end() && own->second.state == task.state) {
        return own->second.text;
    }
    switch (task.state) {
        // It ended before the program was started.
        case TaskState::failed:
            return Ansi(u8"下载没有完成，请在右键菜单里选“继续下载”");
        case TaskState::installFailed:
            return Ansi(u8"安装没有成功，请连接手机后在右键菜单里选“重新安装”");
        default:
            return {};
    }
}

std::vector<DownloadRow> RowsOf(std::vector<CDownloadTask> tasks, const TaskNotes& notes) {
    std::vector<DownloadRow> rows;
    rows.reserve(tasks.size());
    for (CDownloadTask& task : tasks) {
        std::string note = notes.Of(task);
        rows.push_back({.task = std::move(task), .note = std::move(note)});
    }
    return rows;
}

bool ShowInRow(const QueueEvent& event, DownloadRow& row) {
    switch (event.kind) {
        case Kind::started:
            row.task.state = TaskState::downloading;
            row.percent = kNoPercent;
            return true;
        case Kind::progress:
            row.percent = event.percent;
            return true;
        case Kind::complete:
            row.percent = kWhole;
            return true;
        default:
            return false;
    }
}

std::string ProgressText(const DownloadRow& row) {
    return row.percent == kNoPercent ? std::string(kNoProgressCell) : ProgressCell(row.percent);
}

std::string EventStatus(const QueueEvent& event) {
    switch (event.kind) {
        case Kind::progress:
            return SpeedStatus(event.speed);
        case Kind::stopped:
            return Ansi(u8"下载已停下：")
                .append(event.task.title)
                .append(Ansi(u8"，点“继续任务”从停下的地方接着下载"));
        case Kind::failed:
            return FaultStatus(event.fault, event.task.title);
        case Kind::installEnded:
            return InstallStatus(event.install, event.phoneChosen, event.task.title);
        case Kind::storeFailed:
            return StoreStatus(event.store);
        case Kind::nothingChecked:
            return NothingCheckedStatus();
        default:
            return {};
    }
}

}  // namespace quorvi
