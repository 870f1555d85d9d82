// Reads groups, their names and their members out of any bytes, whole or cut, builds the tree, and
// reads each node back.
//
// Input: see FuzzReplyOf.h.
#include <cstdlib>

#include "fuzz/agent/FuzzReplyOf.h"
#include "pages/contacts/ContactGroups.h"
#include "pages/messages/GroupTree.h"
#include "pages/messages/Recipients.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const auto reply = quorvi::fuzz::ReplyOf({data, size});
    if (!reply) {
        return 0;
    }
    static_cast<void>(quorvi::ParseContactGroups(*reply));
    quorvi::GroupNames names = quorvi::InitialGroupNames();
    quorvi::ReadGroupNames(*reply, names);
    quorvi::GroupMembers members;
    static_cast<void>(quorvi::ReadGroupMembers(*reply, members));
    const auto tree = quorvi::RecipientTree(names, members);
    if (tree.size() != members.size()) {
        std::abort();
    }
    std::string field;
    for (const quorvi::RecipientGroup& group : tree) {
        for (const std::string& member : group.members) {
            field += quorvi::RecipientOfNode(member);
        }
    }
    static_cast<void>(quorvi::RecipientNumbers(field));
    static_cast<void>(quorvi::ResolveRecipient(field, members));
    return 0;
}
