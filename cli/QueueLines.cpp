#include "cli/QueueLines.h"

#include <array>
#include <utility>

#include "base/Json.h"
#include "base/Text.h"
#include "download/QueueText.h"

namespace quorvi::cli {
namespace {

using Kind = QueueEvent::Kind;

// Row = QueueEvent::Kind; nothing for those that only a list on a screen needs.
constexpr std::array<const char*, 10> kWords{
    "started",         "progress",      "complete", "stopped",      "failed",
    "install_started", "install_ended", nullptr,    "store_failed", nullptr};

// Row = DownloadFault.
constexpr std::array<const char*, 4> kFaults{"none", "no_connection", "disk_full", "cannot_write"};

// Row = InstallResult.
constexpr std::array<const char*, 5> kResults{"success", "no_process", "other_signature",
                                              "phone_full", "failed"};

const char* WordOf(const QueueEvent& event) {
    return kWords.at(static_cast<std::size_t>(event.kind));
}

}  // namespace

std::string EventText(const QueueEvent& event) {
    const std::string& title = event.task.title;
    switch (event.kind) {
        case Kind::started:
            return Ansi(u8"【+】下载 ") + title;
        case Kind::progress:
            return title + Ansi(u8"：") + ProgressCell(event.percent) + Ansi(u8"，") +
                   SpeedStatus(event.speed);
        case Kind::complete:
            return Ansi(u8"已经下载：") + title;
        case Kind::stopped:
            return Ansi(u8"已经停止：") + title + Ansi(u8"，下次从这里继续下载");
        case Kind::failed:
            return FaultStatus(event.fault, title);
        case Kind::installStarted:
            return Ansi(u8"正在安装：") + title;
        case Kind::installEnded:
            return InstallStatus(event.install, event.phoneChosen, title);
        case Kind::storeFailed:
            return StoreStatus(event.store);
        case Kind::reload:
        case Kind::nothingChecked:
            break;
    }
    return {};
}

Json::Value DocumentOf(const QueueEvent& event) {
    Json::Value line(Json::objectValue);
    line["event"] = WordOf(event);
    line["id"] = event.task.id;
    line["title"] = JsonText(event.task.title);
    line["package"] = JsonText(event.task.uniqueId);
    line["text"] = JsonText(EventText(event));
    if (event.kind == Kind::progress) {
        line["percent"] = event.percent;
        line["speed"] = event.speed;
    } else if (event.kind == Kind::failed) {
        line["fault"] = kFaults.at(static_cast<std::size_t>(event.fault));
    } else if (event.kind == Kind::installEnded) {
        line["result"] = kResults.at(static_cast<std::size_t>(event.install));
    }
    return line;
}

void QueueLines::Hear(const QueueEvent& event) {
    if (WordOf(event) == nullptr) {
        return;
    }
    const std::lock_guard lock(mutex_);
    if (event.kind == Kind::failed || event.kind == Kind::storeFailed ||
        (event.kind == Kind::installEnded && event.install != InstallResult::success)) {
        worst_ = Status::noLink;
    }
    storeFailed_ = storeFailed_ || event.kind == Kind::storeFailed;
    if (output_.Json()) {
        output_.PrintJsonLine(DocumentOf(event));
    } else if (event.kind == Kind::storeFailed) {
        output_.Complain(EventText(event));
    } else if (std::string text = EventText(event); text != last_) {
        output_.PrintLine(text);
        last_ = std::move(text);
    }
}

Status QueueLines::Worst() {
    const std::lock_guard lock(mutex_);
    return worst_;
}

bool QueueLines::StoreFailed() {
    const std::lock_guard lock(mutex_);
    return storeFailed_;
}

}  // namespace quorvi::cli
