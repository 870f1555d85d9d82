#include "pages/bookmarks/BookmarkList.h"

#include <utility>

#include "base/Format.h"
#include "base/Text.h"
#include "pages/kit/ReplyPicture.h"

namespace quorvi {
namespace {

std::string LastVisitText(std::uint64_t milliseconds) {
    return milliseconds == 0
               ? Ansi(u8"从未")
               : FormatUnixTime(WholeSeconds(static_cast<std::int64_t>(milliseconds)));
}

}  // namespace

BookmarkList ParseBookmarkList(const SharedReply& reply) {
    return ReadRun<BookmarkRow>(*reply, [&](ReplyCursor& cursor, BookmarkRow& row) {
        row.id = cursor.TakeId();
        if (cursor.IsCut()) {
            return RecordEnd::cut;  // a change of the row would go to whatever bookmark has this id
        }
        auto title = cursor.TakeText();
        if (!title) {
            return RecordEnd::mark;
        }
        row.title = std::move(*title);
        row.url = cursor.TakeTextOrEmpty();
        row.visits = cursor.TakeUInt32();
        row.lastVisit = LastVisitText(cursor.TakeUInt64());
        if (cursor.TakeFlag()) {
            SkipPicture(cursor);  // the favicon, which nothing shows
        }
        if (cursor.TakeFlag()) {
            row.thumbnail = TakePicture(cursor, reply);
        }
        return cursor.Overran() ? RecordEnd::cut : RecordEnd::whole;
    });
}

BookmarkListReply FetchBookmarkList(const AgentSession& session,
                                    const AgentSession::Progress& progress) {
    return FetchList<BookmarkRow>(
        session, BareRequest(AgentCommand::listBookmarks), progress,
        [](ReplyBuffer&& reply) { return ParseBookmarkList(ShareReply(std::move(reply))); });
}

std::string BookmarkVisitsText(std::uint32_t visits) {
    return std::to_string(static_cast<std::int32_t>(visits)) + Ansi(u8" 次");
}

Bytes DeleteBookmarksRequest(std::span<const std::uint32_t> ids) {
    return IdsRequest(AgentCommand::deleteBookmarks, ids);
}

}  // namespace quorvi
