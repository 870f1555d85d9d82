// What the site says of the suite's newest version: the file update.xml.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "base/Deployment.h"
#include "online/HttpTransfer.h"

namespace quorvi {

// A line of the list; the number is that of its picture.
enum class NewsKind { added = 0, improved = 1, mended = 2, data = 3 };

struct NewsRow {
    NewsKind kind = NewsKind::added;
    std::string caption;  // 新增功能 and the like. ANSI
    std::string text;     // ANSI
};

struct VersionNews {
    std::string newest;  // ANSI; empty where the file does not say
    std::vector<NewsRow> rows;
    // The file is not there, or not to be read from some place on. What stood before it is in
    // `rows`.
    bool broken = false;
};

// Reads the file. A block that has no type, and a top element of another name, break it; a block of
// another type, and an element of another name in a block of details, are passed over. Any thread.
[[nodiscard]] VersionNews ParseVersionNews(std::string_view xml);

// Gets the file from below the root of the site, and reads it. Waits.
[[nodiscard]] VersionNews FetchVersionNews(const Deployment& deployment,
                                           const HttpLimits& limits = {});

}  // namespace quorvi
