#include "pages/messages/GroupTree.h"

#include <utility>

#include "base/Text.h"

namespace quorvi {
namespace {

std::int32_t TakeGroupId(ReplyCursor& cursor) {
    return static_cast<std::int32_t>(cursor.TakeId());
}

}  // namespace

GroupNames InitialGroupNames() {
    return {{kNoGroup, Ansi(u8"【未分组】")}};
}

void ReadGroupNames(const ReplyBuffer& reply, GroupNames& names) {
    ReplyCursor cursor(reply);
    do {
        const std::int32_t id = TakeGroupId(cursor);
        auto title = cursor.TakeText();
        if (!title || cursor.IsCut()) {
            return;
        }
        names.emplace(id, std::move(*title));
    } while (!cursor.AtEnd());
}

bool ReadGroupMembers(const ReplyBuffer& reply, GroupMembers& members) {
    ReplyCursor cursor(reply);
    do {
        const std::int32_t id = TakeGroupId(cursor);
        auto name = cursor.TakeText();
        if (!name) {
            return false;
        }
        std::string number = cursor.TakeTextOrEmpty();
        if (cursor.IsCut()) {
            return true;  // a cut number belongs to somebody else
        }
        members[id].emplace(std::move(*name), std::move(number));
    } while (!cursor.AtEnd());
    return true;
}

GroupTree ReadGroupTree(const PayloadReply& names, const PayloadReply& members) {
    GroupTree tree;
    tree.names = InitialGroupNames();
    if (names.HasPayload()) {
        ReadGroupNames(names.buffer, tree.names);
    }
    tree.connected = names.outcome != SessionOutcome::connectFailed &&
                     members.outcome != SessionOutcome::connectFailed;
    tree.outcome = tree.connected ? members.outcome : SessionOutcome::connectFailed;
    tree.complete =
        tree.connected && members.HasPayload() && ReadGroupMembers(members.buffer, tree.members);
    return tree;
}

GroupTree FetchGroupTree(const AgentSession& session) {
    const PayloadReply names = session.RunPayload(BareRequest(AgentCommand::listGroupNames));
    return ReadGroupTree(names,
                         names.outcome == SessionOutcome::connectFailed
                             ? PayloadReply()
                             : session.RunPayload(BareRequest(AgentCommand::listGroupMembers)));
}

}  // namespace quorvi
