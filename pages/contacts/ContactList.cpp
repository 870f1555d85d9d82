#include "pages/contacts/ContactList.h"

#include <utility>

#include "pages/contacts/ContactRecord.h"
#include "pages/kit/ReplyPicture.h"

namespace quorvi {

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
            row.photo = TakePicture(cursor, reply);
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
