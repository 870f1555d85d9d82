// What was deleted in the last days, as rows for people.
#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

#include "backup/DeletedItems.h"

namespace quorvi {

// All texts are ANSI.
struct DeletedRow {
    std::filesystem::path backup;
    std::string time;  // of the deletion, local
    std::string kind;
    // "张小满、何一凡 等 3 项"; of messages "林远舟（5 条）"; without names "21 项".
    std::string what;
    std::string left;  // how long it stays, in days
    bool canGoBack = false;

    bool operator==(const DeletedRow&) const = default;
};

// In the order of `kept`. Reads from the disk what names there are; `now` in seconds since 1970.
[[nodiscard]] std::vector<DeletedRow> DeletedRowsOf(const std::vector<KeptDeletion>& kept,
                                                    std::int64_t now);

}  // namespace quorvi
