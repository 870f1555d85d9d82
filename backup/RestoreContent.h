// What a backup holds that a restore brings back to a phone.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "backup/BackupReader.h"
#include "backup/ContactCard.h"
#include "pages/alarms/AlarmForm.h"
#include "pages/bookmarks/BookmarkForm.h"

namespace quorvi {

// What is read at most: beyond it a backup is refused.
inline constexpr std::size_t kMostRestoredCards = 100'000;
inline constexpr std::size_t kMostRestoredCardBytes = 256 * 1024 * 1024;  // without photos

struct RestoreContent {
    std::vector<std::string> groups;  // titles, UTF-8, as CardText gives them
    std::vector<ContactCard> cards;   // without their photos
    std::vector<bool> hadPhoto;       // of each card
    std::vector<AlarmSettings> alarms;
    std::vector<BookmarkSettings> bookmarks;
    // Cards of the file in which there is nothing to bring back: see CardFault::nothingInIt.
    std::uint32_t emptyCards = 0;
    // Cards of the file that could not be read.
    std::uint32_t unreadCards = 0;
};

// Reads these kinds, as far as the backup has them; kinds that can't be restored are passed over.
// Nothing where a file of them is not what the manifest says, or says nothing; `why` then tells, in
// ANSI.
[[nodiscard]] std::optional<RestoreContent> ReadRestoreContent(const BackupReader& reader,
                                                               std::span<const BackupKind> kinds,
                                                               std::string& why);

}  // namespace quorvi
