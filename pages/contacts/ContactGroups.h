// The phone's contact groups: the list of the group dialog and the changes made there.
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

namespace quorvi {

// One row of the dialog; texts are ANSI.
struct ContactGroup {
    std::uint32_t id = 0;
    std::string title;
    std::string account;
    bool visible = false;
    std::string titleCame{};  // the title in the very bytes that came from the phone
};

// Ended by the mark in a title.
using ContactGroups = ReadList<ContactGroup>;
using ContactGroupsReply = ListReply<ContactGroup>;

// Reads the reply of command 870140. A record with a length that points outside the reply, or in
// whose id the reply was cut, ends the run and is dropped. Any thread.
[[nodiscard]] ContactGroups ParseContactGroups(const ReplyBuffer& reply);

// One session that reads the groups. Any thread.
[[nodiscard]] ContactGroupsReply FetchContactGroups(const AgentSession& session,
                                                    const AgentSession::Progress& progress = {});

// What the column of visibility shows. ANSI.
[[nodiscard]] std::string GroupVisibleText(bool visible);

// The requests of commands 870121, 870122 and 870124. Titles are ANSI.
[[nodiscard]] Bytes AddGroupRequest(std::string_view title);
[[nodiscard]] Bytes RenameGroupRequest(std::uint32_t id, std::string_view title);
// The same for a group that was read: a title that is still its own goes out in the very bytes that
// came.
[[nodiscard]] Bytes RenameGroupRequest(const ContactGroup& group, std::string_view title);
[[nodiscard]] Bytes DeleteGroupsRequest(std::span<const std::uint32_t> ids);

}  // namespace quorvi
