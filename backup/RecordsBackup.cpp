#include <utility>
#include <vector>

#include "backup/BackupRun.h"
#include "backup/BookmarkFile.h"
#include "backup/Content.h"
#include "backup/RecordFiles.h"
#include "base/Json.h"
#include "base/Text.h"

namespace quorvi {
namespace {

// One list, one file, another beside it for other programs, and, for what can be restored, the sum
// of its content.
template <typename Row>
bool WriteList(BackupRun& run, BackupKind kind, const std::string& name,
               const std::vector<Row>& rows, BackupFile* beside = nullptr) {
    run.Begin(kind, rows.size());
    BackupFile file = run.writer.Begin(name);
    file.Write(kRecordsBegin);
    ContentSum content;
    bool first = true;
    for (const Row& row : rows) {
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
    std::vector<BackupFile*> files{&file};
    if (beside != nullptr) {
        files.push_back(beside);
    }
    return run.End(kIsRestored ? content.Hex() : std::string(), files);
}

}  // namespace

bool WriteAlarms(BackupRun& run, const std::vector<AlarmRow>& rows) {
    return WriteList(run, BackupKind::alarms, "alarms.json", rows);
}

bool WriteBookmarks(BackupRun& run, const std::vector<BookmarkRow>& rows) {
    std::vector<FileBookmark> bookmarks;
    bookmarks.reserve(rows.size());
    for (const BookmarkRow& row : rows) {
        bookmarks.push_back({ToUtf8(row.title), ToUtf8(row.url), row.visits});
    }
    BackupFile page = run.writer.Begin("bookmarks.html");
    page.Write(WriteBookmarkFile(bookmarks));
    return WriteList(run, BackupKind::bookmarks, "bookmarks.json", rows, &page);
}

bool BackUpAlarms(BackupRun& run) {
    const auto reply = run.FetchWhole(AgentCommand::listAlarms, FetchAlarmList);
    return reply && run.AcceptList(*reply) && WriteAlarms(run, reply->list.rows);
}

bool BackUpBookmarks(BackupRun& run) {
    const auto reply = run.FetchWhole(AgentCommand::listBookmarks, FetchBookmarkList);
    return reply && run.AcceptList(*reply) && WriteBookmarks(run, reply->list.rows);
}

bool BackUpApplications(BackupRun& run) {
    auto reply = run.FetchWhole(AgentCommand::listApplications, FetchAppList);
    if (reply && reply->list.rows.empty()) {
        reply->list.marked.reset();  // so an agent says that it has none
    }
    return reply && run.AcceptList(*reply) &&
           WriteList(run, BackupKind::applications, "applications.json", reply->list.rows);
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
