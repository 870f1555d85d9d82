// Bookmark files of any browser: whatever is read, writing it and reading it again gives the same.
#include <cstddef>
#include <cstdint>
#include <cstdlib>

#include "backup/BookmarkFile.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace quorvi;
    const BookmarkFile file = ReadBookmarkFile({reinterpret_cast<const char*>(data), size});
    // Signs take more room in a file than in memory: what fits there for certain is compared.
    constexpr std::size_t kLongestEntity = 6;
    for (const FileBookmark& bookmark : file.bookmarks) {
        if (bookmark.title.size() > kMostBookmarkBytes / kLongestEntity ||
            bookmark.url.size() > kMostBookmarkBytes / kLongestEntity) {
            return 0;
        }
    }
    if (ReadBookmarkFile(WriteBookmarkFile(file.bookmarks)).bookmarks != file.bookmarks) {
        std::abort();
    }
    return 0;
}
