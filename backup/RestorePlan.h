// What a restore is going to do, made before it does anything.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <variant>
#include <vector>

#include "backup/Manifest.h"
#include "backup/RestoreContent.h"
#include "pages/contacts/ContactGroups.h"

namespace quorvi {

enum class RestoreAction { add, change, there, impossible };

// What is to be sent; nothing for what is there and what is impossible.
struct GroupToAdd {
    std::string title;  // UTF-8
};
struct CardToAdd {
    std::size_t card = 0;  // of RestoreContent::cards
};
struct CardToComplete {
    std::size_t card = 0;
    std::uint32_t contactId = 0;
};
using RestoreStep = std::variant<std::monostate, GroupToAdd, CardToAdd, CardToComplete,
                                 AlarmSettings, BookmarkSettings>;

struct RestoreItem {
    BackupKind kind{};
    RestoreAction action{};
    std::string what;  // ANSI
    std::string why;   // what else there is to know, where there is; ANSI
    RestoreStep step;
};

struct RestorePlan {
    std::vector<RestoreItem> items;  // groups first, then contacts

    [[nodiscard]] std::size_t Count(BackupKind kind, RestoreAction action) const;
    [[nodiscard]] std::size_t Count(RestoreAction action) const;
};

// What is on the phone, of the kinds that are restored.
struct PhoneContent {
    std::vector<ContactGroup> groups;
    std::vector<ContactCard> cards;         // those that a card of the backup may stand for
    std::vector<std::uint32_t> contactIds;  // of each of them
    std::vector<AlarmSettings> alarms;
    std::vector<BookmarkSettings> bookmarks;
};

// Nothing on the phone is deleted or changed but for what it lacks. An alarm of the same time, days
// and label is the same, and so is a bookmark of the same address; what else differs stays as it is
// on the phone. What the backup has twice is brought back twice. The kinds of `manifest` among
// `kinds` that no phone takes are named too.
[[nodiscard]] RestorePlan PlanRestore(const RestoreContent& backup, const PhoneContent& phone,
                                      const Manifest& manifest,
                                      const std::vector<BackupKind>& kinds);

}  // namespace quorvi
