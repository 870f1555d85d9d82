// What a restore can bring back, in a form that does not depend on the phone: by it two phones, or
// a phone and a backup, are compared.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "backup/ContactCard.h"
#include "pages/alarms/AlarmForm.h"
#include "pages/bookmarks/BookmarkForm.h"

namespace quorvi {

// The sum over the records of a kind, in whatever order they come.
class ContentSum {
  public:
    // A text that says all that counts of one record. Not empty.
    void Add(std::string_view record);
    // SHA-256, 64 hexadecimal digits.
    [[nodiscard]] std::string Hex();

  private:
    std::vector<std::string> records_;  // their sums
};

// Empty for a record that no phone can be sent: see RecordOf and CanBeSent.
[[nodiscard]] std::string ContentOf(const ContactCard& card);
[[nodiscard]] std::string ContentOf(const AlarmSettings& alarm);
[[nodiscard]] std::string ContentOf(const BookmarkSettings& bookmark);

// What a restore sends of a record of the phone's list.
[[nodiscard]] AlarmSettings SettingsToRestore(const AlarmRow& row);
[[nodiscard]] BookmarkSettings SettingsToRestore(const BookmarkRow& row);

}  // namespace quorvi
