// Bookmarks as all browsers export and import them: the HTML file that begins with
// <!DOCTYPE NETSCAPE-Bookmark-file-1>.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace quorvi {

// A bookmark as it is kept on the PC; texts are UTF-8.
struct FileBookmark {
    std::string title;
    std::string url;
    std::uint32_t visits = 0;

    bool operator==(const FileBookmark&) const = default;
};

// One file with all of them, in order. Visits, which browsers do not export, stand in an attribute
// of our own, VISITS, that others pass over.
[[nodiscard]] std::string WriteBookmarkFile(std::span<const FileBookmark> bookmarks);

// Of a title and of an address, as they stand in the file.
inline constexpr std::size_t kMostBookmarkBytes = 64 * 1024;

// No more are read of one file.
inline constexpr std::size_t kMostBookmarks = 100'000;

struct BookmarkFile {
    std::vector<FileBookmark> bookmarks;
    // What is longer than kMostBookmarkBytes: its title, as far as that goes.
    std::vector<std::string> tooLong;
    bool tooMany = false;  // the file has more than kMostBookmarks, and was read up to there
};

// True of the addresses that a browser opens: http, https and ftp with something behind them.
// Browsers keep scripts and saved searches beside them.
[[nodiscard]] bool IsWebAddress(std::string_view url);

// The bookmarks of a file, in order, whatever their addresses; folders are flattened. Reads what
// browsers of twenty years wrote: letters of either case, attributes with and without quotes, UTF-8
// whatever the file says of itself, and where it is none, as GuessedToUtf8.
[[nodiscard]] BookmarkFile ReadBookmarkFile(std::string_view file);

}  // namespace quorvi
