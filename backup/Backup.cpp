#include "backup/Backup.h"

#include <algorithm>
#include <array>

#include "backup/BackupRun.h"
#include "base/CodePageScope.h"
#include "base/Text.h"
#include "pages/phoneinfo/SystemInfo.h"

namespace quorvi {
namespace {

struct Step {
    BackupKind kind;
    bool (*run)(BackupRun& run);
};
constexpr std::array<Step, kBackupKinds.size()> kSteps{{
    {BackupKind::groups, BackUpGroups},
    {BackupKind::contacts, BackUpContacts},
    {BackupKind::alarms, BackUpAlarms},
    {BackupKind::bookmarks, BackUpBookmarks},
    {BackupKind::messages, BackUpMessages},
    {BackupKind::calls, BackUpCalls},
    {BackupKind::phone, BackUpPhone},
    {BackupKind::applications, BackUpApplications},
}};

// The model, and whether anybody answers at all, before anything is listed.
bool ReadModel(BackupRun& run) {
    const auto reply = run.Await<SystemInfoReply>(
        [agent = run.agent] { return FetchSystemInfo(AgentSession(agent)); });
    if (!reply || !run.Accept(reply->outcome)) {
        return false;
    }
    if (reply->info) {
        run.result.manifest.phone = reply->info->model;
    }
    return true;
}

}  // namespace

bool BackupRun::FailStopped() {
    return Fail(BackupEnd::stopped, Ansi(u8"已停止"));
}

bool BackupRun::FailNotWhole() {
    return Fail(BackupEnd::notWhole, Ansi(u8"手机给出的内容不完整，请重试"));
}

bool BackupRun::Accept(SessionOutcome outcome) {
    switch (outcome) {
        case SessionOutcome::complete:
        case SessionOutcome::noData:
            return true;
        case SessionOutcome::connectFailed:
            result.connected = false;
            return Fail(BackupEnd::linkLost, Ansi(u8"没有连接手机，请连接后重试"));
        case SessionOutcome::cut:
        case SessionOutcome::noReply:
        case SessionOutcome::receiveFailed:
            break;
    }
    return Fail(BackupEnd::linkLost, Ansi(u8"和手机的连接断了，请重新连接后重试"));
}

void BackupRun::Begin(BackupKind kind, std::size_t of) {
    counted_ = {};
    counted_.kind = kind;
    counted_.count = static_cast<std::uint32_t>(of);
    result.reached = {kind, 0, counted_.count};
    tell_(result.reached);
}

void BackupRun::Step() {
    ++result.reached.done;
    tell_(result.reached);
}

void BackupRun::Skip(std::string what, std::u8string_view why) {
    Manifest& manifest = result.manifest;
    ++manifest.skippedCount;
    if (manifest.skipped.size() < kMostSkippedNamed) {
        manifest.skipped.push_back({counted_.kind, std::move(what), Ansi(why)});
    }
}

bool BackupRun::End(std::string content, const std::vector<BackupFile*>& files) {
    for (BackupFile* file : files) {
        counted_.files.push_back(file->Close());
        if (file->Error()) {
            return FailDisk(file->Error());
        }
    }
    counted_.content = std::move(content);
    result.manifest.kinds.push_back(std::move(counted_));
    return true;
}

BackupResult RunBackup(AgentAddress agent, const BackupOrder& order,
                       const std::function<void(const BackupProgress&)>& progress,
                       const StopSignal& stop) {
    const WholeTextScope wholeText;
    BackupWriter writer(order.target);
    BackupRun run(agent, writer, progress, stop);
    run.result.manifest.made = order.now;
    if (order.attribution) {
        run.attribution = order.attribution;
    }
    if (writer.Error()) {
        run.FailDisk(writer.Error());
        return std::move(run.result);
    }
    if (!ReadModel(run)) {
        return std::move(run.result);
    }
    for (const auto& [kind, step] : kSteps) {
        if (std::ranges::find(order.kinds, kind) == order.kinds.end()) {
            continue;
        }
        if (stop.IsStopped()) {
            run.FailStopped();
            return std::move(run.result);
        }
        if (!step(run)) {
            return std::move(run.result);
        }
    }
    if (const std::error_code error = writer.Finish(run.result.manifest, stop)) {
        error == std::errc::operation_canceled ? run.FailStopped() : run.FailDisk(error);
    }
    return std::move(run.result);
}

std::string CountsText(const Manifest& manifest) {
    std::string text;
    for (const BackedUpKind& kind : manifest.kinds) {
        text += text.empty() ? std::string() : Ansi(u8"，");
        text += NameOf(kind.kind) + " " + std::to_string(kind.count);
    }
    return text;
}

}  // namespace quorvi
