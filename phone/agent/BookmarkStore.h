// The bookmarks of the phone's browser.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "phone/Channel.h"

namespace quorvi::phone {

struct Bookmark {
    std::uint64_t id = 0;
    std::string title;
    std::string url;
    std::uint32_t visits = 0;
    std::uint64_t lastVisit = 0;  // milliseconds since 1970; 0: never
    SharedBytes favicon{};
    SharedBytes thumbnail{};
};

class BookmarkStore {
  public:
    std::vector<Bookmark> bookmarks;

    [[nodiscard]] Bookmark* Find(std::uint64_t id);
    // Under an id of its own, whatever the bookmark's says.
    Bookmark& Add(Bookmark bookmark);

  private:
    std::uint64_t lastId_ = 0;
};

// What the owner of the phone has marked.
[[nodiscard]] BookmarkStore DeliveredBookmarks();

// With a thumbnail of so many bytes each, or none for 0.
[[nodiscard]] BookmarkStore LargeBookmarkStore(std::uint32_t count, std::uint32_t thumbnailBytes);

// Hostile titles and addresses, addresses of schemes that do harm, pictures that are none.
void AddHostileBookmarks(BookmarkStore& store);

}  // namespace quorvi::phone
