// The bookmark editor's fields, and the requests of a save.
#pragma once

#include <cstdint>
#include <string>

#include "agent/Request.h"
#include "pages/bookmarks/BookmarkList.h"

namespace quorvi {

// What a save sends of a bookmark; texts are ANSI. Nothing is refused, an empty title neither.
struct BookmarkSettings {
    std::string title;
    std::string url;
    std::uint32_t visits = 0;

    bool operator==(const BookmarkSettings&) const = default;
};

// The fields, ANSI, at first as the editor for a new bookmark opens with them.
struct BookmarkForm {
    std::string title;
    std::string url;
    std::string visits;  // as it stands in the number field

    bool operator==(const BookmarkForm&) const = default;
};

// What the editor shows of a bookmark.
[[nodiscard]] BookmarkForm FormOf(const BookmarkRow& row);

// What a save of the fields sends. Visits that are no number are 0.
[[nodiscard]] BookmarkSettings SettingsOf(const BookmarkForm& form);

// The requests of commands 870702 and 870703.
[[nodiscard]] Bytes AddBookmarkRequest(const BookmarkSettings& settings);
[[nodiscard]] Bytes UpdateBookmarkRequest(std::uint32_t id, const BookmarkSettings& settings);

}  // namespace quorvi
