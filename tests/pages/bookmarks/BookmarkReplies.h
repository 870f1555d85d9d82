// Replies of a phone with bookmarks.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "tests/support/WireBytes.h"

namespace quorvi {

struct ListedBookmark {
    std::uint64_t id = 7;
    std::string title = "天气";
    std::string url = "http://weather.example/";
    std::uint32_t visits = 3;
    std::uint64_t lastVisit = 1308361330000;
    std::optional<std::string> favicon{};
    std::optional<std::string> thumbnail{};
};

inline void AddPicture(WireBytes& bytes, const std::optional<std::string>& picture) {
    bytes.U32(picture ? 1 : 0);  // has one
    if (picture) {
        bytes
            .U64(picture->size())  // length
            .Raw(*picture);        // picture
    }
}

inline WireBytes BookmarksPayload(const std::vector<ListedBookmark>& bookmarks) {
    WireBytes bytes;
    bytes.U32(0);  // leading word
    for (const ListedBookmark& bookmark : bookmarks) {
        bytes
            .U64(bookmark.id)          // bookmark id
            .Text(bookmark.title)      // title
            .Text(bookmark.url)        // url
            .U32(bookmark.visits)      // visits
            .U64(bookmark.lastVisit);  // milliseconds since 1970
        AddPicture(bytes, bookmark.favicon);
        AddPicture(bytes, bookmark.thumbnail);
    }
    return bytes;
}

}  // namespace quorvi
