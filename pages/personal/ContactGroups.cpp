#include "pages/personal/ContactGroups.h"

#include <utility>

#include "base/Text.h"

namespace quorvi {
namespace {

std::int32_t TakeGroupId(ReplyCursor& cursor) {
    return static_cast<std::int32_t>(cursor.TakeId());
}

}  // namespace

ContactGroups ParseContactGroups(const ReplyBuffer& reply) {
    ContactGroups groups;
    ReplyCursor cursor(reply);
    do {
        ContactGroup group;
        group.id = cursor.TakeId();
        if (cursor.IsCut()) {
            return groups;  // what is done to the row would befall another group
        }
        auto title = cursor.TakeText();
        if (!title) {
            groups.EndByMark(group.id);
            return groups;
        }
        group.title = std::move(*title);
        group.account = cursor.TakeTextOrEmpty();
        group.visible = cursor.TakeUInt32() == 1;
        if (cursor.Overran()) {
            return groups;
        }
        groups.rows.push_back(std::move(group));
    } while (!cursor.AtEnd());
    return groups;
}

ContactGroupsReply FetchContactGroups(const AgentSession& session,
                                      const AgentSession::Progress& progress) {
    return FetchList<ContactGroup>(session, BareRequest(AgentCommand::listGroups), progress,
                                   &ParseContactGroups);
}

std::string GroupVisibleText(bool visible) {
    return visible ? Ansi(u8"是") : Ansi(u8"【隐藏】");
}

Bytes AddGroupRequest(std::string_view title) {
    return RequestBuilder(AgentCommand::addGroup).BeginItem().AddText(title).Take();
}

Bytes RenameGroupRequest(std::uint32_t id, std::string_view title) {
    return RequestBuilder(AgentCommand::renameGroup)
        .BeginItem()
        .AddUInt32(id)
        .AddText(title)
        .Take();
}

Bytes DeleteGroupsRequest(std::span<const std::uint32_t> ids) {
    return IdsRequest(AgentCommand::deleteGroups, ids);
}

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
            return true;  // half a number is somebody else's
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
