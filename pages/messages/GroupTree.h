// Who is in which of the phone's contact groups: the two readings from which the composer builds
// its tree.
#pragma once

#include <cstdint>
#include <map>
#include <string>

#include "agent/AgentSession.h"
#include "agent/Reply.h"

namespace quorvi {

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
    bool connected = true;                                   // both sessions found the phone
    SessionOutcome outcome = SessionOutcome::connectFailed;  // of the last of them
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
