// What the user has deleted from a phone, kept on the PC for a month: each deletion a small backup
// of its own, which Restore brings back as far as the phone takes it.
#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <variant>
#include <vector>

#include "agent/AgentAddress.h"
#include "backup/Backup.h"
#include "backup/Manifest.h"
#include "base/os/StopSignal.h"
#include "pages/alarms/AlarmList.h"
#include "pages/bookmarks/BookmarkList.h"
#include "pages/calls/CallLog.h"
#include "pages/contacts/ContactGroups.h"
#include "pages/contacts/ContactList.h"
#include "pages/messages/Conversations.h"

namespace quorvi {

// The rows of one list that are about to go.
using GoingRows =
    std::variant<std::vector<ContactListRow>, std::vector<ContactGroup>, std::vector<Conversation>,
                 std::vector<CallLogRow>, std::vector<AlarmRow>, std::vector<BookmarkRow>>;

// So long a deletion is kept, in seconds.
inline constexpr std::int64_t kKeptSeconds = std::int64_t{30} * 24 * 60 * 60;

struct KeptDeletion {
    std::filesystem::path backup;  // for BackupReader::Open
    Manifest manifest;             // when, of which kind, how many
};

struct KeepResult : BackupResult {
    std::filesystem::path backup;  // where it stands, with the end `whole`
};

// A plain value; each call looks at the disk. On a worker.
class DeletedItems {
  public:
    // `folder` is made when something is kept: Places::DeletedItems, but for tests.
    explicit DeletedItems(std::filesystem::path folder);

    // Writes what will go, before the request that deletes it is sent: contacts and conversations
    // are read from the phone whole, of a group its title and, by name and number, its members.
    // Where the end is not `whole`, nothing is kept, and where the manifest names skipped items,
    // those are not: the user is to be asked again before they are deleted, with the reason.
    [[nodiscard]] KeepResult Keep(AgentAddress agent, const GoingRows& rows, std::int64_t now,
                                  const StopSignal& stop) const;

    // The newest first. Those that are older than kKeptSeconds are gone from then on, and so is
    // what a killed program has left.
    [[nodiscard]] std::vector<KeptDeletion> List(std::int64_t now) const;

    // Takes those off the disk that are older than kKeptSeconds.
    void ForgetOld(std::int64_t now) const { static_cast<void>(List(now)); }

    // Takes one off the disk, of those that List or Keep gave; false where that is not possible.
    [[nodiscard]] bool Forget(const KeptDeletion& deletion) const {
        return Forget(deletion.backup);
    }
    [[nodiscard]] bool Forget(const std::filesystem::path& backup) const;

  private:
    std::filesystem::path folder_;
};

}  // namespace quorvi
