#include "pages/apps/AppList.h"

#include <utility>

#include "base/Format.h"
#include "pages/kit/ReplyPicture.h"

namespace quorvi {
namespace {

constexpr std::size_t kSkippedWord = 4;

}  // namespace

AppList ParseAppList(const SharedReply& reply) {
    return ReadRun<AppRecord>(*reply, [&](ReplyCursor& cursor, AppRecord& row) {
        cursor.SkipBytes(kSkippedWord);
        auto name = cursor.TakeText();
        if (!name) {
            return RecordEnd::mark;
        }
        row.name = std::move(*name);
        row.package = cursor.TakeTextOrEmpty();
        if (cursor.IsCut()) {
            return RecordEnd::cut;  // what is removed by it would be some other application
        }
        row.version = cursor.TakeTextOrEmpty();
        row.extraValue = cursor.TakeUInt32();
        row.size = cursor.TakeUInt64();
        row.icon = TakePicture(cursor, reply);
        cursor.SkipText();
        cursor.SkipBytes(kSkippedWord);
        row.installed = cursor.TakeUInt64();
        return cursor.Overran() ? RecordEnd::cut : RecordEnd::whole;
    });
}

AppListReply FetchAppList(const AgentSession& session, const AgentSession::Progress& progress) {
    return FetchList<AppRecord>(
        session, BareRequest(AgentCommand::listApplications), progress,
        [](ReplyBuffer&& reply) { return ParseAppList(ShareReply(std::move(reply))); },
        NoDataWord::isALength);
}

std::string InstalledText(std::uint64_t milliseconds) {
    return milliseconds == 0
               ? Ansi(u8"从未")
               : FormatUnixTime(static_cast<std::int64_t>(WholeSeconds(milliseconds)));
}

}  // namespace quorvi
