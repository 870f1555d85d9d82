#include "pages/contacts/ContactList.h"

#include <utility>

#include "pages/contacts/ContactRecord.h"

namespace quorvi {
namespace {

// Nothing for a photo that is too long or not all there; the cursor moves past it all the same.
ReplyBytes TakePhoto(ReplyCursor& cursor, const SharedReply& reply) {
    // Of the length, too, only the low 32 bits count.
    const auto length = static_cast<std::uint32_t>(cursor.TakeUInt64());
    const std::size_t offset = cursor.Offset();
    cursor.SkipBytes(length);
    if (cursor.IsCut() || length > kContactPhotoCapacity) {
        return {};
    }
    return {reply, {reply->Data() + offset, length}};
}

}  // namespace

ContactList ParseContactList(const SharedReply& reply, const AttributionOf& attribution) {
    return ReadRun<ContactListRow>(*reply, [&](ReplyCursor& cursor, ContactListRow& row) {
        row.contactId = cursor.TakeId();
        if (cursor.IsCut()) {
            return RecordEnd::cut;  // a change of the row would go to whatever contact has this id
        }
        row.secondId = cursor.TakeId();
        auto name = cursor.TakeText();
        if (!name) {
            return RecordEnd::mark;
        }
        row.name = std::move(*name);
        row.favourite = cursor.TakeFlag();  // 2 is no favourite
        row.number = cursor.TakeTextOrEmpty();
        row.lastContact = ContactTimeText(cursor.TakeUInt64());
        cursor.SkipBytes(sizeof(std::uint32_t));  // reserved
        if (cursor.TakeFlag()) {
            row.photo = TakePhoto(cursor, reply);
        }
        if (cursor.Overran()) {
            return RecordEnd::cut;
        }
        row.attribution = attribution(row.number);
        return RecordEnd::whole;
    });
}

ContactListReply FetchContactList(const AgentSession& session, const AttributionOf& attribution,
                                  const AgentSession::Progress& progress) {
    return FetchList<ContactListRow>(
        session, BareRequest(AgentCommand::listContacts), progress, [&](ReplyBuffer&& reply) {
            return ParseContactList(ShareReply(std::move(reply)), attribution);
        });
}

Bytes DeleteContactsRequest(std::span<const std::uint32_t> ids) {
    return IdsRequest(AgentCommand::deleteContacts, ids);
}

}  // namespace quorvi
