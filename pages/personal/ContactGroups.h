// The phone's contact groups: the list of the group dialog and the changes made there, and the two
// readings from which the composer builds its tree.
#pragma once

#include <cstdint>
#include <map>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "agent/AgentSession.h"
#include "agent/Reply.h"
#include "agent/Request.h"
#include "pages/ListReply.h"

namespace quorvi {

// One row of the dialog; texts are ANSI.
struct ContactGroup {
    std::uint32_t id = 0;
    std::string title;
    std::string account;
    bool visible = false;
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
[[nodiscard]] Bytes DeleteGroupsRequest(std::span<const std::uint32_t> ids);

// The group id of contacts that are in no group.
inline constexpr std::int32_t kNoGroup = -1;

// From a group's id to its title. Signed, so that the contacts of no group come first.
using GroupNames = std::map<std::int32_t, std::string>;

// The names as they stand before the phone is asked: the entry of kNoGroup alone.
[[nodiscard]] GroupNames InitialGroupNames();

// Adds what the reply of command 870120 holds; an id that is there keeps its title. A title of
// AbsentMark ends the reading.
void ReadGroupNames(const ReplyBuffer& reply, GroupNames& names);

// From a group's id to its members, from name to number.
using GroupMembers = std::map<std::int32_t, std::map<std::string, std::string>>;

// Adds what the reply of command 870150 holds. A contact with several numbers comes as several
// records, and keeps the first: it is the one that the contacts list shows. False when a name of
// AbsentMark ended the reading: the tree is not built then. A record that is not all there is
// dropped.
[[nodiscard]] bool ReadGroupMembers(const ReplyBuffer& reply, GroupMembers& members);

// Who is in which group, as the composer's tree shows it.
struct GroupTree {
    bool connected = true;  // both sessions found the phone
    bool complete = false;  // the tree is to be built; see ReadGroupMembers
    GroupNames names;
    GroupMembers members;
};

// Of the replies of commands 870120 and 870150. The tree is to be built when the phone was found
// for both and has members; without names, its groups have none.
[[nodiscard]] GroupTree ReadGroupTree(const PayloadReply& names, const PayloadReply& members);

// The two sessions that read it, names first; the second is left out when the first finds no phone.
// Any thread.
[[nodiscard]] GroupTree FetchGroupTree(const AgentSession& session);

}  // namespace quorvi
