// The summary of every contact, photos included, as command 870101 reads it: the rows of the
// contacts page; and the deletion of contacts.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "agent/AgentSession.h"
#include "agent/Reply.h"
#include "agent/Request.h"
#include "pages/kit/ListReply.h"
#include "refdata/NumberAttribution.h"

namespace quorvi {

// One row; texts are ANSI.
struct ContactListRow {
    std::string name;
    std::string number;  // the first one
    std::string attribution;
    std::string lastContact;  // see ContactTimeText
    // An image file as the phone keeps it, in any format; without one the default head shows.
    ReplyBytes photo;
    bool favourite = false;
    std::uint32_t contactId = 0;  // what all other commands name the contact by
    std::uint32_t secondId = 0;   // kept and not used
};

// Ended by the mark in a name, it selects nothing.
using ContactList = ReadList<ContactListRow>;
using ContactListReply = ListReply<ContactListRow>;

// Reads the run of records. A record with a length that points outside the reply, or in whose id
// the reply was cut, ends the run and is dropped. Any thread; `attribution` is called on it, once a
// row.
[[nodiscard]] ContactList ParseContactList(const SharedReply& reply,
                                           const AttributionOf& attribution);

// One session that reads the list. Any thread.
[[nodiscard]] ContactListReply FetchContactList(const AgentSession& session,
                                                const AttributionOf& attribution,
                                                const AgentSession::Progress& progress = {});

// The request of command 870106.
[[nodiscard]] Bytes DeleteContactsRequest(std::span<const std::uint32_t> ids);

}  // namespace quorvi
