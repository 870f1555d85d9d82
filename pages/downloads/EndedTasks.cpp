#include "pages/downloads/EndedTasks.h"

#include "base/Text.h"

namespace quorvi {

using Kind = QueueEvent::Kind;

void EndedTasks::Hear(const QueueEvent& event) {
    if (event.kind == Kind::installEnded && event.install == InstallResult::success) {
        ++installed_;
    } else if (event.kind == Kind::installEnded || event.kind == Kind::failed) {
        ++failed_;
    }
}

std::optional<std::string> EndedTasks::TakeNotice(bool tasksLeft) {
    if (tasksLeft || installed_ + failed_ == 0) {
        return std::nullopt;
    }
    std::string notice;
    if (installed_ > 0) {
        notice = std::to_string(installed_) + Ansi(u8" 个应用已经安装到手机");
    }
    if (failed_ > 0) {
        notice += (notice.empty() ? "" : Ansi(u8"，")) + std::to_string(failed_) +
                  Ansi(u8" 个任务没有成功，请打开“当前任务”查看原因");
    }
    *this = {};
    return notice;
}

}  // namespace quorvi
