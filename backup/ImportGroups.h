// The last step of an import: contacts that have just been added go into the groups of their cards.
#pragma once

#include <cstdint>
#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "agent/AgentAddress.h"
#include "backup/ContactCard.h"
#include "backup/FileTransfer.h"

namespace quorvi {

// By which two contacts are the same, for an import: the name, and the first number without the
// signs between its digits. ANSI.
using ContactKey = std::pair<std::string, std::string>;
[[nodiscard]] ContactKey KeyOfContact(std::string name, std::string_view number);

// A contact as it was sent.
struct AddedContact {
    ContactKey key;
    std::vector<std::string> groups;  // titles, UTF-8
};

// Says of those with groups that they are in none.
void TellNotInGroups(const std::vector<AddedContact>& added, SkippedRecords& leftOut);

// A new contact is sent without groups; so the phone is asked for the list once more, where those
// that are not in `before` (ids) are the new ones, and each of them is changed. Groups that the
// phone does not have are made. Those that could not be found are told in `leftOut`. Does nothing
// where no contact has a group. Blocks; a stop is looked at between two contacts.
[[nodiscard]] TransferStatus PutIntoGroups(AgentAddress agent,
                                           const std::vector<AddedContact>& added,
                                           const std::set<std::uint32_t>& before,
                                           const TransferWatch& watch, SkippedRecords& leftOut);

}  // namespace quorvi
