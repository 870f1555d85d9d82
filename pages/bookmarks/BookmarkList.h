// The bookmarks of the phone's browser, as command 870701 lists them, and their deletion.
#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "agent/AgentSession.h"
#include "agent/Reply.h"
#include "agent/Request.h"
#include "pages/kit/ListReply.h"

namespace quorvi {

// One row; texts are ANSI.
struct BookmarkRow {
    std::uint32_t id = 0;  // what all other commands name the bookmark by
    std::string title;
    std::string url;
    std::uint32_t visits = 0;
    std::string lastVisit;  // local time, or "从未"
    // A picture of the site, an image file in any format; empty without one.
    ReplyBytes thumbnail;
};

// Where a bookmark is kept, as the list's filter offers it. There is only the phone's store: every
// row is kept there, and the filter is not applied.
inline constexpr std::array<std::u8string_view, 4> kBookmarkStores{u8"所有类型", u8"仅手机上的",
                                                                   u8"仅电脑上的", u8"电脑和手机"};
inline constexpr std::u8string_view kPhoneBookmarkStore = kBookmarkStores[1];

// Ended by the mark in a title.
using BookmarkList = ReadList<BookmarkRow>;
using BookmarkListReply = ListReply<BookmarkRow>;

// Reads the run of records. A record with a length that points outside the reply, or in whose id
// the reply was cut, ends the run and is dropped. Thumbnails stay in the reply. Any thread.
[[nodiscard]] BookmarkList ParseBookmarkList(const SharedReply& reply);

// One session that reads the list. Any thread.
[[nodiscard]] BookmarkListReply FetchBookmarkList(const AgentSession& session,
                                                  const AgentSession::Progress& progress = {});

// "3 次". ANSI.
[[nodiscard]] std::string BookmarkVisitsText(std::uint32_t visits);

// The request of command 870705.
[[nodiscard]] Bytes DeleteBookmarksRequest(std::span<const std::uint32_t> ids);

}  // namespace quorvi
