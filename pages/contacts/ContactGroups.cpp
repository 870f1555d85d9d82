#include "pages/contacts/ContactGroups.h"

#include <utility>

#include "base/Text.h"

namespace quorvi {

ContactGroups ParseContactGroups(const ReplyBuffer& reply) {
    return ReadRun<ContactGroup>(reply, [](ReplyCursor& cursor, ContactGroup& group) {
        group.id = cursor.TakeId();
        if (cursor.IsCut()) {
            return RecordEnd::cut;  // a change of the row would go to whatever group has this id
        }
        const auto title = cursor.TakeUtf8();
        if (!title) {
            return RecordEnd::mark;
        }
        group.titleCame = *title;
        group.title = ToAnsi(*title);
        group.account = cursor.TakeTextOrEmpty();
        group.visible = cursor.TakeFlag();
        return cursor.Overran() ? RecordEnd::cut : RecordEnd::whole;
    });
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

Bytes RenameGroupRequest(const ContactGroup& group, std::string_view title) {
    RequestBuilder request(AgentCommand::renameGroup);
    request.BeginItem().AddUInt32(group.id);
    if (title == group.title) {
        return request.AddRawText(group.titleCame).Take();
    }
    return request.AddText(title).Take();
}

Bytes DeleteGroupsRequest(std::span<const std::uint32_t> ids) {
    return IdsRequest(AgentCommand::deleteGroups, ids);
}

}  // namespace quorvi
