// Contacts and bookmarks from a file of any program to the phone.
#pragma once

#include <cstddef>
#include <filesystem>
#include <string>
#include <vector>

#include "agent/AgentAddress.h"
#include "backup/BookmarkFile.h"
#include "backup/CardBuilder.h"
#include "backup/FileTransfer.h"

namespace quorvi {

// What is read of a file of vCards at most: a larger one is refused, and so is one of more cards.
inline constexpr std::size_t kMostImportedCards = 100'000;
inline constexpr std::size_t kMostImportedBytes = 256 * 1024 * 1024;
// Of a table or a bookmark file, which are held in memory.
inline constexpr std::size_t kMostImportedTableBytes = 64 * 1024 * 1024;

// A file that was read, and nothing sent yet.
struct ImportContent {
    TransferStatus status;
    // Of a file of contacts; photos, which a new contact cannot be sent, are named in `leftOut`.
    std::vector<ReadCard> cards{};
    // Of a file of bookmarks, with titles.
    std::vector<FileBookmark> bookmarks{};
    SkippedRecords skipped{};
};

// Reads a file whose ending CanImportFrom knows. Blocks as long as the disk does.
[[nodiscard]] ImportContent ReadImportFile(FileKind kind, const std::filesystem::path& file);

enum class ImportMode {
    send,
    tellOnly,  // reads the phone's list, and sends nothing
};

struct ImportResult {
    TransferStatus status;
    std::size_t added = 0;     // or would be
    std::size_t there = 0;     // on the phone, or twice in the file
    SkippedRecords skipped{};  // those of the file included
    // Records that were added, and what of them the phone cannot be sent.
    SkippedRecords leftOut{};
};

// Adds what the phone does not have, by the requests of the editors, and puts new contacts into the
// groups of their cards (see PutIntoGroups). A contact is there when one of
// the same name has the same first number, signs between its digits aside; a bookmark, when one has
// the same address. A request that the phone does not acknowledge ends the import: doing it again
// then passes over what has come. Blocks, and runs on a worker.
[[nodiscard]] ImportResult ImportContacts(AgentAddress agent, const ImportContent& content,
                                          ImportMode mode, const TransferWatch& watch = {});
[[nodiscard]] ImportResult ImportBookmarks(AgentAddress agent, const ImportContent& content,
                                           ImportMode mode, const TransferWatch& watch = {});

}  // namespace quorvi
