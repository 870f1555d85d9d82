#include <utility>

#include "backup/BackupRun.h"
#include "backup/Content.h"
#include "backup/RecordFiles.h"
#include "base/Json.h"
#include "base/Text.h"

namespace quorvi {
namespace {

// One list, one file, and, for what can be restored, the sum of its content.
template <typename Row>
bool BackUpList(BackupRun& run, BackupKind kind, const std::string& name,
                const ListReply<Row>& reply) {
    if (!run.AcceptList(reply)) {
        return false;
    }
    run.Begin(kind, reply.list.rows.size());
    BackupFile file = run.writer.Begin(name);
    file.Write(kRecordsBegin);
    ContentSum content;
    bool first = true;
    for (const Row& row : reply.list.rows) {
        file.Write(RecordLine(RecordDocument(row), std::exchange(first, false)));
        if constexpr (requires { SettingsToRestore(row); }) {
            if (const std::string record = ContentOf(SettingsToRestore(row)); !record.empty()) {
                content.Add(record);
            }
        }
        run.Step();
    }
    file.Write(kRecordsEnd);
    constexpr bool kIsRestored = requires(const Row& row) {
        SettingsToRestore(row);
    };
    return run.End(kIsRestored ? content.Hex() : std::string(), {&file});
}

}  // namespace

bool BackUpAlarms(BackupRun& run) {
    const auto reply = run.FetchWhole(FetchAlarmList);
    return reply && BackUpList(run, BackupKind::alarms, "alarms.json", *reply);
}

bool BackUpBookmarks(BackupRun& run) {
    const auto reply = run.FetchWhole(FetchBookmarkList);
    return reply && BackUpList(run, BackupKind::bookmarks, "bookmarks.json", *reply);
}

bool BackUpApplications(BackupRun& run) {
    auto reply = run.FetchWhole(FetchAppList);
    if (reply && reply->list.rows.empty()) {
        reply->list.marked.reset();  // so an agent says that it has none
    }
    return reply && BackUpList(run, BackupKind::applications, "applications.json", *reply);
}

bool BackUpPhone(BackupRun& run) {
    const auto reply = run.Await<SystemInfoReply>(
        [agent = run.agent] { return FetchSystemInfo(AgentSession(agent)); });
    if (!reply || !run.Accept(reply->outcome)) {
        return false;
    }
    run.Begin(BackupKind::phone, reply->info ? 1 : 0);
    BackupFile file = run.writer.Begin("phone.json");
    if (reply->info) {
        file.Write(WriteJson(RecordDocument(*reply->info), JsonForm::lines) + "\n");
    } else {
        file.Write("{}\n");
        run.Skip(NameOf(BackupKind::phone), u8"手机没有给出");
    }
    run.Step();
    return run.End({}, {&file});
}

}  // namespace quorvi
