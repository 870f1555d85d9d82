// The orders in which the contacts page can show its rows.
#pragma once

#include <span>
#include <vector>

#include "find/RowOrder.h"
#include "pages/contacts/ContactList.h"

namespace quorvi {

// What contacts are sorted by.
enum ContactSort { contactsByName, contactsByTime, contactsByAttribution };

// A list of contacts, and the ranks of its rows for each ContactSort.
struct RankedContacts : ContactList {
    std::vector<std::vector<RowRank>> ranks{};
};
using RankedContactReply = ListReply<ContactListRow, RankedContacts>;

// By the pinyin of the name, by the time of the last contact, by the pinyin of the attribution. Who
// has no name, was never contacted or has no attribution has no rank. Takes a moment for many
// contacts: for a worker.
[[nodiscard]] std::vector<std::vector<RowRank>> RanksOfContacts(
    std::span<const ContactListRow> rows);

// The reply with its ranks.
[[nodiscard]] RankedContactReply Ranked(ContactListReply reply);

}  // namespace quorvi
